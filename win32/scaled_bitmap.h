#ifndef CORVALIS_WIN32_SCALED_BITMAP_H_
#define CORVALIS_WIN32_SCALED_BITMAP_H_

#include <windows.h>

#include "win32/handles.h"

namespace win32 {

// A bitmap of the program's resources, smoothly stretched to `size` pixels.
UniqueBitmap LoadScaledBitmap(int resourceId, SIZE size);

}  // namespace win32

#endif  // CORVALIS_WIN32_SCALED_BITMAP_H_
