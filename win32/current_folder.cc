#include "win32/current_folder.h"

#include <windows.h>

#include "win32/text.h"

namespace win32 {

std::wstring CurrentFolder() {
  std::wstring folder;
  for (DWORD length = MAX_PATH; length > folder.size();) {
    folder.resize(length);
    length = GetCurrentDirectoryW(length, folder.data());
    if (length <= folder.size()) {
      folder.resize(length);
      break;
    }
  }
  return folder;
}

bool TakesNewFile(const std::wstring& folder) {
  std::wstring path = folder;
  if (!path.empty() && path.back() != L'\\') {
    path += L'\\';
  }
  path += ToText("corvalis" + std::to_string(GetCurrentProcessId()) + "-" +
                 std::to_string(GetTickCount64()) + ".tmp");
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  CloseHandle(file);
  return true;
}

std::wstring FolderOf(const std::wstring& path) {
  return path.substr(0, path.find_last_of(L"\\/") + 1);
}

CurrentFolderKept::~CurrentFolderKept() { SetCurrentDirectoryW(folder_.c_str()); }

}  // namespace win32
