#include "tests/windows/icon_files.h"

#include <algorithm>
#include <utility>

namespace testing_icons {
namespace {

constexpr int kCorner = 8;  // the side of the squares in the corners
constexpr int kBytesPerPixel = 3;

template <typename T>
void Append(std::string& out, const T& value) {
  out.append(reinterpret_cast<const char*>(&value), sizeof value);
}

void AppendPixel(std::string& out, COLORREF colour) {
  out += {static_cast<char>(GetBValue(colour)), static_cast<char>(GetGValue(colour)),
          static_cast<char>(GetRValue(colour))};
}

void PadTo(std::string& out, std::size_t multiple) {
  out.resize((out.size() + multiple - 1) / multiple * multiple);
}

bool IsWhite(int x, int y) { return x < kCorner && y < kCorner; }
bool IsTransparent(int x, int y) { return x >= kIconSize - kCorner && y >= kIconSize - kCorner; }

// An image as in icon files and resources: header, pixels and mask, the bottom row first.
std::string Image(COLORREF icon) {
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = kIconSize;
  header.biHeight = 2 * kIconSize;  // pixels and mask
  header.biPlanes = 1;
  header.biBitCount = 8 * kBytesPerPixel;
  std::string image;
  Append(image, header);
  for (int y = kIconSize - 1; y >= 0; --y) {
    for (int x = 0; x < kIconSize; ++x) {
      AppendPixel(image, PixelOf(icon, x, y, RGB(0, 0, 0)));
    }
  }
  for (int y = kIconSize - 1; y >= 0; --y) {
    for (int x = 0; x < kIconSize; x += 8) {
      image += static_cast<char>(IsTransparent(x, y) ? 0xFF : 0);
    }
  }
  return image;
}

// The part of an image's entry that is the same in an icon file and in a resource.
std::string DirectoryEntry(std::size_t imageSize) {
  std::string entry;
  Append(entry, static_cast<BYTE>(kIconSize));
  Append(entry, static_cast<BYTE>(kIconSize));
  Append(entry, WORD{0});  // colours in the palette, reserved
  Append(entry, WORD{1});  // planes
  Append(entry, static_cast<WORD>(8 * kBytesPerPixel));
  Append(entry, static_cast<DWORD>(imageSize));
  return entry;
}

std::string DirectoryHeader() {
  std::string header;
  for (const WORD word : {WORD{0}, WORD{1}, WORD{1}}) {  // reserved, type icon, one image
    Append(header, word);
  }
  return header;
}

std::string IconFileWith(const std::string& image) {
  std::string file = DirectoryHeader() + DirectoryEntry(image.size());
  Append(file, static_cast<DWORD>(file.size() + sizeof(DWORD)));
  return file + image;
}

constexpr DWORD kSectionAddress = 0x1000;
constexpr DWORD kFileAlignment = 0x200;
constexpr DWORD kSubdirectory = 0x80000000;

// A resource section: the levels types, names, languages and data entries, then the data.
class ResourceSection {
 public:
  // Adds the resources of a type, with ids from 1.
  void Add(WORD type, std::vector<std::string> resources) {
    types_.push_back({type, std::move(resources)});
  }

  std::string Bytes() const {
    std::size_t count = 0;
    for (const Type& type : types_) {
      count += type.resources.size();
    }
    const std::size_t namesAt = kHeader + types_.size() * kEntry;
    const std::size_t languagesAt = namesAt + types_.size() * kHeader + count * kEntry;
    const std::size_t leavesAt = languagesAt + count * (kHeader + kEntry);
    std::string top = Header(types_.size());
    std::string names;
    std::string languages;
    std::string leaves;
    std::string data;
    std::size_t number = 0;
    for (const Type& type : types_) {
      AppendEntry(top, type.id, kSubdirectory | static_cast<DWORD>(namesAt + names.size()));
      names += Header(type.resources.size());
      DWORD name = 0;
      for (const std::string& resource : type.resources) {
        AppendEntry(names, ++name,
                    kSubdirectory | static_cast<DWORD>(languagesAt + languages.size()));
        languages += Header(1);
        AppendEntry(languages, 0x409, static_cast<DWORD>(leavesAt + kLeaf * number++));
        const std::size_t dataAt = leavesAt + kLeaf * count + data.size();
        Append(leaves, static_cast<DWORD>(kSectionAddress + dataAt));
        Append(leaves, static_cast<DWORD>(resource.size()));
        Append(leaves, DWORD{0});
        Append(leaves, DWORD{0});
        data += resource;
        PadTo(data, sizeof(DWORD));
      }
    }
    return top + names + languages + leaves + data;
  }

 private:
  struct Type {
    WORD id;
    std::vector<std::string> resources;
  };

  static constexpr std::size_t kHeader = 16;
  static constexpr std::size_t kEntry = 8;
  static constexpr std::size_t kLeaf = 16;

  static std::string Header(std::size_t entries) {
    std::string header(kHeader - sizeof(WORD), '\0');
    Append(header, static_cast<WORD>(entries));
    return header;
  }

  static void AppendEntry(std::string& out, DWORD id, DWORD offset) {
    Append(out, id);
    Append(out, offset);
  }

