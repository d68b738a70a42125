#include "win32/icon_file.h"

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "win32/handles.h"
#include "win32/text.h"

namespace win32 {
namespace {

// What no file can hold throws this; nobody else sees it.
struct BeyondEnd {};

void Require(bool isTrue) {
  if (!isTrue) {
    throw BeyondEnd{};
  }
}

// The bytes of the file.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

  std::uint64_t size() const { return bytes_.size(); }

  void RequireRange(std::uint64_t offset, std::uint64_t size) const {
    Require(offset <= bytes_.size() && size <= bytes_.size() - offset);
  }

  template <typename T>
  T Read(std::uint64_t offset) const {
    RequireRange(offset, sizeof(T));
    T value{};
    std::memcpy(&value, bytes_.data() + offset, sizeof value);
    return value;
  }

 private:
  std::string_view bytes_;
};

constexpr WORD kIconType = 3;
constexpr WORD kIconGroupType = 14;

// What an icon file begins with, and each icon (a group of images) of a program.
struct IconDirectory {
  WORD reserved;
  WORD type;
  WORD count;
};

constexpr WORD kIsIcon = 1;

struct IconFileEntry {
  BYTE width, height, colours, reserved;
  WORD planes, bitsPerPixel;
  DWORD size;
  DWORD offset;
};

// The entry of an image in a program has a number in place of the offset.
constexpr std::uint64_t kGroupEntrySize = 14;

void CheckIconFile(const Bytes& file) {
  const WORD count = file.Read<IconDirectory>(0).count;
  for (std::uint64_t i = 0; i < count; ++i) {
    const auto entry = file.Read<IconFileEntry>(sizeof(IconDirectory) + i * sizeof(IconFileEntry));
    file.RequireRange(entry.offset, entry.size);
  }
}

// A resource at that place of the file.
void CheckResource(const Bytes& file, WORD type, std::uint64_t offset, std::uint64_t size) {
  file.RequireRange(offset, size);
  if (type == kIconGroupType) {
    const WORD count = file.Read<IconDirectory>(offset).count;
    Require(sizeof(IconDirectory) + count * kGroupEntrySize <= size);
  }
}

// A 16-bit program or library: a table of types, each with a list of resources.
void CheckOldProgram(const Bytes& file, std::uint64_t header) {
  struct Type {
    WORD id, count;
    DWORD reserved;
  };
  struct Resource {
    WORD offset, size, flags, id, handle, usage;
  };
  constexpr std::uint64_t kTableOffset = 0x24;
  constexpr WORD kNumbered = 0x8000;
  std::uint64_t at = header + file.Read<WORD>(header + kTableOffset);
  const WORD shift = file.Read<WORD>(at);
  Require(shift < 32);
  at += sizeof shift;
  while (file.Read<WORD>(at) != 0) {
    const Type type = file.Read<Type>(at);
    at += sizeof type;
    for (WORD i = 0; i < type.count; ++i, at += sizeof(Resource)) {
      const auto resource = file.Read<Resource>(at);
      const WORD id = static_cast<WORD>(type.id & ~kNumbered);
      if (id == kIconType || id == kIconGroupType) {
        CheckResource(file, id, std::uint64_t{resource.offset} << shift,
                      std::uint64_t{resource.size} << shift);
      }
    }
  }
}

// A program or library with its resources in directories three levels deep:
// types, names, languages.
class Program {
 public:
  Program(const Bytes& file, std::uint64_t header) : file_(file) {
    const auto fileHeader = file.Read<IMAGE_FILE_HEADER>(header + sizeof(DWORD));
    const std::uint64_t optional = header + sizeof(DWORD) + sizeof fileHeader;
    const bool is64Bit = file.Read<WORD>(optional) == IMAGE_NT_OPTIONAL_HDR64_MAGIC;
    const std::uint64_t directories =
        optional + (is64Bit ? offsetof(IMAGE_OPTIONAL_HEADER64, DataDirectory)
                            : offsetof(IMAGE_OPTIONAL_HEADER32, DataDirectory));
    address_ = file.Read<IMAGE_DATA_DIRECTORY>(directories + IMAGE_DIRECTORY_ENTRY_RESOURCE *
                                                                 sizeof(IMAGE_DATA_DIRECTORY))
                   .VirtualAddress;
    headersEnd_ = file.Read<DWORD>(optional + offsetof(IMAGE_OPTIONAL_HEADER64, SizeOfHeaders));
    sections_ = optional + fileHeader.SizeOfOptionalHeader;
    sectionCount_ = fileHeader.NumberOfSections;
    Require(sectionCount_ <= kMostSections);
  }

  void Check() const {
    if (address_ == 0) {
      return;  // no resources
    }
    bool found[kIconGroupType + 1] = {};
    const EntryRange types = EntriesOf(0);
    for (std::uint64_t i = types.named; i < types.count; ++i) {
      const auto type = file_.Read<Entry>(types.offset + i * sizeof(Entry));
      const WORD id = static_cast<WORD>(type.id);
      if (id == kIconType || id == kIconGroupType) {
        Require(!found[id]);  // or this could go on for ever
        found[id] = true;
        CheckNames(id, type.offset);
      }
    }
  }

 private:
  struct Entry {
    DWORD id;
    DWORD offset;  // from the first directory
  };

  // The entries of a directory, in the file.
  struct EntryRange {
    std::uint64_t offset;
    std::uint64_t named;  // these come first
    std::uint64_t count;  // of all
  };

  static constexpr WORD kMostSections = 96;  // so says Windows

