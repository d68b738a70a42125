#include "benchmarks/running_program.h"

#include <cstdlib>
#include <stdexcept>

namespace bench {
namespace {

constexpr DWORD kMostMilliseconds = 60'000;

}  // namespace

double Now() {
  LARGE_INTEGER frequency, count;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&count);
  return 1e6 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

RunningProgram::RunningProgram(const std::string& program, const std::string& menu) {
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  std::string line = '"' + program + "\" \"" + menu + '"';
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &process_)) {
    throw std::runtime_error("cannot start " + program);
  }
}

RunningProgram::~RunningProgram() {
  PostMessageA(window_, WM_CLOSE, 0, 0);
  if (WaitForSingleObject(process_.hProcess, kMostMilliseconds) != WAIT_OBJECT_0) {
    TerminateProcess(process_.hProcess, EXIT_FAILURE);
  }
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

void RunningProgram::AwaitList(LRESULT rows) {
  WaitForInputIdle(process_.hProcess, kMostMilliseconds);
  const ULONGLONG end = GetTickCount64() + kMostMilliseconds;
  while (!IsListShown(rows)) {
    if (GetTickCount64() > end) {
      throw std::runtime_error("the list was not shown within a minute");
    }
    Sleep(1);
  }
}

bool RunningProgram::IsListShown(LRESULT rows) {
  window_ = list_ = nullptr;
  EnumThreadWindows(process_.dwThreadId, FindWindowWithList, reinterpret_cast<LPARAM>(this));
  return list_ != nullptr && SendMessageA(list_, LB_GETCOUNT, 0, 0) == rows &&
         !GetUpdateRect(list_, nullptr, FALSE);
}

BOOL CALLBACK RunningProgram::FindWindowWithList(HWND window, LPARAM program) {
  auto& self = *reinterpret_cast<RunningProgram*>(program);
  if (IsWindowVisible(window)) {
    EnumChildWindows(window, FindList, program);
    self.window_ = window;
  }
  return self.list_ == nullptr;
}

BOOL CALLBACK RunningProgram::FindList(HWND control, LPARAM program) {
  char type[16] = "";
  GetClassNameA(control, type, sizeof type);
  if (IsWindowVisible(control) && lstrcmpiA(type, "ListBox") == 0) {
    reinterpret_cast<RunningProgram*>(program)->list_ = control;
    return FALSE;
  }
  return TRUE;
}

}  // namespace bench
