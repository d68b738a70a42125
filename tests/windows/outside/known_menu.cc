#include "tests/windows/outside/known_menu.h"

#include <algorithm>

#include "tests/windows/icon_files.h"

namespace testing_menus {

std::string Entry::Line() const {
  return ItemLine(caption, target, arguments, startIn, iconFile, iconIndex);
}

Entry Separator() { return {"", "", "", "", "", ""}; }

std::string KnownMenu::Bytes() const {
  if (isDirectory) {
    return DirectoryMenu(directory, appearance, picture);
  }
  std::vector<std::string> lines;
  for (const Entry& entry : entries) {
    lines.push_back(entry.Line());
  }
  return UserDefinedMenu(lines, appearance, picture);
}

std::string KnownMenu::PreviousVersionBytes() const {
  std::string bytes = appearance;
  for (const Entry& entry : entries) {
    bytes += entry.Line();
  }
  return bytes;
}

std::string Difference(const std::string& actual, const std::string& expected) {
  if (actual == expected) {
    return {};
  }
  constexpr std::size_t kShown = 80;
  const auto first = static_cast<std::size_t>(
      std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end()).first -
      actual.begin());
  const std::size_t from = first - std::min(first, kShown / 2);
  const auto part = [&](const std::string& bytes) {
    return std::to_string(bytes.size()) + " bytes, ..." +
           bytes.substr(std::min(from, bytes.size()), kShown) + "...";
  };
  return "from byte " + std::to_string(first) + " on: " + part(actual) + " instead of " +
         part(expected);
}

std::string EmptyPreview() {
  constexpr std::size_t kPixels = testing_icons::kIconSize * testing_icons::kIconSize;
  return testing_icons::BitmapFile(std::vector<COLORREF>(kPixels, GetSysColor(COLOR_BTNFACE)));
}

}  // namespace testing_menus
