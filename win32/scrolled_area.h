#ifndef CORVALIS_WIN32_SCROLLED_AREA_H_
#define CORVALIS_WIN32_SCROLLED_AREA_H_

#include <windows.h>

namespace win32 {

// Scrolls the contents of a window with the window's own scroll bars, if they are
// larger than the window. All measures are in pixels.
class ScrolledArea {
 public:
  // Borrows the window.
  void Attach(HWND window) { window_ = window; }
  // Sets the distance that one notch of the wheel, or an arrow of a bar, scrolls.
  // Sets the distance that one notch of the wheel, or an arrow of a bar, scrolls.
  // Sets the distance that one notch of the wheel, or an arrow of a bar, scrolls.
  void SetStep(int step) { step_ = step; }

  // Shows the scroll bars that contents of that size need in the present window, and
  // hides the others. Returns the area that the contents fill: the client area, or the
  // size of the contents if that is larger. Windows may send WM_SIZE meanwhile, which
  // the caller has to ignore.
  SIZE Fit(SIZE contents, UINT dpi);

  // The top left corner of the contents in the client area; never to the right of
  // (0, 0) or below it.
  POINT Origin() const;

  // To be called for WM_HSCROLL (with SB_HORZ) and WM_VSCROLL (with SB_VERT) of the
  // window's own bars, and for WM_MOUSEWHEEL. Returns true if the origin has moved.
  bool Scroll(int bar, UINT request, int position);
  bool Turn(int wheelDelta);

  // Scrolls a place in the client area into view. If it is too large, its top left
  // corner can be seen. Returns true if the origin has moved.
  bool Reveal(const RECT& place);

 private:
  bool MoveTo(int bar, int position);

  HWND window_ = nullptr;
  int step_ = 1;
  int wheelRest_ = 0;  // the part of a notch left over, in WHEEL_DELTA units
};

}  // namespace win32

#endif  // CORVALIS_WIN32_SCROLLED_AREA_H_
