#include "menufile/loader.h"

#include "menufile/reader.h"
#include "menufile/upgrade.h"

namespace menufile {
namespace {

void ShowMenu(MenuReader& reader, MenuView& view) {
  const Value type = reader.ReadTypeLine();
  view.ShowAppearance(reader.ReadAppearance());
  const std::string keyword = type.Text();
  if (keyword == TypeKeyword(MenuType::UserDefined)) {
    for (std::size_t row = 0; !reader.AtEnd(); ++row) {
      view.AppendItem(row, reader.ReadItem());
    }
  } else if (keyword == TypeKeyword(MenuType::DirectoryPointer)) {
    view.ShowDirectoryPointer(reader.ReadDirectoryPointer());
  }
}

}  // namespace

bool LoadMenuFile(MenuFile& menu, std::string_view defaultPicture, MenuView& view) {
  if (menu.HasUnfinished()) {
    menu.FinishEarlier();
  }
  for (;;) {
    const std::string bytes = menu.Load();
    MenuReader reader(bytes, menu.path());
    if (reader.SkipMarkerLine()) {
      ShowMenu(reader, view);
      return true;
    }
    if (!view.ConfirmUpgrade()) {
      return false;
    }
    UpgradeMenuFile(menu, defaultPicture);
  }
}

std::optional<MenuEntry> ReadMenuEntry(MenuFile& menu, std::size_t number) {
  if (menu.FinishEarlier()) {
    return std::nullopt;
  }
  const std::string bytes = menu.files().Open(menu.path(), OpenMode::Read)->ReadAll();
  MenuReader reader(bytes, menu.path());
  reader.SkipMarkerLine();
  reader.ReadTypeLine();
  reader.ReadAppearance();
  for (; number > 0; --number) {
    reader.ReadItem();
  }
  const MenuItemRecord item = reader.ReadItem();
  return MenuEntry{item.caption.Text(), item.target.Text(),   item.arguments.Text(),
                   item.startIn.Text(), item.iconFile.Text(), item.iconIndex.Text()};
}

}  // namespace menufile
