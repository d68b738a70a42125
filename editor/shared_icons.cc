#include "editor/shared_icons.h"

#include <shellapi.h>

#include <iterator>

#include "win32/text.h"
#include "win32/wine_icon_check.h"

namespace editor {
namespace {

// The root of a path, "C:\" or "\\server\share\"; empty if it has none.
std::wstring RootOf(const std::wstring& path) {
  constexpr const wchar_t* kSeparators = L"\\/";
  const auto isSeparator = [](wchar_t c) { return c == L'\\' || c == L'/'; };
  if (path.size() > 2 && path[1] == L':' && isSeparator(path[2])) {
    return path.substr(0, 3);
  }
  if (path.size() < 3 || !isSeparator(path[0]) || !isSeparator(path[1])) {
    return {};
  }
  const std::size_t server = path.find_first_of(kSeparators, 2);
  const std::size_t share =
      server == std::wstring::npos ? server : path.find_first_of(kSeparators, server + 1);
  return share == std::wstring::npos ? std::wstring() : path.substr(0, share + 1);
}

// The handle that ExtractIconEx() wrote for the large icon; nothing if it wrote none.
// The small icon is extracted, too, because Windows extracts only both from some
// programs. Not under Wine, which would return the next icon as the small one, and an
// uninitialised handle after a failure.
std::optional<HICON> Extract(const std::string& file, int index) {
  if (!win32::MayExtractIcon(file, index)) {
    return nullptr;
  }
  auto* const unwritten = static_cast<HICON>(INVALID_HANDLE_VALUE);
  HICON large = unwritten;
  HICON small = nullptr;
  ExtractIconExA(file.c_str(), index, &large, win32::IsWine() ? nullptr : &small, 1);
  if (small != nullptr) {
    DestroyIcon(small);
  }
  return large == unwritten ? std::nullopt : std::optional(large);
}

}  // namespace

HICON ExtractLargeIcon(const std::string& file, int index) {
  return Extract(file, index).value_or(nullptr);
}

HICON SharedIcons::Extract(const std::string& file, int index, HICON former) {
  const Source source(file, index);
  const auto [place, isNew] = extracted_.try_emplace(source);
  std::optional<HICON>& icon = place->second;
  if (isNew && IsThere(file)) {
    icon = editor::Extract(file, index);
    if (icon.value_or(nullptr) != nullptr) {
      icons_[*icon] = {0, source};
    }
  }
  return icon.value_or(former);
}

// Accessing a server or a drive that does not answer may take half a minute.
bool SharedIcons::IsThere(const std::string& file) {
  const std::wstring root = RootOf(win32::ToText(file));
  if (root.empty()) {
    return true;
  }
  const auto [place, isNew] = roots_.try_emplace(root, true);
  if (isNew) {
    place->second = GetFileAttributesW(root.c_str()) != INVALID_FILE_ATTRIBUTES ||
                    GetLastError() == ERROR_ACCESS_DENIED;
  }
  return place->second;
}

void SharedIcons::Hold(HICON icon) {
  if (icon != nullptr) {
    ++icons_[icon].rows;
  }
}

void SharedIcons::Release(HICON icon) {
  const auto place = icons_.find(icon);
  if (place != icons_.end() && --place->second.rows == 0) {
    Destroy(place);
  }
}

void SharedIcons::ReleaseLater(HICON icon) {
  const auto place = icons_.find(icon);
  if (place != icons_.end()) {
    --place->second.rows;
  }
}

void SharedIcons::DestroyUnheld() {
  for (auto place = icons_.begin(); place != icons_.end();) {
    place = place->second.rows == 0 ? Destroy(place) : std::next(place);
  }
}

SharedIcons::Icons::iterator SharedIcons::Destroy(Icons::iterator place) {
  DestroyIcon(place->first);
  extracted_.erase(place->second.source);
  return icons_.erase(place);
}

}  // namespace editor
