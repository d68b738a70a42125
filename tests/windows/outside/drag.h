#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_DRAG_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_DRAG_H_

#include <functional>

#include "tests/windows/drag_data.h"

namespace outside {

struct DragResult {
  bool begun = false;    // true if the mouse button reached the source
  bool dropped = false;  // true if the drag was not cancelled
  DWORD effect = DROPEFFECT_NONE;
  // The time at which the button was released, in microseconds of the performance counter.
  double letGo = 0;
  // The effect that the target showed while the pointer was above it.
  DWORD shownEffect = DROPEFFECT_NONE;
};

// Drags the data with the mouse from a window of this process to the middle of `target`,
// a window of any process, and drops it. Releases the data. Calls `letsGo` right before the
// drop, on another thread.
DragResult DragTo(
    HWND target, DragData* data, const std::function<void()>& letsGo = [] {});

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_DRAG_H_
