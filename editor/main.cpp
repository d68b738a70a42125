#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include <exception>

#include "editor/command_line.h"
#include "editor/form2.h"
#include "editor/start_folder.h"
#include "editor/windows_files.h"
#include "win32/text.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
  // A drive without a disk is an error to handle, not a box to click away.
  SetErrorMode(SEM_FAILCRITICALERRORS);
  OleInitialize(nullptr);
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);

  int exitCode = EXIT_FAILURE;
  try {
    const std::string menuPath = editor::MenuFilePath(editor::Arguments());
    editor::LeaveFolderThatTakesNoFile(win32::ToText(menuPath));
    editor::WindowsFileSystem files;
    editor::Form2 window(menuPath, files);
    if (window.Load()) {
      ShowWindow(window.window(), show);
      exitCode = win32::RunMessageLoop();
    } else {
      exitCode = EXIT_SUCCESS;
    }
  } catch (const std::exception& failure) {
    win32::EndAfterFailure(nullptr, failure);
  }
  OleUninitialize();
  return exitCode;
}
