#ifndef CORVALIS_WIN32_SCALE_H_
#define CORVALIS_WIN32_SCALE_H_

#include <windows.h>

#include "win32/handles.h"

namespace win32 {

// Sizes and fonts of Windows that depend on the DPI. Versions before Windows 10 know
// only the system's DPI; there the parameter `dpi` makes no difference.

// The DPI of a window's monitor.
UINT DpiOf(HWND window);

// The font of message boxes, which this program uses for its windows, too.
LOGFONTW MessageFont(UINT dpi);

// A value of GetSystemMetrics(), in pixels.
int SystemMetric(int metric, UINT dpi);

// The size of a standard icon, in pixels.
SIZE StandardIconSize(UINT dpi);

// The difference in size, in pixels, between a window without scroll bars and its
// client area.
SIZE FrameSize(DWORD style, DWORD extendedStyle, UINT dpi);

// The work area of a monitor, in screen coordinates: the monitor of a window, or the
// one nearest to a place.
RECT WorkAreaOf(HWND window);
RECT WorkAreaNearest(const RECT& place);

// An icon from the program's resources in that size, in pixels. Windows scales one
// that has no picture of exactly that size.
UniqueIcon LoadIconOfSize(int resourceId, SIZE size);

}  // namespace win32

#endif  // CORVALIS_WIN32_SCALE_H_
