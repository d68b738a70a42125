#ifndef CORVALIS_WIN32_SCROLL_BAR_H_
#define CORVALIS_WIN32_SCROLL_BAR_H_

#include <windows.h>

namespace win32 {

// The position, within the range, that a request of WM_HSCROLL or WM_VSCROLL asks a
// scroll bar for; `position` is that of the thumb, and `step` what an arrow moves by.
// Any other request leaves it where it is.
int RequestedPosition(const SCROLLINFO& info, UINT request, int position, int step);

// Moves a scroll bar control as its user, or a message from elsewhere, asks by
// WM_HSCROLL. False when there is nothing new to show at its position.
bool MoveScrollBar(HWND bar, UINT request, int position);

}  // namespace win32

#endif  // CORVALIS_WIN32_SCROLL_BAR_H_
