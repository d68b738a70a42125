#include "win32/scaled_bitmap.h"

namespace win32 {

UniqueBitmap LoadScaledBitmap(int resourceId, SIZE size) {
  const UniqueBitmap source(
      static_cast<HBITMAP>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resourceId),
                                      IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
  BITMAP info{};
  GetObjectW(source.get(), sizeof info, &info);
  const WindowDc screen(nullptr);
  UniqueBitmap scaled(CreateCompatibleBitmap(screen.get(), size.cx, size.cy));
  const UniqueMemoryDc from(CreateCompatibleDC(screen.get()));
  const UniqueMemoryDc to(CreateCompatibleDC(screen.get()));
  const SelectedObject fromBitmap(from.get(), source.get());
  const SelectedObject toBitmap(to.get(), scaled.get());
  SetStretchBltMode(to.get(), HALFTONE);
  SetBrushOrgEx(to.get(), 0, 0, nullptr);  // which HALFTONE asks for
  StretchBlt(to.get(), 0, 0, size.cx, size.cy, from.get(), 0, 0, info.bmWidth, info.bmHeight,
             SRCCOPY);
  return scaled;
}

}  // namespace win32
