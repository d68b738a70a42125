#include "win32/folder_list.h"

#include <shellapi.h>

#include <algorithm>
#include <cstring>
#include <optional>

#include "win32/layout.h"
#include "win32/window_text.h"

namespace win32 {
namespace {

constexpr std::size_t kRootLength = 3;  // "C:\"

bool HasDrive(const std::string& path) {
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  return path.size() >= 2 && isLetter(path[0]) && path[1] == ':';
}

char UpperCase(char letter) {
  return static_cast<char>(letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : letter);
}

// The second byte of a double-byte character may be that of a backslash.
bool EndsWithBackslash(const std::string& path) {
  return *CharPrevA(path.c_str(), path.c_str() + path.size()) == '\\';
}

// Empty when Windows makes nothing of the path.
std::string FullPath(const std::string& path) {
  std::string full;
  for (DWORD length = MAX_PATH; length > full.size();) {
    full.resize(length);
    length = GetFullPathNameA(path.c_str(), length, full.data(), nullptr);
    if (length <= full.size()) {
      full.resize(length);
      break;
    }
  }
  while (full.size() > kRootLength && EndsWithBackslash(full)) {
    full.pop_back();
  }
  if (HasDrive(full)) {
    full[0] = UpperCase(full[0]);
  }
  return full;
}

std::string InFolder(const std::string& folder, const std::string& name) {
  return EndsWithBackslash(folder) ? folder + name : folder + "\\" + name;
}

struct CloseSearch {
  void operator()(HANDLE search) const { FindClose(search); }
};

// The name by which a program of this code page can open the folder.
const char* OpenableName(const WIN32_FIND_DATAA& found) {
  const bool isLossy = std::strchr(found.cFileName, '?') != nullptr;
  return isLossy && found.cAlternateFileName[0] != '\0' ? found.cAlternateFileName
                                                        : found.cFileName;
}

bool ComesBefore(const std::string& a, const std::string& b) {
  const int order =
      CompareStringA(LOCALE_USER_DEFAULT, NORM_IGNORECASE, a.c_str(), -1, b.c_str(), -1);
  return order == CSTR_EQUAL ? a < b : order == CSTR_LESS_THAN;
}

// The names of the folders in a folder, sorted; nothing when it cannot be read.
std::optional<std::vector<std::string>> FoldersIn(const std::string& folder) {
  WIN32_FIND_DATAA found{};
  const HANDLE handle = FindFirstFileA(InFolder(folder, "*").c_str(), &found);
  if (handle == INVALID_HANDLE_VALUE) {
    // A root, unlike other folders, may hold nothing at all.
    if (GetLastError() == ERROR_FILE_NOT_FOUND) {
      return std::vector<std::string>{};
    }
    return std::nullopt;
  }
  const UniqueHandle<HANDLE, CloseSearch> search(handle);
  std::vector<std::string> names;
  do {
    const std::string name = OpenableName(found);
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && name != "." && name != "..") {
      names.push_back(name);
    }
  } while (FindNextFileA(search.get(), &found));
  std::sort(names.begin(), names.end(), ComesBefore);
  return names;
}

// The shell's icon for folders in general: no folder is looked at.
UniqueIcon FolderIcon(UINT openFlag) {
  SHFILEINFOA info{};
  const DWORD_PTR answer =
      SHGetFileInfoA("folder", FILE_ATTRIBUTE_DIRECTORY, &info, sizeof info,
                     SHGFI_USEFILEATTRIBUTES | SHGFI_ICON | SHGFI_SMALLICON | openFlag);
  return UniqueIcon(answer != 0 ? info.hIcon : nullptr);
}

}  // namespace

void FillDriveList(HWND combo) {
  const std::string selected = SelectedDrive(combo);
  SendMessageA(combo, CB_RESETCONTENT, 0, 0);
  const DWORD drives = GetLogicalDrives();
  for (int number = 0; number < 26; ++number) {
    if ((drives >> number & 1U) != 0) {
      const char name[] = {static_cast<char>('A' + number), ':', '\0'};
      SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
    }
  }
  SelectDrive(combo, selected);
}

std::string SelectedDrive(HWND combo) {
  const LRESULT row = SendMessageA(combo, CB_GETCURSEL, 0, 0);
  if (row == CB_ERR) {
    return {};
  }
  char name[8] = "";  // all rows are two characters long
  SendMessageA(combo, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(name));
  return name;
}

bool SelectDrive(HWND combo, const std::string& path) {
  if (!HasDrive(path)) {
    return false;
  }
  const std::string drive = path.substr(0, 2);
  const LRESULT row = SendMessageA(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                   reinterpret_cast<LPARAM>(drive.c_str()));
  if (row == CB_ERR) {
    return false;
  }
  SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
  return true;
}

void FolderList::Attach(HWND list) {
  list_ = list;
  FitToFont();
}

