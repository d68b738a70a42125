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

#endif  // CORVALIS_TESTS_WINDOWS_RELATED_WINDOW_H_