  // The bit of an offset that leads to a directory.
  static constexpr DWORD kDirectory = 0x80000000;

  // Where in the file stands what the program would have at that address.
  std::uint64_t OffsetOf(std::uint64_t address, std::uint64_t size) const {
    Require(address >= headersEnd_);
    for (std::uint64_t i = 0; i < sectionCount_; ++i) {
      const auto section =
          file_.Read<IMAGE_SECTION_HEADER>(sections_ + i * sizeof(IMAGE_SECTION_HEADER));
      if (address >= section.VirtualAddress &&
          address - section.VirtualAddress + size <= section.SizeOfRawData) {
        file_.RequireRange(section.PointerToRawData, section.SizeOfRawData);
        return section.PointerToRawData + (address - section.VirtualAddress);
      }
    }
    throw BeyondEnd{};
  }

  template <typename T>
  T ReadResource(DWORD offset) const {
    return file_.Read<T>(OffsetOf(std::uint64_t{address_} + offset, sizeof(T)));
  }

  EntryRange EntriesOf(DWORD directory) const {
    directory &= ~kDirectory;
    const auto header = ReadResource<IMAGE_RESOURCE_DIRECTORY>(directory);
    const std::uint64_t count =
        std::uint64_t{header.NumberOfNamedEntries} + header.NumberOfIdEntries;
    return {OffsetOf(std::uint64_t{address_} + directory + sizeof header, count * sizeof(Entry)),
            header.NumberOfNamedEntries, count};
  }

  void CheckNames(WORD type, DWORD directory) const {
    const EntryRange names = EntriesOf(directory);
    for (std::uint64_t i = 0; i < names.count; ++i) {
      const auto name = file_.Read<Entry>(names.offset + i * sizeof(Entry));
      const EntryRange languages = EntriesOf(name.offset);
      Require(languages.count > 0);
      // The first language is the one that counts.
      const auto language = file_.Read<Entry>(languages.offset);
      const auto data = ReadResource<IMAGE_RESOURCE_DATA_ENTRY>(language.offset & ~kDirectory);
      CheckResource(file_, type, OffsetOf(data.OffsetToData, data.Size), data.Size);
    }
  }

  static_assert(offsetof(IMAGE_OPTIONAL_HEADER64, SizeOfHeaders) ==
                offsetof(IMAGE_OPTIONAL_HEADER32, SizeOfHeaders));

  const Bytes& file_;
  DWORD address_;     // of the first directory
  DWORD headersEnd_;  // the first address behind the headers
  std::uint64_t sections_;
  WORD sectionCount_;
};

void CheckFile(const Bytes& file) {
  if (file.size() < sizeof(IconDirectory)) {
    return;
  }
  const auto start = file.Read<IconDirectory>(0);
  if (start.reserved == 0 && start.type == kIsIcon) {
    CheckIconFile(file);
  } else if (start.reserved == IMAGE_DOS_SIGNATURE && file.size() >= sizeof(IMAGE_DOS_HEADER)) {
    const auto header = static_cast<DWORD>(file.Read<IMAGE_DOS_HEADER>(0).e_lfanew);
    if (file.size() < std::uint64_t{header} + sizeof(DWORD)) {
      return;  // a program of DOS, which has no icons
    }
    if (file.Read<DWORD>(header) == IMAGE_NT_SIGNATURE) {
      Program(file, header).Check();
    } else if (file.Read<WORD>(header) == IMAGE_OS2_SIGNATURE) {
      CheckOldProgram(file, header);
    }
  }
}

struct Unmap {
  void operator()(void* view) const { UnmapViewOfFile(view); }
};
using UniqueView = UniqueHandle<void*, Unmap>;

HANDLE OpenToRead(const wchar_t* path) {
  return CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                     nullptr, OPEN_EXISTING, 0, nullptr);
}

// As ExtractIconA() finds it; INVALID_HANDLE_VALUE when there is none.
HANDLE OpenWhereFound(const std::wstring& path) {
  if (path.starts_with(L"\\\\")) {
    return OpenToRead(path.c_str());  // a server that does not answer is asked once
  }
  if (path.find(L":\\") == 1) {
    if (const HANDLE file = OpenToRead(path.c_str()); file != INVALID_HANDLE_VALUE) {
      return file;
    }
  }
  for (const wchar_t* extension : {static_cast<const wchar_t*>(nullptr), L".exe"}) {
    wchar_t found[MAX_PATH];
    const DWORD length = SearchPathW(nullptr, path.c_str(), extension, MAX_PATH, found, nullptr);
    if (length > 0 && length < MAX_PATH) {
      return OpenToRead(found);
    }
  }
  return INVALID_HANDLE_VALUE;
}

}  // namespace

bool IsSoundIconFile(const std::string& path) {
  const HANDLE opened = OpenWhereFound(ToText(path));
  const UniqueKernelHandle file(opened == INVALID_HANDLE_VALUE ? nullptr : opened);
  LARGE_INTEGER size{};
  if (!file || !GetFileSizeEx(file.get(), &size)) {
    return true;
  }
  const UniqueKernelHandle mapping(
      CreateFileMappingW(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
  const UniqueView view(mapping ? MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0) : nullptr);
  if (!view) {
    return true;
  }
  try {
    CheckFile(
        Bytes({static_cast<const char*>(view.get()), static_cast<std::size_t>(size.QuadPart)}));
    return true;
  } catch (const BeyondEnd&) {
    return false;
  }
}

}  // namespace win32
