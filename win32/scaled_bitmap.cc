#include "win32/scaled_bitmap.h"

#include <algorithm>

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
  SetBrushOrgEx(to.get(), 0, 0, nullptr);  // required after setting HALFTONE
  const LONG width = std::min<LONG>(info.bmWidth, MulDiv(info.bmHeight, size.cx, size.cy));
  const LONG height = std::min<LONG>(info.bmHeight, MulDiv(info.bmWidth, size.cy, size.cx));
  StretchBlt(to.get(), 0, 0, size.cx, size.cy, from.get(), (info.bmWidth - width) / 2,
             (info.bmHeight - height) / 2, width, height, SRCCOPY);
  return scaled;
}

}  // namespace win32
