#ifndef CORVALIS_WIN32_PICTURE_BOX_H_
#define CORVALIS_WIN32_PICTURE_BOX_H_

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "win32/handles.h"

namespace win32 {

// An owner-drawn Static control (SS_OWNERDRAW) that keeps what is drawn into it
// in a bitmap of its own, so that it survives repainting. The bitmap is one
// standard icon large at the system's DPI, which is the size that DrawIcon()
// draws at.
class PictureBox {
 public:
  // Borrows the control. Its parent has to pass WM_DRAWITEM on to Paint().
  void Attach(HWND control);
  HWND control() const { return control_; }

  // Makes Space and Enter click the box (SS_NOTIFY) as the mouse does; it then
  // shows when it has the focus. WS_TABSTOP brings Tab to it.
  void TakeKeys() const;

  // The system colour (COLOR_BACKGROUND, for one) that Clear() fills the box
  // with, at first that of a button's face. Setting it clears nothing.
  void SetBackground(int systemColour) { background_ = systemColour; }
  // Makes Clear() fill the box with what its parent has behind the box.
  void SetParentsBackground() { background_ = kOfParent; }
  void Clear();

  // Both draw at (0, 0) on top of what is there. Nothing is taken over.
  void Draw(HICON icon);
  void Draw(HIMAGELIST images, int index);

  // Shows on the screen what has been drawn.
  void Refresh() const;

  void Paint(const DRAWITEMSTRUCT& item) const;

  // The box as a Windows bitmap file: 24 bits a pixel, bottom row first.
  std::string BitmapFile() const;

  // Of the bitmap, in pixels.
  static SIZE Size();

 private:
  struct Canvas;
  static constexpr int kOfParent = -1;  // as a system colour, which it is not

  HWND control_ = nullptr;
  UniqueBitmap bitmap_;
  void* pixels_ = nullptr;  // of bitmap_
  int background_ = COLOR_BTNFACE;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_PICTURE_BOX_H_
