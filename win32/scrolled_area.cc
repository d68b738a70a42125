#include "win32/scrolled_area.h"

#include <algorithm>

#include "win32/scale.h"
#include "win32/scroll_bar.h"

namespace win32 {
namespace {

bool HasBar(HWND window, DWORD style) {
  return (static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)) & style) != 0;
}

// Sets the range of a bar: `contents` pixels, of which `seen` can be seen. A bar that
// is not needed is hidden, and its position becomes 0.
void SetBar(HWND window, int bar, DWORD style, bool isNeeded, LONG contents, LONG seen) {
  if (isNeeded != HasBar(window, style)) {
    ShowScrollBar(window, bar, isNeeded);
  }
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | (isNeeded ? 0U : SIF_POS);
  info.nMax = isNeeded ? static_cast<int>(contents) - 1 : 0;
  info.nPage = isNeeded ? static_cast<UINT>(std::max<LONG>(seen, 1)) : 0;
  SetScrollInfo(window, bar, &info, isNeeded);
}

}  // namespace

SIZE ScrolledArea::Fit(SIZE contents, UINT dpi) {
  RECT client{};
  GetClientRect(window_, &client);
  const SIZE thickness{SystemMetric(SM_CXVSCROLL, dpi), SystemMetric(SM_CYHSCROLL, dpi)};
  // The size of the client area without scroll bars.
  SIZE seen{client.right + (HasBar(window_, WS_VSCROLL) ? thickness.cx : 0),
            client.bottom + (HasBar(window_, WS_HSCROLL) ? thickness.cy : 0)};
  // One bar takes room, which may make the other one necessary.
  bool across = contents.cx > seen.cx;
  const bool down = contents.cy > seen.cy - (across ? thickness.cy : 0);
  across = across || (down && contents.cx > seen.cx - thickness.cx);
  seen.cx -= down ? thickness.cx : 0;
  seen.cy -= across ? thickness.cy : 0;
  SetBar(window_, SB_HORZ, WS_HSCROLL, across, contents.cx, seen.cx);
  SetBar(window_, SB_VERT, WS_VSCROLL, down, contents.cy, seen.cy);
  return {std::max(contents.cx, seen.cx), std::max(contents.cy, seen.cy)};
}

POINT ScrolledArea::Origin() const {
  return {-GetScrollPos(window_, SB_HORZ), -GetScrollPos(window_, SB_VERT)};
}

bool ScrolledArea::MoveTo(int bar, int position) {
  const int before = GetScrollPos(window_, bar);
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_POS;
  info.nPos = position;
  SetScrollInfo(window_, bar, &info, TRUE);  // limits the position to the range
  return GetScrollPos(window_, bar) != before;
}

bool ScrolledArea::Scroll(int bar, UINT request, int position) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window_, bar, &info);
  return MoveTo(bar, RequestedPosition(info, request, position, step_));
}

bool ScrolledArea::Turn(int wheelDelta) {
  if (!HasBar(window_, WS_VSCROLL)) {
    return false;
  }
  wheelRest_ += wheelDelta;
  const int notches = wheelRest_ / WHEEL_DELTA;
  wheelRest_ -= notches * WHEEL_DELTA;
  return MoveTo(SB_VERT, GetScrollPos(window_, SB_VERT) - notches * step_);
}

bool ScrolledArea::Reveal(const RECT& place) {
  RECT client{};
  GetClientRect(window_, &client);
  // The distance to scroll so that `first` to `last` lies within 0 to `size`.
  const auto distance = [](LONG first, LONG last, LONG size) {
    return static_cast<int>(first < 0 ? first : std::min(std::max(last - size, 0L), first));
  };
  const bool across = MoveTo(
      SB_HORZ, GetScrollPos(window_, SB_HORZ) + distance(place.left, place.right, client.right));
  const bool down = MoveTo(
      SB_VERT, GetScrollPos(window_, SB_VERT) + distance(place.top, place.bottom, client.bottom));
  return across || down;
}

}  // namespace win32
