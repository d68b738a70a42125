#include "win32/file_dialog.h"

#include <commdlg.h>

#include <cstddef>

#include "win32/dialog_library.h"

namespace win32 {

std::optional<std::string> ChooseFile(HWND owner, const char* title, const char* filter,
                                      const std::string& initial) {
  // Far longer than any path that the ANSI functions can open.
  char path[4096] = "";
  initial.copy(path, std::size(path) - 1);
  OPENFILENAMEA dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filter;
  dialog.lpstrFile = path;
  dialog.nMaxFile = static_cast<DWORD>(std::size(path));
  dialog.lpstrTitle = title;
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
  if (!DialogFunction<decltype(GetOpenFileNameA)>("GetOpenFileNameA")(&dialog)) {
    return std::nullopt;
  }
  return path;
}

bool FileDialogFailed() {
  return DialogFunction<decltype(CommDlgExtendedError)>("CommDlgExtendedError")() != 0;
}

}  // namespace win32
