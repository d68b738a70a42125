#include "win32/wine_icon_check.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <optional>
#include <vector>

#include "win32/handles.h"
#include "win32/icon_bytes.h"
#include "win32/text.h"

namespace win32 {
namespace {

// The functions below read what Wine reads on its way to an icon, in the same order. A
// read beyond the end of the file throws BeyondEnd. If Wine gives up by itself, they
// return.

constexpr WORD kIconType = 3;
constexpr WORD kIconGroupType = 14;

// The first bytes of an icon file, and of each icon (a group of images) in a program.
struct GroupHeader {
  WORD reserved;
  WORD type;
  WORD count;
};

// Sizes in bytes. An entry of a group ends with the number of its image. In an icon
// file it has the image's size and offset instead.
constexpr std::size_t kGroupEntrySize = 14;
constexpr std::size_t kFileEntrySize = 16;
constexpr std::size_t kEntryStart = 12;     // the part that both have in common
constexpr std::size_t kFileEntryImage = 8;  // the offset of size and offset in a file's entry

// The number of the image that Wine picks from a group for a large icon. Wine itself
// answers this; the bytes that it reads are safe.
WORD PickImage(std::vector<BYTE>& group) {
  const auto picked = LookupIconIdFromDirectoryEx(group.data(), TRUE, GetSystemMetrics(SM_CXICON),
                                                  GetSystemMetrics(SM_CYICON), 0);
  return static_cast<WORD>(picked);
}

// The same for a group in a program. Returns nothing if Wine rejects the group.
std::optional<WORD> PickImage(const IconBytes& file, std::uint64_t group) {
  const auto header = file.Read<GroupHeader>(group);
  if (header.reserved != 0 || (header.type & 3) == 0) {
    return std::nullopt;
  }
  std::vector<BYTE> bytes = file.ReadBytes(group, sizeof header + header.count * kGroupEntrySize);
  return PickImage(bytes);
}

void CheckIconFile(const IconBytes& file) {
  const auto header = file.Read<GroupHeader>(0);
  std::vector<BYTE> group = file.ReadBytes(0, sizeof header);
  for (WORD number = 0; number < header.count; ++number) {
    std::vector<BYTE> entry =
        file.ReadBytes(sizeof header + number * kFileEntrySize, kFileEntrySize);
    group.insert(group.end(), entry.begin(), entry.begin() + kEntryStart);
    group.push_back(static_cast<BYTE>(number & 0xFF));
    group.push_back(static_cast<BYTE>(number >> 8));
  }
  const std::uint64_t picked = sizeof header + PickImage(group) * kFileEntrySize;
  CheckIconImage(file, file.Read<DWORD>(picked + kFileEntryImage + sizeof(DWORD)),
                 file.Read<DWORD>(picked + kFileEntryImage));
}

// A 16-bit program or library: a table of types, each with a list of resources.
void CheckOldProgram(const IconBytes& file, std::uint64_t header, int index) {
  struct Type {
    WORD id, count;
    DWORD reserved;
  };
  struct Resource {
    WORD offset, size, flags, id, handle, usage;
  };
  constexpr std::uint64_t kResourceTable = 0x24;
  constexpr std::uint64_t kNameTable = 0x26;
  constexpr WORD kNumbered = 0x8000;
  const int table = file.Read<WORD>(header + kResourceTable);
  if (file.Read<WORD>(header + kNameTable) - table <= static_cast<int>(sizeof(Type))) {
    return;  // no resources
  }
  std::uint64_t at = header + static_cast<std::uint64_t>(table);
  const WORD shift = file.Read<WORD>(at);
  if (shift >= 16 || index < 0) {
    throw BeyondEnd{};
  }
  at += sizeof shift;
  std::optional<std::vector<Resource>> images;
  std::optional<std::vector<Resource>> groups;
  for (; file.Read<WORD>(at) != 0 && !(images && groups);) {
    const auto type = file.Read<Type>(at);
    at += sizeof type;
    std::vector<Resource> resources;
    for (WORD i = 0; i < type.count; ++i, at += sizeof(Resource)) {
      resources.push_back(file.Read<Resource>(at));
    }
    if (type.id == (kNumbered | kIconType)) {
      images = std::move(resources);
    } else if (type.id == (kNumbered | kIconGroupType)) {
      groups = std::move(resources);
    }
  }
  if (!images || !groups || static_cast<std::size_t>(index) >= groups->size()) {
    return;
  }
  const Resource& group = (*groups)[static_cast<std::size_t>(index)];
  const WORD picked = PickImage(file, std::uint64_t{group.offset} << shift).value_or(0);
  for (const Resource& image : *images) {
    if (image.id == (picked | kNumbered)) {
      CheckIconImage(file, std::uint64_t{image.offset} << shift,
                     std::uint64_t{image.size} << shift);
    }
  }
}

// A program or library with its resources in directories three levels deep:
// types, names, languages.
class Program {
 public:
  Program(const IconBytes& file, std::uint64_t header) : file_(file) {
    const auto fileHeader = file.Read<IMAGE_FILE_HEADER>(header + sizeof(DWORD));
    const std::uint64_t optional = header + sizeof(DWORD) + sizeof fileHeader;
    sections_ = optional + fileHeader.SizeOfOptionalHeader;
    sectionCount_ = fileHeader.NumberOfSections;
    const WORD magic = file.Read<WORD>(optional);
    if (magic == IMAGE_NT_OPTIONAL_HDR64_MAGIC) {
      FindResources(file.Read<IMAGE_OPTIONAL_HEADER64>(optional));
    } else if (magic == IMAGE_NT_OPTIONAL_HDR32_MAGIC) {
      FindResources(file.Read<IMAGE_OPTIONAL_HEADER32>(optional));
    }
  }

