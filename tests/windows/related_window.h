#ifndef CORVALIS_TESTS_WINDOWS_RELATED_WINDOW_H_
#define CORVALIS_TESTS_WINDOWS_RELATED_WINDOW_H_

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

// Calls GetWindow() and makes its result comparable with handles of other functions. A
// handle has 32 bits, extended to 64 by its sign. Wine's GetWindow() does not extend the
// sign, which matters after so many windows that the highest of the 32 bits is set.
inline HWND RelatedWindow(HWND window, UINT relation) {
  return static_cast<HWND>(LongToHandle(HandleToLong(GetWindow(window, relation))));
}

// The controls of a window in z-order, the top one first, even hidden ones.
inline std::vector<HWND> ControlsOf(HWND window) {
  std::vector<HWND> controls;
  for (HWND control = RelatedWindow(window, GW_CHILD); control != nullptr;
       control = RelatedWindow(control, GW_HWNDNEXT)) {
    controls.push_back(control);
  }
  return controls;
}

inline std::string ClassOf(HWND window) {
  char name[64] = "";
  GetClassNameA(window, name, sizeof name);
  return name;
}

// The window of this thread with that class (any for nullptr) for which `isWanted` is true;
// nullptr if there is none. Other processes may have such a window, too.
inline HWND ThreadWindow(
    const char* windowClass,
    const std::function<bool(HWND)>& isWanted = [](HWND) { return true; }) {
  struct Search {
    const char* windowClass;
    const std::function<bool(HWND)>& isWanted;
    HWND found;
  } search{windowClass, isWanted, nullptr};
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM data) -> BOOL {
        Search& wanted = *reinterpret_cast<Search*>(data);
        if ((wanted.windowClass == nullptr || ClassOf(window) == wanted.windowClass) &&
            wanted.isWanted(window)) {
          wanted.found = window;
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

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

#endif  // CORVALIS_TESTS_WINDOWS_RELATED_WINDOW_H_
