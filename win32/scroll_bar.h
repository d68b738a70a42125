#ifndef CORVALIS_WIN32_SCROLL_BAR_H_
#define CORVALIS_WIN32_SCROLL_BAR_H_

#include <windows.h>

namespace win32 {

// The new position of a scroll bar after a request of WM_HSCROLL or WM_VSCROLL, within
// its range. `position` is that of the thumb; `step` is the distance that an arrow
// moves. Other requests do not change the position.
int RequestedPosition(const SCROLLINFO& info, UINT request, int position, int step);

// Moves a scroll bar control after WM_HSCROLL. Returns true if its position changed or
// scrolling has ended.
bool MoveScrollBar(HWND bar, UINT request, int position);

}  // namespace win32

#endif  // CORVALIS_WIN32_SCROLL_BAR_H_
