#ifndef CORVALIS_WIN32_FOLDER_LIST_H_
#define CORVALIS_WIN32_FOLDER_LIST_H_

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "win32/handles.h"

namespace win32 {

// Fills a combo box with the drives of this machine ("C:", "D:"). The selected drive
// stays selected if it still exists. No drive is accessed, so that one without a disk
// causes no message.
void FillDriveList(HWND combo);

// The selected drive, such as "C:"; empty if none is selected.
std::wstring SelectedDrive(HWND combo);

// Selects the drive of `path`, without a notification. Returns false and keeps the
// selection if the path has no drive or its drive is not in the list.
bool SelectDrive(HWND combo, const std::wstring& path);

// True for a path that begins with a server and a share: "\\server\share\menus".
bool IsOnServer(const std::wstring& path);

// A list box that shows the current folder within its drive or share: first the
// folders that lead to it, with open icons, each indented further than the one
// before; then the folders inside it, with closed icons. Folders that are both hidden
// and system, such as "$Recycle.Bin", are left out, because nobody can open them.
class FolderList {
 public:
  // Borrows the list box, which has to be owner-drawn with LBS_HASSTRINGS. Its strings
  // are the bare names, so that typing one finds its row. Its parent has to pass
  // WM_DRAWITEM to Draw(). The list is empty until Start() or SetPath().
  void Attach(HWND list);
  HWND window() const { return list_; }

  // Goes to the current directory, or to the drive of Windows if that fails.
  void Start();

  // The full path of the current folder. Only a root has a trailing backslash: "C:\",
  // "C:\Windows". Empty while the list is.
  const std::wstring& Path() const { return path_; }

  // The folders that lead to this one are never left out.
  void AlwaysList(const std::wstring& path) { alwaysListed_ = path; }

  // Goes to a folder; a drive alone ("C:") means the current folder of that drive. A
  // folder that the user may not list shows no folders inside. Returns false and
  // changes nothing if there is no such folder, or if the path has no drive or server.
  bool SetPath(const std::wstring& path);

  // Goes to the folder of the selected row; the current folder is read again. Returns
  // false and changes nothing if no row is selected or its folder is gone.
  bool OpenSelected();

  // To be called after the font of the list box, or the DPI, has changed.
  void FitToFont();
  void SetDpi(UINT dpi) { dpi_ = dpi; }

  // The first call asks the shell for the folder icons, which takes a while.
  void Draw(const DRAWITEMSTRUCT& item);

 private:
  int CurrentRow() const { return static_cast<int>(ends_.size()) - 1; }
  std::wstring PathOf(int row) const;
  void Show(const std::vector<std::wstring>& names);
  bool IsLeftOut(const WIN32_FIND_DATAW& found, const std::wstring& folder) const;
  std::optional<std::vector<std::wstring>> FoldersIn(const std::wstring& folder) const;
  int IconSize() const;
  int IconLeft(int row) const;  // pixels from the left edge of the row
  int TextLeft(int row) const;

  HWND list_ = nullptr;
  UINT dpi_ = 0;
  std::wstring path_;
  std::wstring alwaysListed_;
  // For each row down to the current folder: the length of its path within path_.
  std::vector<std::size_t> ends_;
  UniqueIcon openFolder_;
  UniqueIcon closedFolder_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_FOLDER_LIST_H_
