#ifndef CORVALIS_WIN32_SCALED_BITMAP_H_
#define CORVALIS_WIN32_SCALED_BITMAP_H_

#include <windows.h>

#include "win32/handles.h"

namespace win32 {

// A bitmap from the program's resources, smoothly scaled to `size`, which is in pixels
// and at least 1 by 1. The proportions stay: if they differ from those of `size`, the
// middle of the bitmap fills it and the rest is cut off.
UniqueBitmap LoadScaledBitmap(int resourceId, SIZE size);

}  // namespace win32

#endif  // CORVALIS_WIN32_SCALED_BITMAP_H_
