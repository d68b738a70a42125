#ifndef CORVALIS_TESTS_WINDOWS_MESSAGE_WATCH_H_
#define CORVALIS_TESTS_WINDOWS_MESSAGE_WATCH_H_

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <utility>

// Tells each message of a window before the window handles it, until it is destroyed.
class MessageWatch {
 public:
  using See = std::function<void(UINT message, WPARAM wide)>;

  MessageWatch(HWND window, See see) : window_(window), see_(std::move(see)) {
    SetWindowSubclass(window_, Handle, reinterpret_cast<UINT_PTR>(this), 0);
  }
  MessageWatch(const MessageWatch&) = delete;
  MessageWatch& operator=(const MessageWatch&) = delete;
  ~MessageWatch() { RemoveWindowSubclass(window_, Handle, reinterpret_cast<UINT_PTR>(this)); }

 private:
  static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM wide, LPARAM data,
                                 UINT_PTR watch, DWORD_PTR) {
    reinterpret_cast<MessageWatch*>(watch)->see_(message, wide);
    return DefSubclassProc(window, message, wide, data);
  }

  HWND window_;
  See see_;
};

#endif  // CORVALIS_TESTS_WINDOWS_MESSAGE_WATCH_H_
