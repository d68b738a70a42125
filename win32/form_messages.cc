#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "win32/form.h"
#include "win32/message_box.h"
#include "win32/scale.h"
#include "win32/scroll_bar.h"
#include "win32/text.h"

namespace win32 {
namespace {

// A form posts this to itself after WM_NEXTDLGCTL, to look at the focus later.
constexpr UINT kFocusMoved = WM_APP + 1;

// WM_GETDPISCALEDSIZE. The headers declare it for newer versions of Windows only.
constexpr UINT kGetDpiScaledSize = 0x02E4;

bool IsSameFont(const LOGFONTW& one, const LOGFONTW& other) {
  return one.lfHeight == other.lfHeight && one.lfWeight == other.lfWeight &&
         one.lfItalic == other.lfItalic && one.lfCharSet == other.lfCharSet &&
         std::wstring_view(one.lfFaceName) == other.lfFaceName;
}

}  // namespace

// Windows calls this, so no exception may leave it.
INT_PTR CALLBACK Form::Procedure(HWND window, UINT message, WPARAM wide, LPARAM data) {
  Form* const form = Of(window);
  if (form == nullptr) {
    return FALSE;
  }
  try {
    return form->Handle(message, wide, data);
  } catch (const std::exception& failure) {
    EndAfterFailure(window, failure);
    return TRUE;
  }
}

INT_PTR Form::Handle(UINT message, WPARAM wide, LPARAM data) {
  LRESULT result = 0;
  if (OnMessage(message, wide, data, result)) {
    if (window_ != nullptr) {
      SetWindowLongPtrW(window_, DWLP_MSGRESULT, result);
    }
    return TRUE;
  }
  if (HandleScale(message, wide, data, result)) {
    SetWindowLongPtrW(window_, DWLP_MSGRESULT, result);
    return TRUE;
  }
  if (INT_PTR answer = FALSE; HandleColours(message, wide, data, answer)) {
    return answer;
  }
  if (HandleScrolling(message, wide, data)) {
    return TRUE;
  }
  switch (message) {
    case WM_COMMAND:
      OnCommand(LOWORD(wide), HIWORD(wide));
      return TRUE;
    case WM_NOTIFY:
      if (const NMHDR& header = *reinterpret_cast<const NMHDR*>(data);
          header.code == TCN_SELCHANGE) {
        OnCommand(static_cast<int>(header.idFrom), kTabChanged);
      }
      return FALSE;
    case kEventMessage:
      OnCommand(static_cast<int>(wide), static_cast<UINT>(data));
      return TRUE;
    case WM_DRAWITEM:
      OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(data));
      return TRUE;
    case WM_SETFOCUS:
      if (plan_.firstFocus == 0 || std::exchange(hadFocus_, true)) {
        return FALSE;  // the dialog manager restores the focus
      }
      FocusOn(plan_.firstFocus);
      return TRUE;
    case WM_ACTIVATE:
      OnActivate(LOWORD(wide) != WA_INACTIVE);
      return FALSE;  // the dialog manager saves and restores the focus
    case WM_CLOSE:
      OnClose();
      return TRUE;
    default:
      return FALSE;
  }
}

bool Form::HandleScale(UINT message, WPARAM wide, LPARAM data, LRESULT& result) {
  switch (message) {
    case WM_SIZE:
      // WM_SIZE comes, too, when the window is first shown.
      if (const SIZE size = ClientSize(window_);
          !isArranging_ && wide != SIZE_MINIMIZED &&
          (size.cx != arrangedFor_.cx || size.cy != arrangedFor_.cy)) {
        Arrange();
      }
      return true;
    case WM_GETMINMAXINFO: {
      const SIZE least = LeastSize(dpi_);
      const SIZE most = SizeOf(WorkAreaOf(window_));
      reinterpret_cast<MINMAXINFO*>(data)->ptMinTrackSize = {std::min(least.cx, most.cx),
                                                             std::min(least.cy, most.cy)};
      return true;
    }
    case WM_SETTINGCHANGE:
      if (!IsSameFont(fontWanted_, MessageFont(dpi_))) {
        UseMessageFont();
        GrowToPlan();
        Arrange();
      }
      return true;
    case kGetDpiScaledSize: {
      // The plan is laid out at the new DPI. What the user has added to its size grows
      // in proportion.
      SIZE& size = *reinterpret_cast<SIZE*>(data);
      RECT now{};
      GetWindowRect(window_, &now);
      const SIZE least = LeastSize(dpi_);
      const auto dpi = static_cast<UINT>(wide);
      const auto grown = [&](LONG pixels) {
        return MulDiv(std::max<LONG>(pixels, 0), static_cast<int>(dpi), static_cast<int>(dpi_));
      };
      size = LeastSize(dpi);
      size.cx += grown(SizeOf(now).cx - least.cx);
      size.cy += grown(SizeOf(now).cy - least.cy);
      result = TRUE;
      return true;
    }
    case WM_DPICHANGED: {
      RECT wanted = *reinterpret_cast<const RECT*>(data);
      const SIZE most = SizeOf(WorkAreaNearest(wanted));
      wanted.right = std::min(wanted.right, wanted.left + most.cx);
      wanted.bottom = std::min(wanted.bottom, wanted.top + most.cy);
      dpi_ = LOWORD(wide);
      UseMessageFont();
      SetPlace(window_, wanted);
      Arrange();
      return true;
    }
    default:
      return false;
  }
}

