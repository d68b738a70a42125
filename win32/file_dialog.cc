#include "win32/file_dialog.h"

#include <commdlg.h>

#include <iterator>

#include "win32/current_folder.h"
#include "win32/dialog_library.h"

namespace win32 {

std::optional<std::wstring> ChooseFile(HWND owner, const wchar_t* title, const wchar_t* filter,
                                       const std::wstring& initial) {
  // Far longer than any path that the shell can open.
  wchar_t path[4096] = L"";
  initial.copy(path, std::size(path) - 1);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filter;
  dialog.lpstrFile = path;
  dialog.nMaxFile = static_cast<DWORD>(std::size(path));
  dialog.lpstrTitle = title;
  dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY;
  // By its documentation, this dialog ignores OFN_NOCHANGEDIR.
  const CurrentFolderKept kept;
  if (!DialogFunction<decltype(GetOpenFileNameW)>("GetOpenFileNameW")(&dialog)) {
    return std::nullopt;
  }
  return path;
}

bool FileDialogFailed() {
  return DialogFunction<decltype(CommDlgExtendedError)>("CommDlgExtendedError")() != 0;
}

}  // namespace win32
