#ifndef CORVALIS_WIN32_SHELL_FILE_H_
#define CORVALIS_WIN32_SHELL_FILE_H_

#include <windows.h>

#include <commctrl.h>

#include <string>

namespace win32 {

// What the shell shows for a file or folder.
struct ShellFile {
  explicit ShellFile(const std::string& path);

  // The name that the shell shows, by the user's settings with or without the
  // extension, in the system's ANSI code page. Empty when the shell gave none.
  std::string displayName;
  // The system's image list, which is borrowed, and the index of the file's
  // icon in it. nullptr when the shell gave none.
  HIMAGELIST images = nullptr;
  int imageIndex = 0;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_SHELL_FILE_H_
