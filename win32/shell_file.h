#ifndef CORVALIS_WIN32_SHELL_FILE_H_
#define CORVALIS_WIN32_SHELL_FILE_H_

#include <windows.h>

#include <commctrl.h>

#include <string>

namespace win32 {

// What the shell shows for a file or folder. Paths and names are in the system's
// ANSI code page, as a menu file has them.
struct ShellFile {
  explicit ShellFile(const std::string& path);

  // The name that the shell shows, by the user's settings with or without the
  // extension. Empty when the shell gave none. What the code page does not hold is
  // replaced in it: ShellNameOf() tells.
  std::string displayName;
  // The system's image list, which is borrowed, and the index of the file's
  // icon in it. nullptr when the shell gave none.
  HIMAGELIST images = nullptr;
  int imageIndex = 0;
};

// The name that the shell shows for a file or folder; empty when it shows none.
// Where the code page does not hold it, this is the last part of `path`.
std::string ShellNameOf(const std::string& path);

// What follows the last backslash of a path, but for one at the end: "C:" of "C:\".
std::string LastPartOf(const std::string& path);

// Tells the shell that a file has another icon now.
void TellShellOfChange(const std::string& path);

}  // namespace win32

#endif  // CORVALIS_WIN32_SHELL_FILE_H_
