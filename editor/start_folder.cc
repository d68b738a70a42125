#include "editor/start_folder.h"

#include <windows.h>

#include "win32/current_folder.h"

namespace editor {
namespace {

// True for a path with a drive and a root ("C:\menus\a.menu") or with a server
// ("\\server\share\a.menu").
bool IsAbsolute(const std::wstring& path) {
  const auto isSlash = [](wchar_t c) { return c == L'\\' || c == L'/'; };
  return path.size() > 2 &&
         ((isSlash(path[0]) && isSlash(path[1])) || (path[1] == L':' && isSlash(path[2])));
}

std::wstring TemporaryFolder() {
  wchar_t folder[MAX_PATH + 1] = L"";
  GetTempPathW(MAX_PATH + 1, folder);
  return folder;
}

}  // namespace

void LeaveFolderThatTakesNoFile(const std::wstring& menuPath) {
  if (!IsAbsolute(menuPath) || win32::TakesNewFile(L"")) {
    return;
  }
  for (const std::wstring& folder : {win32::FolderOf(menuPath), TemporaryFolder()}) {
    if (win32::TakesNewFile(folder) && SetCurrentDirectoryW(folder.c_str())) {
      return;
    }
  }
}

}  // namespace editor
