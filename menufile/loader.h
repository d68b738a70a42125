#ifndef CORVALIS_MENUFILE_LOADER_H_
#define CORVALIS_MENUFILE_LOADER_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "menufile/file_system.h"
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

// Reads the menu file at `path` into `view`. A file without a marker line is
// invalid or of a previous version: the view is asked, and on yes the file is
// converted (UpgradeMenuFile(), with `defaultPicture` as its new picture) and
// read again, as often as that does not help. A menu type that is neither of
// the two known ones shows the appearance and nothing else.
//
// False when the user declined; the file is as it was. Throws Failure when the
// file cannot be opened or ends too early; the view keeps what it was given
// before.
bool LoadMenuFile(FileSystem& files, const std::string& path, std::string_view defaultPicture,
                  MenuView& view);

// Reads the record of one entry, the top one being number 0, out of the bytes
// of a user-defined menu. The record borrows from them. Throws Failure, with
// `path`, when they end before it does.
MenuItemRecord ReadMenuItem(std::string_view bytes, const std::string& path, std::size_t number);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_LOADER_H_