  std::vector<Type> types_;
};

// A 64-bit program or library with nothing but a section of resources.
std::string Executable(std::string section, bool isProgram) {
  const DWORD sectionSize = static_cast<DWORD>(section.size());
  PadTo(section, kFileAlignment);
  std::string file;
  IMAGE_DOS_HEADER dos{};
  dos.e_magic = IMAGE_DOS_SIGNATURE;
  dos.e_lfanew = sizeof dos;
  Append(file, dos);
  IMAGE_NT_HEADERS64 headers{};
  headers.Signature = IMAGE_NT_SIGNATURE;
  headers.FileHeader.Machine = IMAGE_FILE_MACHINE_AMD64;
  headers.FileHeader.NumberOfSections = 1;
  headers.FileHeader.SizeOfOptionalHeader = sizeof headers.OptionalHeader;
  headers.FileHeader.Characteristics =
      static_cast<WORD>(IMAGE_FILE_EXECUTABLE_IMAGE | IMAGE_FILE_LARGE_ADDRESS_AWARE |
                        (isProgram ? 0 : IMAGE_FILE_DLL));
  IMAGE_OPTIONAL_HEADER64& optional = headers.OptionalHeader;
  optional.Magic = IMAGE_NT_OPTIONAL_HDR64_MAGIC;
  optional.SizeOfInitializedData = static_cast<DWORD>(section.size());
  optional.ImageBase = 0x10000000;
  optional.SectionAlignment = kSectionAddress;
  optional.FileAlignment = kFileAlignment;
  optional.MajorOperatingSystemVersion = 6;
  optional.MajorSubsystemVersion = 6;
  optional.SizeOfImage = kSectionAddress + (sectionSize + 0xFFF) / 0x1000 * 0x1000;
  optional.SizeOfHeaders = kFileAlignment;
  optional.Subsystem = IMAGE_SUBSYSTEM_WINDOWS_GUI;
  optional.NumberOfRvaAndSizes = IMAGE_NUMBEROF_DIRECTORY_ENTRIES;
  optional.DataDirectory[IMAGE_DIRECTORY_ENTRY_RESOURCE] = {kSectionAddress, sectionSize};
  Append(file, headers);
  IMAGE_SECTION_HEADER header{};
  constexpr char kName[] = ".rsrc";
  std::copy_n(kName, sizeof kName, header.Name);
  header.Misc.VirtualSize = sectionSize;
  header.VirtualAddress = kSectionAddress;
  header.SizeOfRawData = static_cast<DWORD>(section.size());
  header.PointerToRawData = kFileAlignment;
  header.Characteristics = IMAGE_SCN_CNT_INITIALIZED_DATA | IMAGE_SCN_MEM_READ;
  Append(file, header);
  PadTo(file, kFileAlignment);
  return file + section;
}

}  // namespace

std::vector<COLORREF> Colours(int count) {
  std::vector<COLORREF> colours;
  for (int i = 0; i < count; ++i) {
    colours.push_back(RGB(17 + 13 * i, 201 - 11 * i, 90 + 7 * i));
  }
  return colours;
}

COLORREF PixelOf(COLORREF icon, int x, int y, COLORREF background) {
  return IsWhite(x, y) ? kWhite : IsTransparent(x, y) ? background : icon;
}

std::vector<COLORREF> PixelsOf(COLORREF icon, COLORREF background) {
  std::vector<COLORREF> pixels;
  for (int y = 0; y < kIconSize; ++y) {
    for (int x = 0; x < kIconSize; ++x) {
      pixels.push_back(PixelOf(icon, x, y, background));
    }
  }
  return pixels;
}

std::string BitmapFile(const std::vector<COLORREF>& pixels) {
  // The file has 3126 bytes, 54 of them headers. The picture has 32 by 32 pixels, one
  // plane, 24 bits, no compression, and 3072 bytes.
  std::string file(
      "BM\x36\x0C\0\0\0\0\0\0\x36\0\0\0"
      "\x28\0\0\0\x20\0\0\0\x20\0\0\0\x01\0\x18\0\0\0\0\0\0\x0C\0\0"
      "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0",
      54);
  for (int y = kIconSize - 1; y >= 0; --y) {
    for (int x = 0; x < kIconSize; ++x) {
      AppendPixel(file, pixels.at(static_cast<std::size_t>(y * kIconSize + x)));
    }
  }
  return file;
}

std::string IconFile(COLORREF icon) { return IconFileWith(Image(icon)); }

std::string IconFileHolding(const std::string& bytes) {
  return IconFileWith(Image(kWhite).replace(sizeof(BITMAPINFOHEADER), bytes.size(), bytes));
}

std::string Library(const std::vector<COLORREF>& colours, std::size_t count, bool isProgram) {
  std::vector<std::string> images;
  for (const COLORREF colour : colours) {
    images.push_back(Image(colour));
  }
  std::vector<std::string> icons;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t image = i % colours.size();
    std::string icon = DirectoryHeader() + DirectoryEntry(images[image].size());
    Append(icon, static_cast<WORD>(image + 1));
    icons.push_back(icon);
  }
  ResourceSection resources;
  if (count > 0) {
    resources.Add(3, images);  // RT_ICON
    resources.Add(14, icons);  // RT_GROUP_ICON
  }
  return Executable(resources.Bytes(), isProgram);
}

}  // namespace testing_icons
