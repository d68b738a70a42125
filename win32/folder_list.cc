#include "win32/folder_list.h"

#include <shellapi.h>

#include <algorithm>

#include "win32/scale.h"
#include "win32/window_text.h"

namespace win32 {
namespace {

bool HasDrive(const std::wstring& path) {
  const auto isLetter = [](wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
  };
  return path.size() >= 2 && isLetter(path[0]) && path[1] == L':';
}

// The length of the root of a path, "C:\" or "\\server\share\", with its last
// backslash, even if the path lacks that. 0 if the path has no root.
std::size_t RootLength(const std::wstring& path) {
  if (HasDrive(path)) {
    return 3;
  }
  if (!path.starts_with(L"\\\\") || path.starts_with(L"\\\\?") || path.starts_with(L"\\\\.")) {
    return 0;
  }
  const std::size_t share = path.find(L'\\', 2) + 1;
  if (share == 0 || share == 3 || share == path.size() || path[share] == L'\\') {
    return 0;
  }
  return std::min(path.find(L'\\', share), path.size()) + 1;
}

wchar_t UpperCase(wchar_t letter) {
  return static_cast<wchar_t>(letter >= L'a' && letter <= L'z' ? letter - L'a' + L'A' : letter);
}

// The full path, without a trailing backslash unless it is a root. Empty if Windows
// cannot read `path`.
std::wstring FullPath(const std::wstring& path) {
  std::wstring full;
  for (DWORD length = MAX_PATH; length > full.size();) {
    full.resize(length);
    length = GetFullPathNameW(path.c_str(), length, full.data(), nullptr);
    if (length <= full.size()) {
      full.resize(length);
      break;
    }
  }
  const std::size_t root = RootLength(full);
  while (full.size() > root && full.back() == L'\\') {
    full.pop_back();
  }
  if (root > 0 && full.size() == root - 1) {
    full += L'\\';
  }
  if (HasDrive(full)) {
    full[0] = UpperCase(full[0]);
  }
  return full;
}

std::wstring InFolder(const std::wstring& folder, const std::wstring& name) {
  return folder.ends_with(L'\\') ? folder + name : folder + L"\\" + name;
}

bool ComesBefore(const std::wstring& a, const std::wstring& b) {
  const int order =
      CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, a.c_str(), -1, b.c_str(), -1);
  return order == CSTR_EQUAL ? a < b : order == CSTR_LESS_THAN;
}

bool IsFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// True if `path` is `folder` or leads through it.
bool LeadsThrough(const std::wstring& path, const std::wstring& folder) {
  if (path.size() < folder.size() ||
      (path.size() > folder.size() && path[folder.size()] != L'\\')) {
    return false;
  }
  const int length = static_cast<int>(folder.size());
  return CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, path.c_str(), length, folder.c_str(),
                        length) == CSTR_EQUAL;
}

// The shell's icon for folders in general. It accesses no folder.
UniqueIcon FolderIcon(UINT openFlag) {
  SHFILEINFOW info{};
  const DWORD_PTR answer =
      SHGetFileInfoW(L"folder", FILE_ATTRIBUTE_DIRECTORY, &info, sizeof info,
                     SHGFI_USEFILEATTRIBUTES | SHGFI_ICON | SHGFI_SMALLICON | openFlag);
  return UniqueIcon(answer != 0 ? info.hIcon : nullptr);
}

}  // namespace

void FillDriveList(HWND combo) {
  const std::wstring selected = SelectedDrive(combo);
  SendMessageW(combo, CB_RESETCONTENT, 0, 0);
  const DWORD drives = GetLogicalDrives();
  for (int number = 0; number < 26; ++number) {
    if ((drives >> number & 1U) != 0) {
      const wchar_t name[] = {static_cast<wchar_t>(L'A' + number), L':', L'\0'};
      SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
    }
  }
  SelectDrive(combo, selected);
}

std::wstring SelectedDrive(HWND combo) {
  const LRESULT row = SendMessageW(combo, CB_GETCURSEL, 0, 0);
  if (row == CB_ERR) {
    return {};
  }
  wchar_t name[8] = L"";  // all rows are two characters long
  SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(name));
  return name;
}

bool SelectDrive(HWND combo, const std::wstring& path) {
  if (!HasDrive(path)) {
    return false;
  }
  const std::wstring drive = path.substr(0, 2);
  const LRESULT row = SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                   reinterpret_cast<LPARAM>(drive.c_str()));
  if (row == CB_ERR) {
    return false;
  }
  SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
  return true;
}

bool IsOnServer(const std::wstring& path) { return !HasDrive(path) && RootLength(path) > 0; }

void FolderList::Attach(HWND list) {
  list_ = list;
  dpi_ = DpiOf(list);
  FitToFont();
}

void FolderList::Start() {
  if (!SetPath(FullPath(L"."))) {
    wchar_t windows[MAX_PATH] = L"";
    GetWindowsDirectoryW(windows, MAX_PATH);
    SetPath(std::wstring(windows).substr(0, RootLength(windows)));
  }
}

