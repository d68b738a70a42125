#include "win32/folder_list.h"
namespace win32 {
void FillDriveList(HWND) {}
std::string SelectedDrive(HWND) { return {}; }
bool SelectDrive(HWND, const std::string&) { return false; }
void FolderList::Attach(HWND list) { list_ = list; }
bool FolderList::SetPath(const std::string&) { return false; }
bool FolderList::OpenSelected() { return false; }
void FolderList::Refresh() {}
}  // namespace win32
