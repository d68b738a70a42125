#include "win32/shell_file.h"

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>
#include <optional>

#include "win32/text.h"

namespace win32 {
namespace {

constexpr UINT kFlags =
    SHGFI_SYSICONINDEX | SHGFI_TYPENAME | SHGFI_DISPLAYNAME | SHGFI_EXETYPE | SHGFI_SHELLICONSIZE;
static_assert(kFlags == 0x6604);
// The ANSI record is packed to single bytes on 32-bit Windows only.
static_assert(sizeof(SHFILEINFOA) == (sizeof(void*) == 4 ? 352 : 360));

}  // namespace

ShellFile::ShellFile(const std::string& path) {
  SHFILEINFOA info{};
  DWORD_PTR answer = SHGetFileInfoA(path.c_str(), 0, &info, sizeof info, kFlags);
  if (answer == 0) {
    // Some versions refuse SHGFI_EXETYPE together with other flags.
    info = {};
    answer = SHGetFileInfoA(path.c_str(), 0, &info, sizeof info, kFlags & ~UINT{SHGFI_EXETYPE});
  }
  displayName.assign(info.szDisplayName, strnlen(info.szDisplayName, sizeof info.szDisplayName));
  images = reinterpret_cast<HIMAGELIST>(answer);
  imageIndex = info.iIcon;
}

std::string ShellNameOf(const std::string& path) {
  std::string name = ShellFile(path).displayName;
  // Most names are the file's own, with its extension or without. Any other name may have
  // lost characters that are not in the code page, or its end: an ANSI record holds fewer
  // characters of a long one.
  const std::string own = LastPartOf(path);
  if (!name.empty() && (own == name || own.starts_with(name + '.'))) {
    return name;
  }
  SHFILEINFOW info{};
  SHGetFileInfoW(ToText(path).c_str(), 0, &info, sizeof info, SHGFI_DISPLAYNAME);
  const std::optional<std::string> whole = ToBytes(info.szDisplayName);
  return whole == name ? name : whole.value_or(own);
}

// Converted to text first: the second byte of a double-byte character may equal a
// backslash.
std::string LastPartOf(const std::string& path) {
  std::wstring text = ToText(path);
  while (text.ends_with(L'\\')) {
    text.pop_back();
  }
  return ToBytes(text.substr(text.rfind(L'\\') + 1)).value_or(path);
}

void TellShellOfChange(const std::string& path) {
  const std::wstring text = ToText(path);
  // The shell needs a full path.
  std::wstring full(GetFullPathNameW(text.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(
      GetFullPathNameW(text.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  SHChangeNotify(SHCNE_UPDATEITEM, SHCNF_PATHW, full.c_str(), nullptr);
}

}  // namespace win32
