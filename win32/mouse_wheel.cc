#include "win32/mouse_wheel.h"

#include <commctrl.h>

#include <cstdint>
#include <cstdlib>

namespace win32 {
namespace {

// The window property that holds the part of a notch left over, in WHEEL_DELTA units.
constexpr const wchar_t* kRest = L"CorvalisWheelRest";

LRESULT CALLBACK WheelProcedure(HWND control, UINT message, WPARAM wide, LPARAM data, UINT_PTR id,
                                DWORD_PTR bar) {
  if (message == WM_MOUSEWHEEL) {
    TurnScrollBar(reinterpret_cast<HWND>(bar), wide);
    return 0;
  }
  if (message == WM_NCDESTROY) {
    RemovePropW(control, kRest);
    RemoveWindowSubclass(control, WheelProcedure, id);
  }
  return DefSubclassProc(control, message, wide, data);
}

}  // namespace

void TurnScrollBar(HWND bar, WPARAM wide) {
  if (!IsWindowEnabled(bar)) {
    return;
  }
  const auto rest = static_cast<int>(reinterpret_cast<std::intptr_t>(GetPropW(bar, kRest)));
  const int turned = rest + GET_WHEEL_DELTA_WPARAM(wide);
  SetPropW(bar, kRest, reinterpret_cast<HANDLE>(std::intptr_t{turned % WHEEL_DELTA}));
  const int notches = turned / WHEEL_DELTA;
  const WPARAM request = notches < 0 ? SB_LINERIGHT : SB_LINELEFT;
  for (int notch = 0; notch < std::abs(notches); ++notch) {
    SendMessageW(GetParent(bar), WM_HSCROLL, request, reinterpret_cast<LPARAM>(bar));
  }
}

void TurnByWheelOver(HWND control, HWND bar) {
  constexpr UINT_PTR kId = 1;  // other subclass procedures of this program have 0
  SetWindowSubclass(control, WheelProcedure, kId, reinterpret_cast<DWORD_PTR>(bar));
}

}  // namespace win32
