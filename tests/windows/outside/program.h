#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_PROGRAM_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_PROGRAM_H_

#include <optional>

#include "tests/windows/related_window.h"

// Uses the finished program from another process, like a user. Every function that waits
// gives up after kPatience; its result shows that.
namespace outside {
inline constexpr DWORD kPatience = 20000;  // in milliseconds

// Polls until the condition is true. Returns false if it is not true in time.
bool WaitUntil(const std::function<bool()>& condition, DWORD milliseconds = kPatience);

// The command line of a start. `name` is the program's name in it, by default its path in
// quotes. `copy` is a copy of the program to start instead.
struct CommandLine {
  std::string arguments;
  std::string name = {};
  std::string copy = {};
};

std::string EditorPath();

// A running editor. The destructor ends it.
class Program {
 public:
  // Starts the editor with `folder` as its current directory.
  Program(const CommandLine& line, const std::string& folder);
  // The same with a menu file.
  Program(const std::string& menuPath, const std::string& folder)
      : Program(CommandLine{'"' + menuPath + '"'}, folder) {}
  Program(const std::wstring& menuPath, const std::wstring& folder);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  bool Started() const { return process_.hProcess != nullptr; }

  // A visible window of the program with that class ("Form2", or "#32770" for dialogs and
  // message boxes); nullptr if there is none.
  HWND Find(const std::string& windowClass) const;
  HWND WaitFor(const std::string& windowClass) const;
  bool WaitUntilGone(const std::string& windowClass) const;

  // The first window that the program shows, a form or a dialog box; nullptr if it ends
  // without one.
  HWND WaitForFirst() const;

  // True for a dialog or message box, false for a form.
  static bool IsDialog(HWND window);

  // The exit code; nothing if the program still runs.
  std::optional<DWORD> WaitForExit(DWORD milliseconds = kPatience) const;

  // Kills the program and waits until it has ended.
  void Kill();

 private:
  PROCESS_INFORMATION process_{};
};

// These functions work with windows of other processes. Click() returns at once, so that
// the caller can handle a dialog that it opens. The others wait for the window.
void Click(HWND window, int buttonId);
bool Press(HWND window, int buttonId);
void Type(HWND window, int editId, const std::string& text);
std::string Text(HWND window);
std::string Text(HWND window, int id);
std::vector<std::string> ListRows(HWND list);
int SelectedRow(HWND list);
// Selects a row, as a click does.
void SelectRow(HWND list, int row);

// Waits until the window has handled the messages that were sent to it.
bool WaitUntilIdle(HWND window);

// Sends WM_CLOSE, as the close box does.
void CloseWindow(HWND window);

// The id of the Static control with the text of a message box.
inline constexpr int kMessageTextId = 0xFFFF;

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_PROGRAM_H_
