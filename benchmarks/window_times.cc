// Times programs with a list as a user waits for them, and prints the least
// time of each in microseconds:
//
//   window_times start RUNS MENUFILE ROWS PROGRAM...
//     from the start of each program until its list is shown with its rows;
//     the programs take turns
//   window_times edits RUNS MENUFILE ROWS EDITOR
//     a press of each of the editor's buttons that change the list, in the
//     middle of it, and a rewrite of the file without a window
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "editor/windows_files.h"
#include "menufile/rewrite.h"
#include "resources/resource.h"

namespace {

constexpr DWORD kMostMilliseconds = 60'000;

double Now() {
  LARGE_INTEGER frequency, count;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&count);
  return 1e6 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// A program with a window that has a list. It ends with this object.
class RunningProgram {
 public:
  RunningProgram(const std::string& program, const std::string& menu) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    std::string line = '"' + program + "\" \"" + menu + '"';
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process_)) {
      throw std::runtime_error("cannot start " + program);
    }
  }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;
  ~RunningProgram() {
    PostMessageA(window_, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(process_.hProcess, kMostMilliseconds) != WAIT_OBJECT_0) {
      TerminateProcess(process_.hProcess, EXIT_FAILURE);
    }
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }

  // Returns once the list is on the screen with so many rows, painted.
  void AwaitList(LRESULT rows) {
    WaitForInputIdle(process_.hProcess, kMostMilliseconds);
    const ULONGLONG end = GetTickCount64() + kMostMilliseconds;
    while (!IsListShown(rows)) {
      if (GetTickCount64() > end) {
        throw std::runtime_error("the list was not shown within a minute");
      }
      Sleep(1);
    }
  }

  HWND window() const { return window_; }
  HWND list() const { return list_; }

 private:
  bool IsListShown(LRESULT rows) {
    window_ = list_ = nullptr;
    EnumThreadWindows(process_.dwThreadId, FindWindowWithList, reinterpret_cast<LPARAM>(this));
    return list_ != nullptr && SendMessageA(list_, LB_GETCOUNT, 0, 0) == rows &&
           !GetUpdateRect(list_, nullptr, FALSE);
  }

  static BOOL CALLBACK FindWindowWithList(HWND window, LPARAM parameter) {
    auto& self = *reinterpret_cast<RunningProgram*>(parameter);
    if (IsWindowVisible(window)) {
      EnumChildWindows(window, FindList, parameter);
      self.window_ = window;
    }
    return self.list_ == nullptr;
  }

  static BOOL CALLBACK FindList(HWND control, LPARAM parameter) {
    char type[16] = "";
    GetClassNameA(control, type, sizeof type);
    if (IsWindowVisible(control) && lstrcmpiA(type, "ListBox") == 0) {
      reinterpret_cast<RunningProgram*>(parameter)->list_ = control;
      return FALSE;
    }
    return TRUE;
  }

  PROCESS_INFORMATION process_{};
  HWND window_ = nullptr;
  HWND list_ = nullptr;
};

void Print(const char* name, double microseconds) {
  std::cout << name << ' ' << microseconds << '\n';
}

void MeasureStart(int runs, const std::string& menu, LRESULT rows, char** programs, int count) {
  std::vector<double> times(static_cast<std::size_t>(count), std::numeric_limits<double>::max());
  for (int run = 0; run < runs; ++run) {
    for (std::size_t i = 0; i < times.size(); ++i) {
      const double start = Now();
      RunningProgram program(programs[i], menu);
      program.AwaitList(rows);
      times[i] = std::min(times[i], Now() - start);
    }
  }
  for (std::size_t i = 0; i < times.size(); ++i) {
    Print(programs[i], times[i]);
  }
}

// A move in the middle of the menu: the entry at `row` changes places with the
// one above.
double TimeOfRewrite(const std::string& menu, std::size_t row) {
  editor::WindowsFileSystem files;
  menufile::MenuChange change;
  change.type = menufile::MenuType::UserDefined;
  change.recordRule = [row](std::size_t counter, const menufile::MenuItemRecord& record,
                            menufile::RecordStream& records) {
    if (counter + 1 == row) {
      records.Write(records.ReadNext());
    }
    records.Write(record);
  };
  const double start = Now();
  if (menufile::RewriteMenuFile(files, menu, change) != menufile::RewriteResult::Done) {
    throw std::runtime_error("the menu was not rewritten");
  }
  return Now() - start;
}

struct Button {
  const char* name;
  int id;
  int rowsMore;       // after a press
  int selectionMove;  // from where it was; 0 where nothing stays selected
};
// Separator and Delete take turns, so that the list stays as long as it is.
constexpr Button kButtons[] = {
    {"move_up", IDC_FORM2_COMMAND4, 0, -1},
    {"move_down", IDC_FORM2_COMMAND8, 0, 1},
    {"separator", IDC_FORM2_COMMAND9, 1, 0},
    {"delete", IDC_FORM2_COMMAND7, -1, 0},
};

void MeasureEdits(int runs, const std::string& menu, LRESULT rows, const std::string& editor) {
  RunningProgram program(editor, menu);
  program.AwaitList(rows);
  const LRESULT row = rows / 2;
  std::vector<double> clicks(std::size(kButtons), std::numeric_limits<double>::max());
  double rewrite = std::numeric_limits<double>::max();
  for (int run = 0; run < runs; ++run) {
    for (std::size_t i = 0; i < clicks.size(); ++i) {
      SendMessageA(program.list(), LB_SETCURSEL, static_cast<WPARAM>(row), 0);
      const double start = Now();
      SendMessageA(GetDlgItem(program.window(), kButtons[i].id), BM_CLICK, 0, 0);
      clicks[i] = std::min(clicks[i], Now() - start);
      rows += kButtons[i].rowsMore;
      const int move = kButtons[i].selectionMove;
      const LRESULT selected = SendMessageA(program.list(), LB_GETCURSEL, 0, 0);
      if (SendMessageA(program.list(), LB_GETCOUNT, 0, 0) != rows ||
          selected != (move == 0 ? LB_ERR : row + move)) {
        throw std::runtime_error(std::string(kButtons[i].name) + " did not change the list");
      }
    }
    rewrite = std::min(rewrite, TimeOfRewrite(menu, static_cast<std::size_t>(row)));
  }
  for (std::size_t i = 0; i < clicks.size(); ++i) {
    Print(kButtons[i].name, clicks[i]);
  }
  Print("rewrite", rewrite);
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 6) {
    std::cerr << "usage: window_times start|edits RUNS MENUFILE ROWS PROGRAM...\n";
    return 2;
  }
  const std::string what = arguments[1];
  const int runs = std::atoi(arguments[2]);
  const std::string menu = arguments[3];
  const LRESULT rows = std::atoi(arguments[4]);
  try {
    if (what == "start") {
      MeasureStart(runs, menu, rows, arguments + 5, count - 5);
    } else {
      MeasureEdits(runs, menu, rows, arguments[5]);
    }
  } catch (const std::exception& failure) {
    std::cerr << "window_times: " << failure.what() << '\n';
    return EXIT_FAILURE;
  }
}
