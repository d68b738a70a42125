#ifndef CORVALIS_TESTS_WINDOWS_RELATED_WINDOW_H_
#define CORVALIS_TESTS_WINDOWS_RELATED_WINDOW_H_

#include <windows.h>

// Calls GetWindow() and makes its result comparable with handles of other functions. A
// handle has 32 bits, extended to 64 by its sign. Wine's GetWindow() does not extend the
// sign, which matters after so many windows that the highest of the 32 bits is set.
inline HWND RelatedWindow(HWND window, UINT relation) {
  return static_cast<HWND>(LongToHandle(HandleToLong(GetWindow(window, relation))));
}

#endif  // CORVALIS_TESTS_WINDOWS_RELATED_WINDOW_H_
