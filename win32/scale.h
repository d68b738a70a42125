#ifndef CORVALIS_WIN32_SCALE_H_
#define CORVALIS_WIN32_SCALE_H_

#include <windows.h>

#include "win32/handles.h"

namespace win32 {

// What Windows has in another size at each DPI. Versions before Windows 10 know
// one DPI only, the system's; there the `dpi` that is asked for makes no difference.

// The DPI of a window's monitor.
UINT DpiOf(HWND window);

// The font of message boxes, which is the one for windows.
LOGFONTW MessageFont(UINT dpi);

// A measure of GetSystemMetrics(), in pixels.
int SystemMetric(int metric, UINT dpi);

// The size of a standard icon, in pixels.
SIZE StandardIconSize(UINT dpi);

// How much larger, in pixels, a window without scroll bars is than its client area.
SIZE FrameSize(DWORD style, DWORD extendedStyle, UINT dpi);

// The part of a window's monitor that the task bar leaves free, in screen
// coordinates. `Nearest` to a place where a window may not be yet.
RECT WorkAreaOf(HWND window);
RECT WorkAreaNearest(const RECT& place);

// An icon of the program's resources in that size. One that has no picture of
// exactly that size is scaled.
UniqueIcon LoadIconOfSize(int resourceId, SIZE size);

}  // namespace win32

#endif  // CORVALIS_WIN32_SCALE_H_
