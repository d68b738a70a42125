#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_DRAG_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_DRAG_H_

#include <windows.h>

#include <ole2.h>

#include <functional>
#include <string>

#include "tests/windows/drag_data.h"

namespace outside {

// How a drag ended.
struct DragResult {
  bool begun = false;    // the mouse button reached the source
  bool dropped = false;  // and not cancelled
  DWORD effect = DROPEFFECT_NONE;
  // When the button was let go, in microseconds of the performance counter.
  double letGo = 0;
  // The effect that the target showed while the pointer was above it.
  DWORD shownEffect = DROPEFFECT_NONE;
};

// Drags the data with the mouse from a window of this process to the middle of
// `target`, which may be of any process, and lets go. The data is released. Calls
// `letsGo` just before, on another thread.
DragResult DragTo(
    HWND target, DragData* data, const std::function<void()>& letsGo = [] {});

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_DRAG_H_
