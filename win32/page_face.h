#ifndef CORVALIS_WIN32_PAGE_FACE_H_
#define CORVALIS_WIN32_PAGE_FACE_H_

#include <windows.h>

#include "win32/handles.h"

namespace win32 {

// The background of the pages of a tab control, for the controls on them: they are
// no children of the tab control and would show the colour of the window. It is what
// the tab control itself paints, so it is right with any theme and with none. Pages
// have had one plain colour in every theme of Windows since Vista.
class PageFace {
 public:
  // Borrows the tab control.
  void Attach(HWND tabs) { tabs_ = tabs; }

  // To be called when the theme or the system colours change.
  void Forget() { brush_.reset(); }

  COLORREF Colour();
  HBRUSH Brush();

  // Where pages are, in the client area of the tab control's parent.
  RECT Place() const;

 private:
  HWND tabs_ = nullptr;
  COLORREF colour_ = 0;
  UniqueBrush brush_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_PAGE_FACE_H_