bool FolderList::SetPath(const std::wstring& path) {
  if (RootLength(path) == 0) {
    return false;
  }
  std::wstring full = FullPath(path);
  // A path with a drive may still be a device: "C:\con" is the console.
  if (RootLength(full) == 0) {
    return false;
  }
  std::optional<std::vector<std::wstring>> names = FoldersIn(full);
  if (!names && path.size() == 2) {
    // The drive's current folder is gone: try its root.
    full.resize(RootLength(full));
    names = FoldersIn(full);
  }
  if (!names) {
    return false;
  }
  path_ = full;
  Show(*names);
  return true;
}

bool FolderList::IsLeftOut(const WIN32_FIND_DATAW& found, const std::wstring& folder) const {
  constexpr DWORD kOfTheSystem = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  return (found.dwFileAttributes & kOfTheSystem) == kOfTheSystem &&
         !LeadsThrough(alwaysListed_, InFolder(folder, found.cFileName));
}

// The names of the folders in a folder, sorted; nothing when there is none.
std::optional<std::vector<std::wstring>> FolderList::FoldersIn(const std::wstring& folder) const {
  WIN32_FIND_DATAW found{};
  const HANDLE handle = FindFirstFileW(InFolder(folder, L"*").c_str(), &found);
  if (handle == INVALID_HANDLE_VALUE) {
    const DWORD error = GetLastError();
    // A root, unlike other folders, may hold nothing at all; and a folder is one
    // even if it may not be listed.
    if (error == ERROR_FILE_NOT_FOUND || (error == ERROR_ACCESS_DENIED && IsFolder(folder))) {
      return std::vector<std::wstring>{};
    }
    return std::nullopt;
  }
  const UniqueSearch search(handle);
  std::vector<std::wstring> names;
  do {
    const std::wstring name = found.cFileName;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && name != L"." && name != L".." &&
        !IsLeftOut(found, folder)) {
      names.push_back(name);
    }
  } while (FindNextFileW(search.get(), &found));
  std::sort(names.begin(), names.end(), ComesBefore);
  return names;
}

bool FolderList::OpenSelected() {
  const int row = static_cast<int>(SendMessageW(list_, LB_GETCURSEL, 0, 0));
  return row >= 0 && SetPath(PathOf(row));
}

std::wstring FolderList::PathOf(int row) const {
  if (row <= CurrentRow()) {
    return path_.substr(0, ends_[static_cast<std::size_t>(row)]);
  }
  return InFolder(path_, ListText(list_, row));
}

void FolderList::Show(const std::vector<std::wstring>& names) {
  const std::size_t root = RootLength(path_);
  std::vector<std::wstring> rows{path_.substr(0, root)};
  ends_ = {root};
  for (std::size_t from = root; from < path_.size();) {
    const std::size_t end = std::min(path_.find(L'\\', from), path_.size());
    rows.push_back(path_.substr(from, end - from));
    ends_.push_back(end);
    from = end + 1;
  }
  rows.insert(rows.end(), names.begin(), names.end());

  SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list_, LB_RESETCONTENT, 0, 0);
  for (const std::wstring& row : rows) {
    SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
  }
  SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(CurrentRow()), 0);
  // Scroll so that the parent of the current folder is the first row.
  SendMessageW(list_, LB_SETTOPINDEX, static_cast<WPARAM>(std::max(CurrentRow() - 1, 0)), 0);
  SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
  FitToFont();
}

int FolderList::IconSize() const { return MulDiv(16, static_cast<int>(dpi_), 96); }

int FolderList::IconLeft(int row) const {
  const int depth = std::min(row, CurrentRow() + 1);
  return IconSize() / 8 + depth * IconSize() * 3 / 4;
}

int FolderList::TextLeft(int row) const { return IconLeft(row) + IconSize() + IconSize() / 4; }

void FolderList::FitToFont() {
  const WindowDc dc(list_);
  const SelectedObject selected(dc.get(),
                                reinterpret_cast<HGDIOBJ>(SendMessageW(list_, WM_GETFONT, 0, 0)));
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc.get(), &metrics);
  const int height = std::max<int>(metrics.tmHeight, IconSize()) + IconSize() / 8;
  SendMessageW(list_, LB_SETITEMHEIGHT, 0, height);

  // A list box scrolls sideways only as far as its horizontal extent.
  int widest = 0;
  const int count = static_cast<int>(SendMessageW(list_, LB_GETCOUNT, 0, 0));
  for (int row = 0; row < count; ++row) {
    const std::wstring name = ListText(list_, row);
    SIZE extent{};
    GetTextExtentPoint32W(dc.get(), name.c_str(), static_cast<int>(name.size()), &extent);
    widest = std::max(widest, TextLeft(row) + static_cast<int>(extent.cx) + IconSize() / 4);
  }
  SendMessageW(list_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest), 0);
  InvalidateRect(list_, nullptr, TRUE);
}

void FolderList::Draw(const DRAWITEMSTRUCT& item) {
  if (!openFolder_) {
    openFolder_ = FolderIcon(SHGFI_OPENICON);
    closedFolder_ = FolderIcon(0);
  }
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
    const std::wstring name = ListText(list_, row);
    RECT text = item.rcItem;
    text.left += TextLeft(row);
    DrawTextW(item.hDC, name.c_str(), static_cast<int>(name.size()), &text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP);
  }
  if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0) {
    DrawFocusRect(item.hDC, &item.rcItem);
  }
}

}  // namespace win32