  void Check(int index) const {
    if (!root_) {
      return;
    }
    const std::optional<std::uint64_t> groups = FindById(*root_, kIconGroupType);
    if (!groups) {
      return;
    }
    const std::optional<std::uint64_t> named = EntryAt(*groups, index);
    if (!named) {
      return;
    }
    const std::optional<Data> group = DefaultData(*named);
    if (!group) {
      return;
    }
    const WORD picked = PickImage(file_, group->offset).value_or(0);
    const std::optional<std::uint64_t> images = FindById(*root_, kIconType);
    const std::optional<std::uint64_t> image = images ? FindById(*images, picked) : images;
    if (!image) {
      return;
    }
    if (const std::optional<Data> data = DefaultData(*image)) {
      CheckIconImage(file_, data->offset, data->size);
    }
  }

 private:
  struct Entry {
    DWORD id;      // only the lower 16 bits count
    DWORD offset;  // from the root, in bytes; the highest bit is a flag
  };
  struct Data {
    std::uint64_t offset;
    std::uint64_t size;
  };

  template <typename Header>
  void FindResources(const Header& header) {
    if (header.NumberOfRvaAndSizes > IMAGE_DIRECTORY_ENTRY_RESOURCE) {
      const DWORD address = header.DataDirectory[IMAGE_DIRECTORY_ENTRY_RESOURCE].VirtualAddress;
      if (address != 0) {
        root_ = address < header.SizeOfHeaders ? address : OffsetOf(address);
      }
    }
  }

  // The offset in the file of what the program would have at that address; nothing if
  // no section contains the address.
  std::optional<std::uint64_t> OffsetOf(DWORD address) const {
    for (std::uint64_t i = 0; i < sectionCount_; ++i) {
      const auto section =
          file_.Read<IMAGE_SECTION_HEADER>(sections_ + i * sizeof(IMAGE_SECTION_HEADER));
      const DWORD end = section.VirtualAddress + section.SizeOfRawData;  // may wrap, as in Wine
      if (section.VirtualAddress <= address && address < end) {
        return std::uint64_t{section.PointerToRawData} + (address - section.VirtualAddress);
      }
    }
    return std::nullopt;
  }

  static std::uint64_t EntriesOf(std::uint64_t directory) {
    return directory + sizeof(IMAGE_RESOURCE_DIRECTORY);
  }

  std::uint64_t Target(const Entry& entry) const { return *root_ + (entry.offset & 0x7FFFFFFF); }

  // Entries with a name come first. After them, entries with an id are sorted by it.
  std::optional<std::uint64_t> FindById(std::uint64_t directory, WORD id) const {
    const auto header = file_.Read<IMAGE_RESOURCE_DIRECTORY>(directory);
    int first = header.NumberOfNamedEntries;
    int last = first + header.NumberOfIdEntries - 1;
    while (first <= last) {
      const int middle = (first + last) / 2;
      const auto entry = file_.Read<Entry>(EntriesOf(directory) +
                                           static_cast<std::uint64_t>(middle) * sizeof(Entry));
      if (static_cast<WORD>(entry.id) == id) {
        return Target(entry);
      }
      if (static_cast<WORD>(entry.id) > id) {
        last = middle - 1;
      } else {
        first = middle + 1;
      }
    }
    return std::nullopt;
  }

