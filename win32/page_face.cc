#include "win32/page_face.h"

#include <commctrl.h>

namespace win32 {
namespace {

// The colour of the pixel in the middle of a tab control's page.
COLORREF PaintedColour(HWND tabs) {
  RECT client{};
  GetClientRect(tabs, &client);
  SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&client));
  const POINT middle{(client.left + client.right) / 2, (client.top + client.bottom) / 2};
  const WindowDc screen(tabs);
  const UniqueMemoryDc dc(CreateCompatibleDC(screen.get()));
  const UniqueBitmap bitmap(CreateCompatibleBitmap(screen.get(), 1, 1));
  const SelectedObject selected(dc.get(), bitmap.get());
  const RECT pixel{0, 0, 1, 1};
  FillRect(dc.get(), &pixel, GetSysColorBrush(COLOR_BTNFACE));
  SetViewportOrgEx(dc.get(), -middle.x, -middle.y, nullptr);
  SendMessageW(tabs, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc.get()),
               PRF_CLIENT | PRF_ERASEBKGND);
  SetViewportOrgEx(dc.get(), 0, 0, nullptr);
  return GetPixel(dc.get(), 0, 0);
}

}  // namespace

COLORREF PageFace::Colour() {
  Brush();
  return colour_;
}

HBRUSH PageFace::Brush() {
  if (!brush_) {
    // A themed tab control asks its parent for the background first, which calls this
    // again. It gets the window's colour.
    Use(GetSysColor(COLOR_BTNFACE));
    Use(PaintedColour(tabs_));
  }
  return brush_.get();
}

void PageFace::Use(COLORREF colour) {
  colour_ = colour;
  brush_.reset(CreateSolidBrush(colour));
}

RECT PageFace::Place() const {
  RECT place{};
  GetClientRect(tabs_, &place);
  SendMessageW(tabs_, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&place));
  MapWindowPoints(tabs_, GetParent(tabs_), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

}  // namespace win32
