#ifndef CORVALIS_WIN32_LAYOUT_H_
#define CORVALIS_WIN32_LAYOUT_H_

#include <windows.h>

#include "win32/handles.h"

namespace win32 {

// A place in dialog units: a quarter of the font's average width across, an
// eighth of its height down. So a plan grows with the font and with the DPI.
struct Place {
  int left;
  int top;
  int width;
  int height;
};

// Which edges of the window a control keeps its distance to, as flags. One that
// keeps to two opposite edges grows with the window.
enum Anchor : unsigned { kLeft = 1, kTop = 2, kRight = 4, kBottom = 8 };

// The DPI of a window's monitor; the system's where Windows knows no other
// (before Windows 10).
UINT DpiOf(HWND window);

// The font of message boxes for that DPI, which is the one for windows.
UniqueFont MessageFont(UINT dpi);

// Turns places of a window's plan into pixels.
class Layout {
 public:
  // `plannedSize` of the client area, in dialog units, is that of the plan.
  Layout(HFONT font, SIZE plannedSize);

  // The least client area, in pixels: the planned one.
  SIZE LeastClientSize() const { return leastSize_; }

  // Where a control belongs in a client area of that many pixels.
  RECT Rect(const Place& place, unsigned anchors, SIZE clientSize) const;

  int HorizontalPixels(int units) const { return MulDiv(units, base_.cx, 4); }
  int VerticalPixels(int units) const { return MulDiv(units, base_.cy, 8); }

 private:
  SIZE base_;
  SIZE leastSize_;
};

// Makes a closed combo box, which goes by its font alone, as high as the control
// beside it.
void MatchHeight(HWND combo, HWND beside);

}  // namespace win32

#endif  // CORVALIS_WIN32_LAYOUT_H_
