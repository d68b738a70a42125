#ifndef CORVALIS_WIN32_PAGE_FACE_H_
#define CORVALIS_WIN32_PAGE_FACE_H_

#include <windows.h>

#include "win32/handles.h"

namespace win32 {

// The background of the pages of a tab control. The controls on a page need it,
// because they are not children of the tab control and would show the colour of the
// window. It is the colour that the tab control paints, so it suits every theme.
// Since Vista, a page has one plain colour in each theme.
class PageFace {
 public:
  // Borrows the tab control.
  void Attach(HWND tabs) { tabs_ = tabs; }

  // To be called after the theme or the system colours have changed.
  void Forget() { brush_.reset(); }

  COLORREF Colour();
  HBRUSH Brush();

  // The place of the pages, in the client area of the tab control's parent.
  RECT Place() const;

 private:
  void Use(COLORREF colour);

  HWND tabs_ = nullptr;
  COLORREF colour_ = 0;
  UniqueBrush brush_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_PAGE_FACE_H_