void FolderList::Start() {
  openFolder_ = FolderIcon(SHGFI_OPENICON);
  closedFolder_ = FolderIcon(0);
  if (!SetPath(FullPath("."))) {
    char windows[MAX_PATH] = "";
    GetWindowsDirectoryA(windows, sizeof windows);
    SetPath(std::string(windows).substr(0, kRootLength));
  }
}

bool FolderList::SetPath(const std::string& path) {
  if (!HasDrive(path)) {
    return false;
  }
  std::string full = FullPath(path);
  // Not even with a drive in front is everything a folder on it: "C:\con" is
  // the console.
  if (!HasDrive(full)) {
    return false;
  }
  std::optional<std::vector<std::string>> names = FoldersIn(full);
  if (!names && path.size() == 2) {
    // The drive's current folder is gone; the drive may still be there.
    full.resize(kRootLength);
    names = FoldersIn(full);
  }
  if (!names) {
    return false;
  }
  path_ = full;
  Show(*names);
  return true;
}

bool FolderList::OpenSelected() {
  const int row = static_cast<int>(SendMessageA(list_, LB_GETCURSEL, 0, 0));
  return row >= 0 && SetPath(PathOf(row));
}

std::string FolderList::PathOf(int row) const {
  if (row <= CurrentRow()) {
    return path_.substr(0, ends_[static_cast<std::size_t>(row)]);
  }
  return InFolder(path_, ListText(list_, row));
}

void FolderList::Show(const std::vector<std::string>& names) {
  std::vector<std::string> rows{path_.substr(0, kRootLength)};
  ends_ = {kRootLength};
  const char* const start = path_.c_str();
  for (const char* from = start + kRootLength; *from != '\0';) {
    const char* end = from;
    while (*end != '\0' && *end != '\\') {
      end = CharNextA(end);
    }
    rows.emplace_back(from, end);
    ends_.push_back(static_cast<std::size_t>(end - start));
    from = *end == '\0' ? end : end + 1;
  }
  rows.insert(rows.end(), names.begin(), names.end());

  SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
  SendMessageA(list_, LB_RESETCONTENT, 0, 0);
  for (const std::string& row : rows) {
    SendMessageA(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
  }
  SendMessageA(list_, LB_SETCURSEL, static_cast<WPARAM>(CurrentRow()), 0);
  // The current folder with its parent, and below them as much as fits.
  SendMessageA(list_, LB_SETTOPINDEX, static_cast<WPARAM>(std::max(CurrentRow() - 1, 0)), 0);
  SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
  FitToFont();
}

int FolderList::IconSize() const { return MulDiv(16, static_cast<int>(DpiOf(list_)), 96); }

int FolderList::IconLeft(int row) const {
  const int depth = std::min(row, CurrentRow() + 1);
  return IconSize() / 8 + depth * IconSize() * 3 / 4;
}

int FolderList::TextLeft(int row) const { return IconLeft(row) + IconSize() + IconSize() / 4; }

void FolderList::FitToFont() {
  const WindowDc dc(list_);
  const SelectedObject selected(dc.get(),
                                reinterpret_cast<HGDIOBJ>(SendMessageA(list_, WM_GETFONT, 0, 0)));
  TEXTMETRICA metrics{};
  GetTextMetricsA(dc.get(), &metrics);
  const int height = std::max<int>(metrics.tmHeight, IconSize()) + IconSize() / 8;
  SendMessageA(list_, LB_SETITEMHEIGHT, 0, height);

  // A list box scrolls sideways only as far as it is told.
  int widest = 0;
  const int count = static_cast<int>(SendMessageA(list_, LB_GETCOUNT, 0, 0));
  for (int row = 0; row < count; ++row) {
    const std::string name = ListText(list_, row);
    SIZE extent{};
    GetTextExtentPoint32A(dc.get(), name.c_str(), static_cast<int>(name.size()), &extent);
    widest = std::max(widest, TextLeft(row) + static_cast<int>(extent.cx) + IconSize() / 4);
  }
  SendMessageA(list_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest), 0);
  InvalidateRect(list_, nullptr, TRUE);
}

void FolderList::Draw(const DRAWITEMSTRUCT& item) const {
  const bool isSelected = (item.itemState & ODS_SELECTED) != 0;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  const int row = static_cast<int>(item.itemID);
  if (row >= 0) {
    const LONG above = (item.rcItem.bottom - item.rcItem.top - IconSize()) / 2;
    const HICON icon = (row <= CurrentRow() ? openFolder_ : closedFolder_).get();
    DrawIconEx(item.hDC, item.rcItem.left + IconLeft(row), item.rcItem.top + above, icon,
               IconSize(), IconSize(), 0, nullptr, DI_NORMAL);
    SetTextColor(item.hDC, GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkMode(item.hDC, TRANSPARENT);
    const std::string name = ListText(list_, row);
    RECT text = item.rcItem;
    text.left += TextLeft(row);
    DrawTextA(item.hDC, name.c_str(), static_cast<int>(name.size()), &text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP);
  }
  if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0) {
    DrawFocusRect(item.hDC, &item.rcItem);
  }
}

}  // namespace win32
