#ifndef CORVALIS_MENUFILE_LOADER_H_
#define CORVALIS_MENUFILE_LOADER_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "menufile/menu_file.h"
#include "menufile/records.h"

namespace menufile {

// Shows a menu. The loader passes the parts of the file in the order in which they
// stand. Records borrow from the loader and are valid only until the call returns.
class MenuView {
 public:
  MenuView() = default;
  MenuView(const MenuView&) = delete;
  MenuView& operator=(const MenuView&) = delete;
  virtual ~MenuView() = default;

  // The file has no marker line. Returns true if the user wants it converted.
  virtual bool ConfirmUpgrade() = 0;

  virtual void ShowAppearance(const AppearanceRecord& appearance) = 0;

  // `row` is 0-based. The loader does not ask to clear the rows of an earlier load.
  virtual void AppendItem(std::size_t row, const MenuItemRecord& item) = 0;

  virtual void ShowDirectoryPointer(const DirectoryPointerRecord& directory) = 0;
};

// Reads the menu file into `view`. A file without a marker line is invalid or of a
// previous version. Then the view asks the user. On yes the file is converted by
// UpgradeMenuFile(), with `defaultPicture` as its picture, and read again; the
// question comes again while that does not help. A menu of an unknown type shows its
// appearance and nothing else. If a change of this window was interrupted, it is
// finished first.
//
// Returns false if the user declined; the file is unchanged. Throws Failure if the
// file cannot be opened or ends too early; the view keeps what it was given before.
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

// Reads the entry with that 0-based number of a user-defined menu. If an interrupted
// change had to be finished first, returns nothing: the entries may differ from those
// that the window shows. Throws Failure if the file cannot be read, or ends before
// the end of the entry.
std::optional<MenuEntry> ReadMenuEntry(MenuFile& menu, std::size_t number);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_LOADER_H_
