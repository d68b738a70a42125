#ifndef CORVALIS_WIN32_MOUSE_WHEEL_H_
#define CORVALIS_WIN32_MOUSE_WHEEL_H_

#include <windows.h>

namespace win32 {

// Scrolls a horizontal scroll bar control by the mouse wheel: one line for each whole
// notch, to the right if the wheel turns towards the user. Parts of a notch add up.
// `wide` is the WPARAM of WM_MOUSEWHEEL. A disabled bar does not move.
void TurnScrollBar(HWND bar, WPARAM wide);

// Makes the mouse wheel over a control scroll the bar. The control may be the bar.
void TurnByWheelOver(HWND control, HWND bar);

}  // namespace win32

#endif  // CORVALIS_WIN32_MOUSE_WHEEL_H_
