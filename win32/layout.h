#ifndef CORVALIS_WIN32_LAYOUT_H_
#define CORVALIS_WIN32_LAYOUT_H_

#include <windows.h>

namespace win32 {

// A place in dialog units. A horizontal unit is a quarter of the font's average
// character width, a vertical one an eighth of its height. So a plan grows with the
// font and the DPI.
struct Place {
  int left;
  int top;
  int width;
  int height;
};

// The edges of the window that a control keeps its distance to, as flags. A control
// anchored to two opposite edges grows with the window. One anchored to neither moves
// by half of the growth.
enum Anchor : unsigned { kLeft = 1, kTop = 2, kRight = 4, kBottom = 8 };

inline constexpr unsigned kTopLeft = kTop | kLeft;
inline constexpr unsigned kTopRight = kTop | kRight;
inline constexpr unsigned kBottomLeft = kBottom | kLeft;
inline constexpr unsigned kBottomRight = kBottom | kRight;
inline constexpr unsigned kTopAcross = kTop | kLeft | kRight;
inline constexpr unsigned kBottomAcross = kBottom | kLeft | kRight;
inline constexpr unsigned kFill = kTop | kBottom | kLeft | kRight;
inline constexpr unsigned kMiddle = 0;

// Converts places of a window's plan to pixels.
class Layout {
 public:
  // `plannedSize` is the size of the client area in the plan, in dialog units.
  Layout(HFONT font, SIZE plannedSize);

  // The planned size of the client area, in pixels. It is the least one.
  SIZE LeastClientSize() const { return leastSize_; }

  // The place of a control in a client area of that size, in pixels.
  RECT Rect(const Place& place, unsigned anchors, SIZE clientSize) const;

  int HorizontalPixels(int units) const { return MulDiv(units, base_.cx, 4); }
  int VerticalPixels(int units) const { return MulDiv(units, base_.cy, 8); }

 private:
  SIZE base_;
  SIZE leastSize_;
};

// A place of that size, centred in another one. If it is anchored to the left or the
// right edge alone, it keeps to that edge.
RECT CentredIn(const RECT& place, SIZE size, unsigned anchors);

// The place of a window of that size, centred on `around` and moved within `bounds`. A
// window larger than the bounds is made smaller.
RECT WindowPlace(SIZE size, const RECT& around, const RECT& bounds);

SIZE SizeOf(const RECT& rect);
SIZE ClientSize(HWND window);

// Moves and resizes a window. `place` is in screen coordinates, or in those of the
// parent for a child window.
void SetPlace(HWND window, const RECT& place);

// Makes a closed combo box as high as the control beside it. By itself, its height
// depends on its font alone.
void MatchHeight(HWND combo, HWND beside);

}  // namespace win32

#endif  // CORVALIS_WIN32_LAYOUT_H_
