#ifndef CORVALIS_TESTS_WINDOWS_WINDOW_BYTES_H_
#define CORVALIS_TESTS_WINDOWS_WINDOW_BYTES_H_

#include <windows.h>

#include <string>

// The texts of windows as a program of the system's ANSI code page is given them.

inline std::string WindowBytes(HWND window) {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)), '\0');
  // The length asked for above may count more than there is.
  text.resize(static_cast<std::size_t>(
      GetWindowTextA(window, text.data(), static_cast<int>(text.size()) + 1)));
  return text;
}

// Of a list box row (0-based); empty when there is none.
inline std::string RowBytes(HWND list, int row) {
  const LRESULT length = SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0);
  std::string text(static_cast<std::size_t>(length == LB_ERR ? 0 : length), '\0');
  const LRESULT copied = SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(row),
                                      reinterpret_cast<LPARAM>(text.data()));
  text.resize(copied == LB_ERR ? 0 : static_cast<std::size_t>(copied));
  return text;
}

#endif  // CORVALIS_TESTS_WINDOWS_WINDOW_BYTES_H_
