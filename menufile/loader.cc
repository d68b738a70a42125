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

MenuItemRecord ReadMenuItem(std::string_view bytes, const std::string& path, std::size_t number) {
  MenuReader reader(bytes, path);
  reader.SkipMarkerLine();
  reader.ReadTypeLine();
  reader.ReadAppearance();
  for (; number > 0; --number) {
    reader.ReadItem();
  }
  return reader.ReadItem();
}

bool LoadMenuFile(FileSystem& files, const std::string& path, std::string_view defaultPicture,
                  MenuView& view) {
  for (;;) {
    const std::string bytes = files.Open(path, OpenMode::Read)->ReadAll();
    MenuReader reader(bytes, path);
    if (reader.SkipMarkerLine()) {
      ShowMenu(reader, view);
      return true;
    }
    if (!view.ConfirmUpgrade()) {
      return false;
    }
    UpgradeMenuFile(files, path, defaultPicture);
  }
}

}  // namespace menufile
