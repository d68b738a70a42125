#include "wizard/target.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

namespace wizard {
namespace {

constexpr std::wstring_view kAddressPrefixes[] = {
    L"http://", L"ftp://", L"mailto:", L"gopher://", L"telnet://", L"news:",
};

// In characters, without the NUL at the end.
constexpr std::size_t kLongestPath = MAX_PATH - 1;

// True if the path has a character that FindFirstFile() takes as an old kind of
// wildcard. Windows itself refuses the other characters that no file name can have.
bool HasHiddenWildcard(std::wstring_view path) {
  return path.find_first_of(L"\"<>") != std::wstring_view::npos;
}

// True if there is a file or folder with that path, which may end with a wildcard
// pattern. Hidden and system ones count, too.
bool IsListed(const std::wstring& pattern) {
  if (pattern.empty() || pattern.size() > kLongestPath || HasHiddenWildcard(pattern)) {
    return false;
  }
  // FindFirstFile() finds nothing in the root of an empty drive, but it is a folder.
  const DWORD attributes = GetFileAttributesW(pattern.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return true;
  }
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) {
    return false;
  }
  FindClose(search);
  return true;
}

}  // namespace

bool IsAcceptedTarget(const std::wstring& target) {
  return std::any_of(std::begin(kAddressPrefixes), std::end(kAddressPrefixes),
                     [&](std::wstring_view prefix) { return target.starts_with(prefix); }) ||
         IsListed(target);
}

}  // namespace wizard
