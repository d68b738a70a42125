#ifndef CORVALIS_WIN32_LAYOUT_H_
#define CORVALIS_WIN32_LAYOUT_H_

#include <windows.h>

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
// keeps to two opposite edges grows with the window; one that keeps to neither of
// them stays in the middle.
enum Anchor : unsigned { kLeft = 1, kTop = 2, kRight = 4, kBottom = 8 };

inline constexpr unsigned kTopLeft = kTop | kLeft;
inline constexpr unsigned kTopRight = kTop | kRight;
inline constexpr unsigned kBottomLeft = kBottom | kLeft;
inline constexpr unsigned kBottomRight = kBottom | kRight;
inline constexpr unsigned kTopAcross = kTop | kLeft | kRight;
inline constexpr unsigned kBottomAcross = kBottom | kLeft | kRight;
inline constexpr unsigned kFill = kTop | kBottom | kLeft | kRight;
inline constexpr unsigned kMiddle = 0;

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

// A place of that size in the middle of another one; at its left or right edge where it
// is anchored to one of these alone.
RECT CentredIn(const RECT& place, SIZE size, unsigned anchors);

// A window of that size in the middle of `around`, within the bounds: where it is too
// large for them it is made smaller, and its left top corner can be seen anyway.
RECT WindowPlace(SIZE size, const RECT& around, const RECT& bounds);

SIZE SizeOf(const RECT& rect);
SIZE ClientSize(HWND window);

// Moves and resizes a window, in the coordinates that its place is told in.
void SetPlace(HWND window, const RECT& place);

// Makes a closed combo box, which goes by its font alone, as high as the control
// beside it.
void MatchHeight(HWND combo, HWND beside);

}  // namespace win32

#endif  // CORVALIS_WIN32_LAYOUT_H_
