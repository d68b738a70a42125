#ifndef CORVALIS_WIN32_FOLDER_LIST_H_
#define CORVALIS_WIN32_FOLDER_LIST_H_

#include <windows.h>

#include <string>

namespace win32 {

// Fills a combo box with the drives that there are ("c:", "d:") and selects
// that of the current directory. Nothing is asked of a drive but whether it is
// there, so that an empty one makes no fuss.
void FillDriveList(HWND combo);

// The drive that is selected, as "C:"; empty for none.
std::string SelectedDrive(HWND combo);

// Selects the drive of `path`. False, with the selection as it was, when the
// path names none that is in the list.
bool SelectDrive(HWND combo, const std::string& path);

// A list box that shows where one is in the folders of a drive: the folders
// down to the current one, each a step further in, the current one open, and
// the folders inside it.
class FolderList {
 public:
  // Borrows the list box. The list starts at the current directory.
  void Attach(HWND list);
  HWND window() const { return list_; }

  // With drive, and without a trailing backslash but for a root: "C:\",
  // "C:\Windows".
  const std::string& Path() const { return path_; }

  // Goes to a folder, or with a drive alone ("C:") to the current folder of
  // that drive. False, with everything as it was, when it cannot be listed.
  bool SetPath(const std::string& path);

  // Goes to the folder of the selected row. False as above, and when none is
  // selected.
  bool OpenSelected();

  // Reads the folder again.
  void Refresh();

 private:
  HWND list_ = nullptr;
  std::string path_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_FOLDER_LIST_H_
