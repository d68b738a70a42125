#ifndef CORVALIS_WIN32_WAIT_POINTER_H_
#define CORVALIS_WIN32_WAIT_POINTER_H_

#include <windows.h>

namespace win32 {

// Shows the wait pointer as long as the object exists: for work during which the
// program handles no messages.
class WaitPointer {
 public:
  WaitPointer()
      : former_(SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32514)))) {}  // the hourglass
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;
  ~WaitPointer() { SetCursor(former_); }

 private:
  HCURSOR former_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_WAIT_POINTER_H_
