#ifndef CORVALIS_BENCHMARKS_RUNNING_PROGRAM_H_
#define CORVALIS_BENCHMARKS_RUNNING_PROGRAM_H_

#include <windows.h>

#include <string>

namespace bench {

// In microseconds, from some moment on.
double Now();

// A program with a window that has a list. It ends with this object.
class RunningProgram {
 public:
  // Throws std::runtime_error when it cannot be started.
  RunningProgram(const std::string& program, const std::string& menu);
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;
  ~RunningProgram();

  // Returns once the list is on the screen with so many rows, painted.
  void AwaitList(LRESULT rows);

  HWND window() const { return window_; }
  HWND list() const { return list_; }

 private:
  bool IsListShown(LRESULT rows);
  static BOOL CALLBACK FindWindowWithList(HWND window, LPARAM program);
  static BOOL CALLBACK FindList(HWND control, LPARAM program);

  PROCESS_INFORMATION process_{};
  HWND window_ = nullptr;
  HWND list_ = nullptr;
};

}  // namespace bench

#endif  // CORVALIS_BENCHMARKS_RUNNING_PROGRAM_H_
