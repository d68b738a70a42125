#ifndef CORVALIS_TESTS_WINDOWS_EDITOR_PROCESS_H_
#define CORVALIS_TESTS_WINDOWS_EDITOR_PROCESS_H_

#include <windows.h>

#include <string>

// The finished program, run as a process of its own. What it still does when
// this goes is ended.
class EditorProcess {
 public:
  // `arguments` stand on the command line as they are, behind the program's
  // name. `folder` is the current directory of the program. The program's name
  // is its path in double quotes, unless there is another one.
  EditorProcess(const std::string& arguments, const std::string& folder,
                const std::string& name = "");
  EditorProcess(const EditorProcess&) = delete;
  EditorProcess& operator=(const EditorProcess&) = delete;
  ~EditorProcess();

  // The window that it shows, be it a message box; nullptr when there is none
  // after half a minute, or when it has ended without one.
  HWND WaitForWindow() const;

  // Its exit code; nothing like one when it goes on for half a minute.
  static constexpr DWORD kStillRuns = STILL_ACTIVE;
  DWORD WaitForEnd() const;

  // Of its windows, which are not this process' own.
  static std::string ClassOf(HWND window);
  static std::string TextOf(HWND window);
  static std::string MessageOf(HWND messageBox);

 private:
  PROCESS_INFORMATION process_{};
};

#endif  // CORVALIS_TESTS_WINDOWS_EDITOR_PROCESS_H_
