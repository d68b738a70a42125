#ifndef CORVALIS_WIN32_SCALED_BITMAP_H_
#define CORVALIS_WIN32_SCALED_BITMAP_H_

#include <windows.h>

#include "win32/handles.h"

namespace win32 {

// A bitmap of the program's resources, smoothly scaled to `size` pixels, which are at
// least one each way. Where these have another shape it is not squeezed: the middle of
// it fills them, and what goes over is left out.
UniqueBitmap LoadScaledBitmap(int resourceId, SIZE size);

}  // namespace win32

#endif  // CORVALIS_WIN32_SCALED_BITMAP_H_
