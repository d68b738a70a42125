#ifndef CORVALIS_WIN32_FOLDER_LIST_H_
#define CORVALIS_WIN32_FOLDER_LIST_H_

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

#include "win32/handles.h"

namespace win32 {

// Fills a combo box with the drives that there are ("C:", "D:"); the one that
// was selected stays so while it is there. Nothing is asked of a drive but
// whether it is there, so that an empty one makes no fuss.
void FillDriveList(HWND combo);

// The drive that is selected, as "C:"; empty for none.
std::wstring SelectedDrive(HWND combo);

// Selects the drive of `path`, without telling the window. False, with the
// selection as it was, when the path names none that is in the list.
bool SelectDrive(HWND combo, const std::wstring& path);

// A list box that shows where one is in the folders of a drive: the folders
// down to the current one, each a step further in, all of them open, and the
// folders inside the current one, closed.
class FolderList {
 public:
  // Borrows the list box, an owner-drawn one that keeps its strings: they are
  // the bare names, so that typing one finds its row. Its parent has to pass
  // WM_DRAWITEM on to Draw(). The list is empty until Start() or SetPath().
  void Attach(HWND list);
  HWND window() const { return list_; }

  // Goes to the current directory, where that has a drive, else to the drive that
  // Windows is on. Asks the shell for its icons, which takes a while.
  void Start();

  // With drive, and without a trailing backslash but for a root: "C:\",
  // "C:\Windows". Empty while the list is.
  const std::wstring& Path() const { return path_; }

  // Goes to a folder, or with a drive alone ("C:") to the current folder of
  // that drive. False, with everything as it was, when it cannot be listed or
  // is on no drive.
  bool SetPath(const std::wstring& path);

  // Goes to the folder of the selected row, which reads it anew when it is the
  // current one. False as above, and when none is selected.
  bool OpenSelected();

  // To be called when the list box got another font.
  void FitToFont();

  void Draw(const DRAWITEMSTRUCT& item) const;

 private:
  int CurrentRow() const { return static_cast<int>(ends_.size()) - 1; }
  std::wstring PathOf(int row) const;
  void Show(const std::vector<std::wstring>& names);
  int IconSize() const;
  int IconLeft(int row) const;  // from the left edge of the row, in pixels
  int TextLeft(int row) const;

  HWND list_ = nullptr;
  std::wstring path_;
  // Where in the path the folder of each row ends, down to the current one.
  std::vector<std::size_t> ends_;
  UniqueIcon openFolder_;
  UniqueIcon closedFolder_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_FOLDER_LIST_H_
