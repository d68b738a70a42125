#ifndef CORVALIS_WIN32_MOUSE_WHEEL_H_
#define CORVALIS_WIN32_MOUSE_WHEEL_H_

#include <windows.h>

namespace win32 {

// Moves a horizontal scroll bar control by one line for each whole notch that
// WM_MOUSEWHEEL, of which `wide` is the first parameter, has turned the wheel:
// right when the wheel turns towards the user. Some mice turn by parts of a
// notch, which add up. A disabled bar stays.
void TurnScrollBar(HWND bar, WPARAM wide);

// Makes the mouse wheel over a control turn the bar. The control may be the bar.
void TurnByWheelOver(HWND control, HWND bar);

}  // namespace win32

#endif  // CORVALIS_WIN32_MOUSE_WHEEL_H_