  // The icon with that 0-based index, or with the id -index if it is negative.
  std::optional<std::uint64_t> EntryAt(std::uint64_t directory, int index) const {
    const auto header = file_.Read<IMAGE_RESOURCE_DIRECTORY>(directory);
    const int count = header.NumberOfNamedEntries + header.NumberOfIdEntries;
    for (int i = index < 0 ? 0 : index; i < count; ++i) {
      const auto entry =
          file_.Read<Entry>(EntriesOf(directory) + static_cast<std::uint64_t>(i) * sizeof(Entry));
      if (index >= 0 || static_cast<WORD>(entry.id) == std::abs(index)) {
        return Target(entry);
      }
    }
    return std::nullopt;
  }

  // The data for the first language. As in Wine, nothing checks that there is one.
  std::optional<Data> DefaultData(std::uint64_t directory) const {
    const auto language = file_.Read<Entry>(EntriesOf(directory));
    const auto data = file_.Read<IMAGE_RESOURCE_DATA_ENTRY>(Target(language));
    const std::optional<std::uint64_t> offset = OffsetOf(data.OffsetToData);
    return offset ? std::optional(Data{*offset, data.Size}) : std::nullopt;
  }

  const IconBytes& file_;
  std::uint64_t sections_ = 0;
  WORD sectionCount_ = 0;
  std::optional<std::uint64_t> root_;  // the first directory
};

void CheckFile(const IconBytes& file, int index) {
  const WORD magic = file.Read<WORD>(0);
  if (magic != IMAGE_DOS_SIGNATURE) {
    if (const auto header = file.Read<GroupHeader>(0); header.type == 1 && header.reserved == 0) {
      CheckIconFile(file);
    }
    return;
  }
  const auto header = file.Read<DWORD>(offsetof(IMAGE_DOS_HEADER, e_lfanew));
  if (header >= file.size()) {
    return;  // a program of DOS, which has no icons
  }
  if (file.Read<WORD>(header) == IMAGE_OS2_SIGNATURE) {
    CheckOldProgram(file, header, index);
  } else if (file.Read<DWORD>(header) == IMAGE_NT_SIGNATURE) {
    Program(file, header).Check(index);
  }
}

// The path of the file that ExtractIconA() would open; empty if it finds none.
std::wstring FindFile(const std::wstring& path) {
  if (path.starts_with(L"\\\\") || path.find(L":\\") == 1) {
    return path;
  }
  wchar_t found[MAX_PATH];
  const DWORD length = SearchPathW(nullptr, path.c_str(), nullptr, MAX_PATH, found, nullptr);
  return length > 0 && length < MAX_PATH ? found : L"";
}

bool Judge(const std::wstring& path, int index) {
  const HANDLE opened = CreateFileW(path.c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
  if (opened == INVALID_HANDLE_VALUE) {
    return true;
  }
  const UniqueKernelHandle file(opened);
  try {
    CheckFile(IconBytes(file.get()), index);
    return true;
  } catch (const BeyondEnd&) {
    return false;
  }
}

// The cached answers about a file. They hold until its size or time changes.
struct Verdicts {
  ULONGLONG size = 0;
  ULONGLONG lastWrite = 0;
  std::map<int, bool> byIndex;
};

ULONGLONG Number(DWORD high, DWORD low) { return ULONGLONG{high} << 32 | low; }

}  // namespace

bool IsWine() {
  static const bool isWine =
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return isWine;
}

bool MayExtractIcon(const std::string& path, int index) {
  if (!IsWine()) {
    return true;
  }
  static std::map<std::wstring, Verdicts> known;
  const std::wstring found = FindFile(ToText(path));
  WIN32_FILE_ATTRIBUTE_DATA file{};
  if (found.empty() || !GetFileAttributesExW(found.c_str(), GetFileExInfoStandard, &file)) {
    return true;
  }
  Verdicts& verdicts = known[found];
  const ULONGLONG size = Number(file.nFileSizeHigh, file.nFileSizeLow);
  const ULONGLONG lastWrite =
      Number(file.ftLastWriteTime.dwHighDateTime, file.ftLastWriteTime.dwLowDateTime);
  if (verdicts.size != size || verdicts.lastWrite != lastWrite) {
    verdicts = {size, lastWrite, {}};
  }
  const auto [place, isNew] = verdicts.byIndex.try_emplace(index);
  if (isNew) {
    place->second = Judge(found, index);
  }
  return place->second;
}

}  // namespace win32
