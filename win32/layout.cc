#include "win32/layout.h"

#include <algorithm>
#include <iterator>

#include "win32/handles.h"

namespace win32 {
namespace {

// The average width and the height of the font's characters, as the dialog
// manager measures them.
SIZE BaseUnits(HFONT font) {
  static constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  constexpr int kCount = static_cast<int>(std::size(kLetters)) - 1;
  const WindowDc dc(nullptr);
  const SelectedObject selected(dc.get(), font);
  SIZE extent{};
  GetTextExtentPoint32W(dc.get(), kLetters, kCount, &extent);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc.get(), &metrics);
  return {(extent.cx / (kCount / 2) + 1) / 2, metrics.tmHeight};
}

}  // namespace

Layout::Layout(HFONT font, SIZE plannedSize)
    : base_(BaseUnits(font)),
      leastSize_{HorizontalPixels(plannedSize.cx), VerticalPixels(plannedSize.cy)} {}

RECT Layout::Rect(const Place& place, unsigned anchors, SIZE clientSize) const {
  RECT rect{HorizontalPixels(place.left), VerticalPixels(place.top),
            HorizontalPixels(place.left + place.width), VerticalPixels(place.top + place.height)};
  const auto move = [](LONG& first, LONG& last, LONG growth, bool toFirst, bool toLast) {
    first += toFirst ? 0 : toLast ? growth : growth / 2;
    last += toLast ? growth : toFirst ? 0 : growth / 2;
  };
  move(rect.left, rect.right, std::max<LONG>(clientSize.cx - leastSize_.cx, 0),
       (anchors & kLeft) != 0, (anchors & kRight) != 0);
  move(rect.top, rect.bottom, std::max<LONG>(clientSize.cy - leastSize_.cy, 0),
       (anchors & kTop) != 0, (anchors & kBottom) != 0);
  return rect;
}

RECT CentredIn(const RECT& place, SIZE size, unsigned anchors) {
  const LONG spareWidth = place.right - place.left - size.cx;
  const LONG spareHeight = place.bottom - place.top - size.cy;
  const bool toLeft = (anchors & kLeft) != 0;
  const bool toRight = (anchors & kRight) != 0;
  const LONG left = place.left + (toLeft == toRight ? spareWidth / 2 : toLeft ? 0 : spareWidth);
  const LONG top = place.top + spareHeight / 2;
  return {left, top, left + size.cx, top + size.cy};
}

RECT WindowPlace(SIZE size, const RECT& around, const RECT& bounds) {
  const auto place = [](LONG length, LONG first, LONG last, LONG least, LONG most, LONG& from,
                        LONG& to) {
    length = std::min(length, most - least);
    from = std::clamp((first + last - length) / 2, least, most - length);
    to = from + length;
  };
  RECT rect{};
  place(size.cx, around.left, around.right, bounds.left, bounds.right, rect.left, rect.right);
  place(size.cy, around.top, around.bottom, bounds.top, bounds.bottom, rect.top, rect.bottom);
  return rect;
}

SIZE SizeOf(const RECT& rect) { return {rect.right - rect.left, rect.bottom - rect.top}; }

SIZE ClientSize(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return SizeOf(client);
}

void SetPlace(HWND window, const RECT& place) {
  SetWindowPos(window, nullptr, place.left, place.top, SizeOf(place).cx, SizeOf(place).cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void MatchHeight(HWND combo, HWND beside) {
  const auto height = [](HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect.bottom - rect.top;
  };
  if (combo == nullptr || beside == nullptr) {
    return;
  }
  constexpr auto kClosedBox = static_cast<WPARAM>(-1);
  LRESULT wanted = SendMessageW(combo, CB_GETITEMHEIGHT, kClosedBox, 0);
  // Twice, because Wine adds two pixels to the height that it is given.
  for (int i = 0; i < 2; ++i) {
    wanted += height(beside) - height(combo);
    SendMessageW(combo, CB_SETITEMHEIGHT, kClosedBox, wanted);
  }
}

}  // namespace win32
