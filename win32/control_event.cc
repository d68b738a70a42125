#include "win32/control_event.h"

#include <commctrl.h>

namespace win32 {
namespace {

LRESULT CALLBACK EnterProcedure(HWND list, UINT message, WPARAM wide, LPARAM data, UINT_PTR id,
                                DWORD_PTR) {
  if (message == WM_GETDLGCODE && wide == VK_RETURN) {
    return DLGC_WANTALLKEYS;
  }
  if (message == WM_CHAR && wide == '\r') {
    Report(list, kEnterPressed);
    return 0;
  }
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(list, EnterProcedure, id);
  }
  return DefSubclassProc(list, message, wide, data);
}

}  // namespace

void Report(HWND control, ControlEvent event) {
  SendMessageW(GetParent(control), kEventMessage, static_cast<WPARAM>(GetDlgCtrlID(control)),
               event);
}

void ReportLater(HWND control, ControlEvent event) {
  PostMessageW(GetParent(control), kEventMessage, static_cast<WPARAM>(GetDlgCtrlID(control)),
               event);
}

void ReportEnter(HWND list) { SetWindowSubclass(list, EnterProcedure, 0, 0); }

}  // namespace win32
