#ifndef CORVALIS_WIN32_PICTURE_BOX_H_
#define CORVALIS_WIN32_PICTURE_BOX_H_

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "win32/handles.h"

namespace win32 {

// An owner-drawn Static control (SS_OWNERDRAW) with a bitmap of its own. What is drawn
// into the bitmap survives repainting. The bitmap has the size of a standard icon at
// the system's DPI, which is the size that DrawIcon() draws.
class PictureBox {
 public:
  // Borrows the control. Its parent has to pass WM_DRAWITEM to Paint().
  void Attach(HWND control);
  HWND control() const { return control_; }

  // Makes Space and Enter click the box, as the mouse does, and makes it show the
  // focus. The control needs SS_NOTIFY and WS_TABSTOP.
  void TakeKeys() const;

  // Sets the system colour, such as COLOR_BACKGROUND, that the next Clear() fills the
  // box with. The first one is COLOR_BTNFACE.
  void SetBackground(int systemColour) { background_ = systemColour; }
  // Makes the next Clear() fill the box with its parent's background.
  void SetParentsBackground() { background_ = kOfParent; }
  void Clear();

  // Both draw at (0, 0) over the present picture. The handles are borrowed.
  void Draw(HICON icon);
  void Draw(HIMAGELIST images, int index);

  // Shows the bitmap on the screen.
  void Refresh() const;

  void Paint(const DRAWITEMSTRUCT& item) const;

  // The box as a Windows bitmap file: 24 bits a pixel, bottom row first.
  std::string BitmapFile() const;

  // The size of the bitmap, in pixels.
  static SIZE Size();

 private:
  struct Canvas;
  static constexpr int kOfParent = -1;  // no system colour has this number

  HWND control_ = nullptr;
  UniqueBitmap bitmap_;
  void* pixels_ = nullptr;  // owned by bitmap_
  int background_ = COLOR_BTNFACE;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_PICTURE_BOX_H_
