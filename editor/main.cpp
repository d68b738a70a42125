#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include <exception>
#include <string>

#include "editor/command_line.h"
#include "editor/form2.h"
#include "editor/start_folder.h"
#include "editor/windows_files.h"
#include "menufile/failure.h"
#include "win32/message_box.h"
#include "win32/text.h"

namespace {

// Makes Windows load libraries from the system's folder only: anybody may have put one
// into the current folder or the program's. Windows 7 has this function only with an
// update.
void LoadLibrariesFromTheSystemOnly() {
  constexpr DWORD kSystemFolder = 0x800;  // LOAD_LIBRARY_SEARCH_SYSTEM32
  using SetDirectories = BOOL WINAPI(DWORD);
  if (const auto setDirectories = reinterpret_cast<SetDirectories*>(reinterpret_cast<void*>(
          GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories")))) {
    setDirectories(kSystemFolder);
  }
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
  LoadLibrariesFromTheSystemOnly();
  // Accessing a drive without a disk shall fail, not show a message box.
  SetErrorMode(SEM_FAILCRITICALERRORS);
  OleInitialize(nullptr);
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);

  int exitCode = EXIT_FAILURE;
  const std::wstring arguments = editor::Arguments();
  try {
    const std::string menuPath = editor::MenuFilePath(arguments);
    editor::LeaveFolderThatTakesNoFile(win32::ToText(menuPath));
    editor::WindowsFileSystem files;
    editor::Form2 window(menuPath, files);
    if (window.StartUp()) {
      ShowWindow(window.window(), show);
      exitCode = win32::RunMessageLoop();
    } else {
      exitCode = EXIT_SUCCESS;
    }
  } catch (const menufile::Failure& failure) {
    win32::ShowError(nullptr, win32::ToText(failure.what()) + editor::HintAtQuotes(arguments));
  } catch (const std::exception& failure) {
    win32::EndAfterFailure(nullptr, failure);
  }
  OleUninitialize();
  return exitCode;
}
