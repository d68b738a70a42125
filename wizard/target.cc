#include "wizard/target.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

namespace wizard {
namespace {

constexpr std::string_view kAddressPrefixes[] = {
    "http://", "ftp://", "mailto:", "gopher://", "telnet://", "news:",
};

// Without the NUL at its end.
constexpr std::size_t kLongestPath = MAX_PATH - 1;

// Windows takes these three for old kinds of wildcards. Other characters that no
// file can have it refuses itself; and one of them, the bar, may be the second
// half of a double-byte character.
bool HasHiddenWildcard(std::string_view path) {
  return path.find_first_of("\"<>") != std::string_view::npos;
}

// Whether a listing of `pattern`, which may be a plain name, has any line; files
// and folders count, hidden and system ones too.
bool IsListed(const std::string& pattern) {
  if (pattern.empty() || pattern.size() > kLongestPath || HasHiddenWildcard(pattern)) {
    return false;
  }
  // The root of an empty drive has nothing to list but is a folder all the same.
  const DWORD attributes = GetFileAttributesA(pattern.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return true;
  }
  WIN32_FIND_DATAA found;
  const HANDLE search = FindFirstFileA(pattern.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) {
    return false;
  }
  FindClose(search);
  return true;
}

}  // namespace

bool IsAcceptedTarget(const std::string& target) {
  return std::any_of(std::begin(kAddressPrefixes), std::end(kAddressPrefixes),
                     [&](std::string_view prefix) { return target.starts_with(prefix); }) ||
         IsListed(target);
}

}  // namespace wizard
