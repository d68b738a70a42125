#ifndef CORVALIS_TESTS_WINDOWS_WINDOW_BYTES_H_
#define CORVALIS_TESTS_WINDOWS_WINDOW_BYTES_H_

#include <windows.h>

#include <string>

// The texts of windows in the system's ANSI code page.

inline std::string WindowBytes(HWND window) {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)), '\0');
  // GetWindowTextLengthA() may return more than the length of the text.
  text.resize(static_cast<std::size_t>(
      GetWindowTextA(window, text.data(), static_cast<int>(text.size()) + 1)));
  return text;
}

// The text of a list box row (0-based); empty if there is no such row.
inline std::string RowBytes(HWND list, int row) {
  const LRESULT length = SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0);
  std::string text(static_cast<std::size_t>(length == LB_ERR ? 0 : length), '\0');
  const LRESULT copied = SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(row),
                                      reinterpret_cast<LPARAM>(text.data()));
  text.resize(copied == LB_ERR ? 0 : static_cast<std::size_t>(copied));
  return text;
}

#endif  // CORVALIS_TESTS_WINDOWS_WINDOW_BYTES_H_
