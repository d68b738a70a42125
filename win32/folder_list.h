#ifndef CORVALIS_WIN32_FOLDER_LIST_H_
#define CORVALIS_WIN32_FOLDER_LIST_H_

#include <windows.h>

#include <cstddef>
#include <optional>
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

// True for a path with a server and a share at its front: "\\server\share\menus".
bool IsOnServer(const std::wstring& path);

// A list box that shows where one is in the folders of a drive, or of a share on a
// server: the folders down to the current one, each a step further in, all of them
// open, and the folders inside the current one, closed. Folders that are hidden and
// belong to the system, as "$Recycle.Bin", are left out: nobody can open them.
class FolderList {
 public:
  // Borrows the list box, an owner-drawn one that keeps its strings: they are
  // the bare names, so that typing one finds its row. Its parent has to pass
  // WM_DRAWITEM on to Draw(). The list is empty until Start() or SetPath().
  void Attach(HWND list);
  HWND window() const { return list_; }

  // Goes to the current directory, else to the drive that Windows is on.
  void Start();

  // With drive or server, and without a trailing backslash but for a root: "C:\",
  // "C:\Windows". Empty while the list is.
  const std::wstring& Path() const { return path_; }

  // Folders on the way to this one are listed in any case.
  void AlwaysList(const std::wstring& path) { alwaysListed_ = path; }

  // Goes to a folder, or with a drive alone ("C:") to the current folder of
  // that drive. A folder that may not be listed has no rows inside. False, with
  // everything as it was, when there is no such folder, or on no drive or server.
  bool SetPath(const std::wstring& path);

  // Goes to the folder of the selected row, which reads it anew when it is the
  // current one. False as above, and when none is selected.
  bool OpenSelected();

  // To be called when the list box got another font, and when the DPI is another.
  void FitToFont();
  void SetDpi(UINT dpi) { dpi_ = dpi; }

  // Asks the shell for the icons at first, which takes a while.
  void Draw(const DRAWITEMSTRUCT& item);

 private:
  int CurrentRow() const { return static_cast<int>(ends_.size()) - 1; }
  std::wstring PathOf(int row) const;
  void Show(const std::vector<std::wstring>& names);
  bool IsLeftOut(const WIN32_FIND_DATAW& found, const std::wstring& folder) const;
  std::optional<std::vector<std::wstring>> FoldersIn(const std::wstring& folder) const;
  int IconSize() const;
  int IconLeft(int row) const;  // from the left edge of the row, in pixels
  int TextLeft(int row) const;

  HWND list_ = nullptr;
  UINT dpi_ = 0;
  std::wstring path_;
  std::wstring alwaysListed_;
  // Where in the path the folder of each row ends, down to the current one.
  std::vector<std::size_t> ends_;
  UniqueIcon openFolder_;
  UniqueIcon closedFolder_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_FOLDER_LIST_H_
