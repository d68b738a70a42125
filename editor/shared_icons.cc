#include "editor/shared_icons.h"

#include <shellapi.h>

#include <limits>

#include "win32/icon_file.h"

namespace editor {

// Only the call's result tells whether the handles were written; on a failure
// they may hold anything. The small icon is asked for because the large one
// alone is not to be had from some programs; nothing shows it.
HICON ExtractLargeIcon(const std::string& file, int index) {
  if (!win32::IsSoundIconFile(file)) {
    return nullptr;
  }
  HICON large = nullptr;
  HICON small = nullptr;
  const UINT count = ExtractIconExA(file.c_str(), index, &large, &small, 1);
  if (count == 0 || count == std::numeric_limits<UINT>::max()) {
    return nullptr;
  }
  DestroyIcon(small);
  return large;
}

HICON SharedIcons::Extract(const std::string& file, int index) {
  const auto [place, isNew] = extracted_.try_emplace({file, index});
  if (isNew) {
    place->second = ExtractLargeIcon(file, index);
  }
  return place->second;
}

void SharedIcons::Hold(HICON icon) {
  if (icon != nullptr) {
    ++holders_[icon];
  }
}

void SharedIcons::Release(HICON icon) {
  const auto place = holders_.find(icon);
  if (place != holders_.end() && --place->second == 0) {
    holders_.erase(place);
    DestroyIcon(icon);
  }
}

}  // namespace editor
