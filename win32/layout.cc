#include "win32/layout.h"

#include <algorithm>
#include <iterator>

namespace win32 {
namespace {

// A function of user32.dll that older versions of Windows do not have.
template <typename Function>
Function* User32Function(const char* name) {
  return reinterpret_cast<Function*>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

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

UINT DpiOf(HWND window) {
  using GetDpiForWindowFunction = UINT WINAPI(HWND);
  static const auto getDpiForWindow = User32Function<GetDpiForWindowFunction>("GetDpiForWindow");
  if (getDpiForWindow != nullptr) {
    if (const UINT dpi = getDpiForWindow(window); dpi != 0) {
      return dpi;
    }
  }
  return static_cast<UINT>(GetDeviceCaps(WindowDc(nullptr).get(), LOGPIXELSY));
}

UniqueFont MessageFont(UINT dpi) {
  using ParametersFunction = BOOL WINAPI(UINT, UINT, void*, UINT, UINT);
  static const auto parametersForDpi =
      User32Function<ParametersFunction>("SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (parametersForDpi == nullptr ||
      !parametersForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi)) {
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  }
  return UniqueFont(CreateFontIndirectW(&metrics.lfMessageFont));
}

Layout::Layout(HFONT font, SIZE plannedSize)
    : base_(BaseUnits(font)),
      leastSize_{HorizontalPixels(plannedSize.cx), VerticalPixels(plannedSize.cy)} {}

RECT Layout::Rect(const Place& place, unsigned anchors, SIZE clientSize) const {
  RECT rect{HorizontalPixels(place.left), VerticalPixels(place.top),
            HorizontalPixels(place.left + place.width), VerticalPixels(place.top + place.height)};
  const LONG wider = std::max<LONG>(clientSize.cx - leastSize_.cx, 0);
  const LONG higher = std::max<LONG>(clientSize.cy - leastSize_.cy, 0);
  if (anchors & kRight) {
    rect.right += wider;
    rect.left += (anchors & kLeft) ? 0 : wider;
  }
  if (anchors & kBottom) {
    rect.bottom += higher;
    rect.top += (anchors & kTop) ? 0 : higher;
  }
  return rect;
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
  // Twice: Wine adds two pixels to what it is told.
  for (int i = 0; i < 2; ++i) {
    wanted += height(beside) - height(combo);
    SendMessageW(combo, CB_SETITEMHEIGHT, kClosedBox, wanted);
  }
}

}  // namespace win32
