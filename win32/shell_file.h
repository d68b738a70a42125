#ifndef CORVALIS_WIN32_SHELL_FILE_H_
#define CORVALIS_WIN32_SHELL_FILE_H_

#include <windows.h>

#include <commctrl.h>

#include <string>

namespace win32 {

// The name and icon that the shell shows for a file or folder. Paths and names are in
// the system's ANSI code page, as in a menu file.
struct ShellFile {
  explicit ShellFile(const std::string& path);

  // The name that the shell shows, with or without the extension, by the user's
  // settings. Empty if the shell has none. Characters that are not in the code page
  // are replaced; ShellNameOf() avoids that.
  std::string displayName;
  // The system's image list, which is borrowed, and the 0-based index of the file's
  // icon in it. nullptr if the shell has none.
  HIMAGELIST images = nullptr;
  int imageIndex = 0;
};

// The name that the shell shows for a file or folder; empty if it has none. If the code
// page cannot hold that name, returns the last part of `path`.
std::string ShellNameOf(const std::string& path);

// The part of a path after its last backslash, trailing ones ignored: "C:" for "C:\".
std::string LastPartOf(const std::string& path);

// Tells the shell that the icon of a file has changed.
void TellShellOfChange(const std::string& path);

}  // namespace win32

#endif  // CORVALIS_WIN32_SHELL_FILE_H_
