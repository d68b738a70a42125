#ifndef CORVALIS_MENUFILE_LOADER_H_
#define CORVALIS_MENUFILE_LOADER_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "menufile/menu_file.h"
#include "menufile/records.h"

namespace menufile {

// What shows a menu: the loader hands over the parts of the file in the order
// in which they stand. Records borrow from the loader and are good only until
// the call returns.
class MenuView {
 public:
  MenuView() = default;
  MenuView(const MenuView&) = delete;
  MenuView& operator=(const MenuView&) = delete;
  virtual ~MenuView() = default;

  // The file holds no marker line. True when the user wants it converted.
  virtual bool ConfirmUpgrade() = 0;

  virtual void ShowAppearance(const AppearanceRecord& appearance) = 0;

  // `row` counts from 0 in each load. Nothing was cleared before row 0.
  virtual void AppendItem(std::size_t row, const MenuItemRecord& item) = 0;

  virtual void ShowDirectoryPointer(const DirectoryPointerRecord& directory) = 0;
};

// Reads the menu file into `view`. A file without a marker line is invalid or of a
// previous version: the view is asked, and on yes the file is converted
// (UpgradeMenuFile(), with `defaultPicture` as its new picture) and read again, as
// often as that does not help. A menu type that is neither of the two known ones
// shows the appearance and nothing else. A change of this window that was cut
// short is finished first.
//
// Returns false when the user declined; the file is as it was. Throws Failure when
// the file cannot be opened or ends too early; the view keeps what it was given
// before.
bool LoadMenuFile(MenuFile& menu, std::string_view defaultPicture, MenuView& view);

// The fields of one entry, as text.
struct MenuEntry {
  std::string caption;
  std::string target;
  std::string arguments;
  std::string startIn;
  std::string iconFile;
  std::string iconIndex;
};

// Reads the entry of that number, the top one being 0, of a user-defined menu. A
// change that was cut short is finished first: nothing then, since the entries may
// be others than what is shown. Throws Failure when the file cannot be read or ends
// before the entry does.
std::optional<MenuEntry> ReadMenuEntry(MenuFile& menu, std::size_t number);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_LOADER_H_
