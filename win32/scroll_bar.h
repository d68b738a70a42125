#ifndef CORVALIS_WIN32_SCROLL_BAR_H_
#define CORVALIS_WIN32_SCROLL_BAR_H_

#include <windows.h>

namespace win32 {

// Moves a scroll bar control as its user, or a message from elsewhere, asks by
// WM_HSCROLL. False when there is nothing new to show at its position.
bool MoveScrollBar(HWND bar, UINT request, int position);

}  // namespace win32

#endif  // CORVALIS_WIN32_SCROLL_BAR_H_
