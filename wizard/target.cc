#include "wizard/target.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

namespace wizard {
namespace {

constexpr std::wstring_view kAddressPrefixes[] = {
    L"http://", L"ftp://", L"mailto:", L"gopher://", L"telnet://", L"news:",
};

// Without the NUL at its end.
constexpr std::size_t kLongestPath = MAX_PATH - 1;

// Windows takes these three for old kinds of wildcards. Other characters that no
// file can have it refuses itself.
bool HasHiddenWildcard(std::wstring_view path) {
  return path.find_first_of(L"\"<>") != std::wstring_view::npos;
}

// Whether a listing of `pattern`, which may be a plain name, has any line; files
// and folders count, hidden and system ones too.
bool IsListed(const std::wstring& pattern) {
  if (pattern.empty() || pattern.size() > kLongestPath || HasHiddenWildcard(pattern)) {
    return false;
  }
  // The root of an empty drive has nothing to list but is a folder all the same.
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
