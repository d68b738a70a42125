#include "win32/scale.h"

namespace win32 {
namespace {

// A function of user32.dll; nullptr on a version of Windows that lacks it.
template <typename Function>
Function* User32Function(const char* name) {
  return reinterpret_cast<Function*>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

RECT WorkArea(HMONITOR monitor) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (!GetMonitorInfoW(monitor, &info)) {
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &info.rcWork, 0);
  }
  return info.rcWork;
}

}  // namespace

UINT DpiOf(HWND window) {
  using Get = UINT WINAPI(HWND);
  static const auto getDpi = User32Function<Get>("GetDpiForWindow");
  if (getDpi != nullptr) {
    if (const UINT dpi = getDpi(window); dpi != 0) {
      return dpi;
    }
  }
  return static_cast<UINT>(GetDeviceCaps(WindowDc(nullptr).get(), LOGPIXELSY));
}

LOGFONTW MessageFont(UINT dpi) {
  using Get = BOOL WINAPI(UINT, UINT, void*, UINT, UINT);
  static const auto getForDpi = User32Function<Get>("SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (getForDpi == nullptr ||
      !getForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi)) {
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  }
  return metrics.lfMessageFont;
}

int SystemMetric(int metric, UINT dpi) {
  using Get = int WINAPI(int, UINT);
  static const auto getForDpi = User32Function<Get>("GetSystemMetricsForDpi");
  return getForDpi != nullptr ? getForDpi(metric, dpi) : GetSystemMetrics(metric);
}

SIZE StandardIconSize(UINT dpi) {
  return {SystemMetric(SM_CXICON, dpi), SystemMetric(SM_CYICON, dpi)};
}

SIZE FrameSize(DWORD style, DWORD extendedStyle, UINT dpi) {
  using Adjust = BOOL WINAPI(RECT*, DWORD, BOOL, DWORD, UINT);
  static const auto adjustForDpi = User32Function<Adjust>("AdjustWindowRectExForDpi");
  RECT rect{};
  if (adjustForDpi == nullptr || !adjustForDpi(&rect, style, FALSE, extendedStyle, dpi)) {
    AdjustWindowRectEx(&rect, style, FALSE, extendedStyle);
  }
  return {rect.right - rect.left, rect.bottom - rect.top};
}

RECT WorkAreaOf(HWND window) {
  return WorkArea(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST));
}

RECT WorkAreaNearest(const RECT& place) {
  return WorkArea(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST));
}

UniqueIcon LoadIconOfSize(int resourceId, SIZE size) {
  return UniqueIcon(
      static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resourceId),
                                    IMAGE_ICON, size.cx, size.cy, LR_DEFAULTCOLOR)));
}

}  // namespace win32
