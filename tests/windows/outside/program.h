#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_PROGRAM_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_PROGRAM_H_

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

// The finished program, used from another process as its user does. All that
// waits gives up in the end: what is waited for is then missing in the result.
namespace outside {

inline constexpr DWORD kPatience = 20000;  // in milliseconds

// Polls until the condition holds; false when it does not in time.
bool WaitUntil(const std::function<bool()>& condition, DWORD milliseconds = kPatience);

// What a start of the editor is asked for, as it stands: `name` is what the
// command line calls the program, its path in quotes if nothing else; `copy` is a
// copy of it to start instead, if it is given.
struct CommandLine {
  std::string arguments;
  std::string name = {};
  std::string copy = {};
};

// The finished program, as the build made it.
std::string EditorPath();

// A running editor. It is ended with this object, if not before.
class Program {
 public:
  // Starts it with `folder` as its current directory.
  Program(const CommandLine& line, const std::string& folder);
  // The same on a menu file.
  Program(const std::string& menuPath, const std::string& folder)
      : Program(CommandLine{'"' + menuPath + '"'}, folder) {}
  Program(const std::wstring& menuPath, const std::wstring& folder);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  bool Started() const { return process_.hProcess != nullptr; }

  // A visible window of the program of that class ("Form2", or "#32770" for
  // dialogs and message boxes); nullptr when there is none.
  HWND Find(const std::string& windowClass) const;
  HWND WaitFor(const std::string& windowClass) const;
  bool WaitUntilGone(const std::string& windowClass) const;

  // The first that it shows, its window or a dialog box; nullptr when it ends
  // without a word.
  HWND WaitForFirst() const;
  // Whether the window is a dialog box, and not one of the program's own.
  static bool IsDialog(HWND window);

  // Nothing when it goes on running.
  std::optional<DWORD> WaitForExit(DWORD milliseconds = kPatience) const;
  // Ends it at once, whatever it is doing, and waits until it is gone.
  void Kill();

 private:
  PROCESS_INFORMATION process_{};
};

std::string ClassOf(HWND window);

// Works on windows of other processes. Click() returns at once, so that what it
// opens can be dealt with; the others return when the window has done it.
void Click(HWND window, int buttonId);
bool Press(HWND window, int buttonId);
void Type(HWND window, int editId, const std::string& text);
std::string Text(HWND window);
std::string Text(HWND window, int id);
std::vector<std::string> ListRows(HWND list);
int SelectedRow(HWND list);
// As by a click on the row.
void SelectRow(HWND list, int row);
// Waits until the window has done what was asked of it before.
bool WaitUntilIdle(HWND window);
// Asks the window to close, as its close box does.
void CloseWindow(HWND window);

// The id that message boxes give the Static control with their text.
inline constexpr int kMessageTextId = 0xFFFF;

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_PROGRAM_H_