bool Form::HandleScrolling(UINT message, WPARAM wide, LPARAM data) {
  switch (message) {
    case WM_HSCROLL:
    case WM_VSCROLL:
      if (const HWND bar = reinterpret_cast<HWND>(data); bar != nullptr) {
        if (MoveScrollBar(bar, LOWORD(wide), HIWORD(wide))) {
          OnCommand(GetDlgCtrlID(bar), kScrolled);
        }
      } else if (scrolled_.Scroll(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(wide),
                                  HIWORD(wide))) {
        controls_.MoveTo(Fit());
      }
      return true;
    case WM_MOUSEWHEEL:
      if (scrolled_.Turn(GET_WHEEL_DELTA_WPARAM(wide))) {
        controls_.MoveTo(Fit());
      }
      return true;
    case WM_NEXTDLGCTL:
      PostMessageW(window_, kFocusMoved, 0, 0);
      return false;  // the dialog manager moves the focus
    case kFocusMoved:
      Reveal(GetFocus());
      return true;
    default:
      return false;
  }
}

bool Form::HandleColours(UINT message, WPARAM wide, LPARAM data, INT_PTR& answer) {
  switch (message) {
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: {
      if (!IsOnPage(reinterpret_cast<HWND>(data))) {
        return false;
      }
      const HDC dc = reinterpret_cast<HDC>(wide);
      DefWindowProcW(window_, message, wide, data);  // sets the text colour
      SetBkColor(dc, pageFace_.Colour());
      answer = reinterpret_cast<INT_PTR>(pageFace_.Brush());
      return true;
    }
    case WM_ERASEBKGND: {
      // A themed control asks its parent to paint the background that shows through.
      const HDC dc = reinterpret_cast<HDC>(wide);
      RECT client{};
      GetClientRect(window_, &client);
      FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
      if (controls_.Tabs() != nullptr) {
        const RECT page = pageFace_.Place();
        FillRect(dc, &page, pageFace_.Brush());
      }
      SetWindowLongPtrW(window_, DWLP_MSGRESULT, TRUE);
      answer = TRUE;
      return true;
    }
    case WM_SYSCOLORCHANGE:
      // Windows sends this to top-level windows only, and common controls store the
      // colours.
      controls_.Tell(message, wide, data);
      toolTips_.Tell(message, wide, data);
      [[fallthrough]];
    case WM_THEMECHANGED:
      pageFace_.Forget();
      OnColoursChanged();
      RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
      answer = TRUE;
      return true;
    default:
      return false;
  }
}

bool DispatchToForm(MSG& message) {
  const HWND window = GetAncestor(message.hwnd, GA_ROOT);
  Form* const form = Form::Of(window);
  if (form == nullptr) {
    return false;
  }
  if (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST) {
    form->toolTips_.Relay(message);
  }
  const bool isKey = message.message == WM_KEYDOWN || message.message == WM_KEYUP ||
                     message.message == WM_CHAR || message.message == WM_SYSCHAR;
  if (isKey) {
    try {
      if (form->OnKey(message)) {
        return true;
      }
    } catch (const std::exception& failure) {
      EndAfterFailure(window, failure);
      return true;
    }
  }
  const HWND focus = GetFocus();
  const bool isDone = IsDialogMessageW(window, &message) != FALSE;
  // The key may have closed the window.
  if (isKey && GetFocus() != focus && Form::Of(window) == form) {
    form->Reveal(GetFocus());
  }
  return isDone;
}

int RunMessageLoop() {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (!DispatchToForm(message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  return static_cast<int>(message.wParam);
}

void EndAfterFailure(HWND owner, const std::exception& failure) {
  const auto* text = dynamic_cast<const TextFailure*>(&failure);
  ShowError(owner, text != nullptr ? text->text() : ToText(failure.what()));
  PostQuitMessage(EXIT_FAILURE);
}

}  // namespace win32
