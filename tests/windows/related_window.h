#ifndef CORVALIS_TESTS_WINDOWS_RELATED_WINDOW_H_
#define CORVALIS_TESTS_WINDOWS_RELATED_WINDOW_H_

#include <windows.h>

// GetWindow(), whose answer can be compared with the handles that other functions
// give. A handle is a number of 32 bits and carries its sign through all 64; Wine's
// GetWindow() alone leaves the sign out. That shows once a session has made so many
// windows that the highest of the 32 bits is set.
inline HWND RelatedWindow(HWND window, UINT relation) {
  return static_cast<HWND>(LongToHandle(HandleToLong(GetWindow(window, relation))));
}

#endif  // CORVALIS_TESTS_WINDOWS_RELATED_WINDOW_H_
