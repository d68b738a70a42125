#ifndef CORVALIS_BENCHMARKS_RUNNING_PROGRAM_H_
#define CORVALIS_BENCHMARKS_RUNNING_PROGRAM_H_

#include <windows.h>

#include <string>

namespace bench {

// The time in microseconds since an arbitrary moment.
double Now();

// A running program whose window has a list. The destructor ends it.
class RunningProgram {
 public:
  // Throws std::runtime_error if it cannot be started.
  RunningProgram(const std::string& program, const std::string& menu);
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;
  ~RunningProgram();

  // Returns after the list has painted that many rows.
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
