#ifndef CORVALIS_WIN32_SCROLLED_AREA_H_
#define CORVALIS_WIN32_SCROLLED_AREA_H_

#include <windows.h>

namespace win32 {

// Scrolls the contents of a window that may be smaller than they are, with the
// window's own scroll bars. All measures are in pixels.
class ScrolledArea {
 public:
  // Borrows the window. A turn of the wheel by one notch scrolls by `step`.
  void Attach(HWND window) { window_ = window; }
  void SetStep(int step) { step_ = step; }

  // Shows the scroll bars that contents of that size need in the window as large as
  // it is now, and hides the others. Returns the area that the contents are to fill:
  // the client area, or what they need where that is more. Windows may resize the
  // client area meanwhile, with a WM_SIZE that is to be ignored.
  SIZE Fit(SIZE contents, UINT dpi);

  // Where the left top corner of the contents is in the client area: (0, 0), or to
  // the left of it and above.
  POINT Origin() const;

  // WM_HSCROLL (SB_HORZ) or WM_VSCROLL (SB_VERT) of the window's own bars, and
  // WM_MOUSEWHEEL. Return true if the origin has moved.
  bool Scroll(int bar, UINT request, int position);
  bool Turn(int wheelDelta);

  // Scrolls so that a place in the client area can be seen, its left top corner first
  // where it is too large. Returns true if the origin has moved.
  bool Reveal(const RECT& place);

 private:
  bool MoveTo(int bar, int position);

  HWND window_ = nullptr;
  int step_ = 1;
  int wheelRest_ = 0;  // of turns by less than a notch
};

}  // namespace win32

#endif  // CORVALIS_WIN32_SCROLLED_AREA_H_
