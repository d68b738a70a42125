#include "win32/form.h"

#include <commctrl.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "win32/message_box.h"
#include "win32/picture_box.h"
#include "win32/scroll_bar.h"
#include "win32/text.h"

namespace win32 {
namespace {

constexpr const wchar_t* kFormProperty = L"CorvalisForm";

void RegisterFormClass(const FormPlan& plan) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = DefDlgProcW;
  windowClass.cbWndExtra = DLGWINDOWEXTRA;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
  if (plan.iconId != 0) {
    windowClass.hIcon = LoadIconW(windowClass.hInstance, MAKEINTRESOURCEW(plan.iconId));
  }
  windowClass.lpszClassName = plan.windowClass;
  RegisterClassW(&windowClass);  // fails harmlessly when that was done before
}

// The template of a dialog box without controls: its header, no menu, the
// window class and the caption.
std::vector<WORD> DialogTemplate(const FormPlan& plan) {
  DLGTEMPLATE header{};
  // Without WS_CLIPCHILDREN: it would leave the inside of group boxes unpainted.
  header.style = plan.style;
  header.dwExtendedStyle = WS_EX_CONTROLPARENT;
  static_assert(sizeof header % sizeof(WORD) == 0);
  const WORD* words = reinterpret_cast<const WORD*>(&header);
  std::vector<WORD> bytes(words, words + sizeof header / sizeof(WORD));
  bytes.push_back(0);
  for (const std::wstring_view text : {plan.windowClass, plan.caption}) {
    bytes.insert(bytes.end(), text.begin(), text.end());
    bytes.push_back(0);
  }
  return bytes;
}

bool IsPictureBox(const ControlRow& row) {
  return (row.style & SS_TYPEMASK) == SS_OWNERDRAW &&
         row.windowClass == std::wstring_view(L"Static");
}

bool IsGroupBox(const ControlRow& row) {
  return (row.style & BS_TYPEMASK) == BS_GROUPBOX &&
         row.windowClass == std::wstring_view(L"Button");
}

DWORD ExtendedStyleOf(const ControlRow& row) {
  const bool isSunken = row.windowClass == std::wstring_view(L"ListBox") ||
                        row.windowClass == std::wstring_view(L"Edit") || IsPictureBox(row);
  return isSunken ? WS_EX_CLIENTEDGE : 0;
}

// How much larger a window of these styles is than its client area.
SIZE FrameSize(DWORD style, DWORD extendedStyle) {
  RECT rect{};
  AdjustWindowRectEx(&rect, style, FALSE, extendedStyle);
  return {rect.right - rect.left, rect.bottom - rect.top};
}

SIZE FrameSize(HWND window) {
  return FrameSize(static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)),
                   static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)));
}

SIZE ClientSize(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {client.right, client.bottom};
}

}  // namespace

Form::Form(const FormPlan& plan, HWND owner, unsigned pages) : plan_(plan), shownPages_(pages) {
  RegisterFormClass(plan);
  const std::vector<WORD> dialog = DialogTemplate(plan);
  window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                                       reinterpret_cast<const DLGTEMPLATE*>(dialog.data()), owner,
                                       Procedure, 0);
  if (window_ == nullptr) {
    throw std::runtime_error("The window could not be created.");
  }
  // A dialog box is resized by Windows when the DPI changes, unless told that
  // its own layout does that.
  using BehaviorFunction = BOOL WINAPI(HWND, UINT, UINT);
  if (const auto setBehavior = reinterpret_cast<BehaviorFunction*>(reinterpret_cast<void*>(
          GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetDialogDpiChangeBehavior")))) {
    constexpr UINT kDisableAll = 1;
    setBehavior(window_, kDisableAll, kDisableAll);
  }
  font_ = MessageFont(DpiOf(window_));
  SizeToPlan();
  CreateControls();
  AddToolTips();
  AddAccessibleNames();
  // From here on messages come to the form.
  SetPropW(window_, kFormProperty, this);
}

Form::~Form() { Close(); }

void Form::Close() {
  if (window_ != nullptr) {
    RemovePropW(window_, kFormProperty);
    accessibleNames_.Clear();
    DestroyWindow(std::exchange(window_, nullptr));
  }
}

Form* Form::Of(HWND window) { return static_cast<Form*>(GetPropW(window, kFormProperty)); }

RECT Form::PlaceOf(const ControlRow& row, const Layout& layout) const {
  RECT rect = layout.Rect(row.place, row.anchors, arrangedFor_);
  if (IsPictureBox(row)) {
    const SIZE frame = FrameSize(row.style | WS_CHILD, ExtendedStyleOf(row));
    const LONG width = PictureBox::Size().cx + frame.cx;
    rect.left = row.anchors & kLeft ? rect.left : rect.right - width;
    rect.right = rect.left + width;
    rect.bottom = rect.top + PictureBox::Size().cy + frame.cy;
  }
  return rect;
}

void Form::CreateControls() {
  arrangedFor_ = ClientSize(window_);
  const Layout layout(font_.get(), plan_.size);
  const auto create = [&](const ControlRow& row) {
    const RECT rect = PlaceOf(row, layout);
    const HWND control = CreateWindowExW(
        ExtendedStyleOf(row), row.windowClass, row.text,
        row.style | WS_CHILD | (IsVisible(row) ? WS_VISIBLE : 0), rect.left, rect.top,
        rect.right - rect.left, rect.bottom - rect.top, window_,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(row.id)), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
  };
  // Group boxes come last, which is behind what they frame: a drag from another
  // process finds nothing through them.
  for (const bool groupBoxes : {false, true}) {
    for (const ControlRow& row : plan_.controls) {
      if (IsGroupBox(row) == groupBoxes) {
        create(row);
      }
    }
  }
}

void Form::AddToolTips() {
  toolTips_ = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0,
                              window_, nullptr, GetModuleHandleW(nullptr), nullptr);
  for (const ControlRow& row : plan_.controls) {
    if (row.toolTip != nullptr) {
      TTTOOLINFOW tool{};
      tool.cbSize = sizeof tool;
      // Not TTF_SUBCLASS: that would look at each message to the control, and a
      // list box gets one for every row.
      tool.uFlags = TTF_IDISHWND;
      tool.hwnd = window_;
      tool.uId = reinterpret_cast<UINT_PTR>(Control(row.id));
      tool.lpszText = const_cast<wchar_t*>(row.toolTip);
      SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
  }
}

void Form::AddAccessibleNames() {
  for (const ControlRow& row : plan_.controls) {
    if (row.accessibleName != nullptr &&
        !accessibleNames_.Set(Control(row.id), row.accessibleName)) {
      return;
    }
  }
}

void Form::UseMessageFont() {
  UniqueFont font = MessageFont(DpiOf(window_));
  for (const ControlRow& row : plan_.controls) {
    SendMessageW(Control(row.id), WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
  }
  font_ = std::move(font);
  OnFontChanged();
}

void Form::SizeToPlan() {
  const SIZE client = Layout(font_.get(), plan_.size).LeastClientSize();
  const SIZE frame = FrameSize(window_);
  // In the middle of the owner, else of the work area.
  RECT around{};
  if (const HWND owner = GetWindow(window_, GW_OWNER)) {
    GetWindowRect(owner, &around);
  } else {
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
  }
  const int width = client.cx + frame.cx;
  const int height = client.cy + frame.cy;
  SetWindowPos(window_, nullptr, (around.left + around.right - width) / 2,
               (around.top + around.bottom - height) / 2, width, height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form::Arrange() {
  arrangedFor_ = ClientSize(window_);
  const Layout layout(font_.get(), plan_.size);
  HDWP moves = BeginDeferWindowPos(static_cast<int>(plan_.controls.size()));
  for (const ControlRow& row : plan_.controls) {
    const RECT rect = PlaceOf(row, layout);
    moves =
        DeferWindowPos(moves, Control(row.id), nullptr, rect.left, rect.top, rect.right - rect.left,
                       rect.bottom - rect.top, SWP_NOZORDER | SWP_NOACTIVATE);
  }
  EndDeferWindowPos(moves);
  InvalidateRect(window_, nullptr, TRUE);
  OnArranged();
}

void Form::ShowPages(unsigned pages) {
  if (pages == shownPages_) {
    return;
  }
  shownPages_ = pages;
  for (const ControlRow& row : plan_.controls) {
    ShowWindow(Control(row.id), IsVisible(row) ? SW_SHOWNA : SW_HIDE);
  }
  // A hidden control would keep the focus, and the keyboard lead nowhere.
  const HWND focus = GetFocus();
  if (focus != nullptr && IsChild(window_, focus) && !IsWindowVisible(focus)) {
    SendMessageW(window_, WM_NEXTDLGCTL, 0, FALSE);
  }
}

void Form::SetPicture(int id, HICON icon) {
  SendMessageW(Control(id), STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
}

void Form::FocusOn(int id) {
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(id)), TRUE);
}

// The dialog manager draws the button that has the focus as the default one and
// then may not know which to undo, so all of them are told.
void Form::SetDefaultButton(int id) {
  SendMessageW(window_, DM_SETDEFID, static_cast<WPARAM>(id), 0);
  for (const ControlRow& row : plan_.controls) {
    if (row.windowClass == std::wstring_view(L"Button") &&
        (row.style & BS_TYPEMASK) == BS_PUSHBUTTON) {
      SendMessageW(Control(row.id), BM_SETSTYLE, row.id == id ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON,
                   TRUE);
    }
  }
}

void Form::OnDrawItem(const DRAWITEMSTRUCT&) {}
void Form::OnActivate(bool) {}
bool Form::OnMessage(UINT, WPARAM, LPARAM, LRESULT&) { return false; }
bool Form::OnKey(const MSG&) { return false; }
void Form::OnColoursChanged() {}
void Form::OnFontChanged() {}
void Form::OnArranged() {}

// Called by Windows, which exceptions must not reach.
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
    case WM_HSCROLL:
      if (const HWND bar = reinterpret_cast<HWND>(data);
          MoveScrollBar(bar, LOWORD(wide), HIWORD(wide))) {
        OnCommand(GetDlgCtrlID(bar), kScrolled);
      }
      return TRUE;
    case kEventMessage:
      OnCommand(static_cast<int>(wide), static_cast<UINT>(data));
      return TRUE;
    case WM_DRAWITEM:
      OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(data));
      return TRUE;
    case WM_ACTIVATE:
      OnActivate(LOWORD(wide) != WA_INACTIVE);
      return FALSE;  // the dialog manager looks after the focus
    case WM_CLOSE:
      OnClose();
      return TRUE;
    case WM_SIZE:
      // It comes, too, when the window is first shown.
      if (const SIZE size = ClientSize(window_);
          size.cx != arrangedFor_.cx || size.cy != arrangedFor_.cy) {
        Arrange();
      }
      return TRUE;
    case WM_GETMINMAXINFO: {
      const SIZE client = Layout(font_.get(), plan_.size).LeastClientSize();
      const SIZE frame = FrameSize(window_);
      reinterpret_cast<MINMAXINFO*>(data)->ptMinTrackSize = {client.cx + frame.cx,
                                                             client.cy + frame.cy};
      return TRUE;
    }
    case WM_SYSCOLORCHANGE:
      // Windows tells top-level windows only; common controls keep the colours.
      for (const ControlRow& row : plan_.controls) {
        SendMessageW(Control(row.id), message, wide, data);
      }
      SendMessageW(toolTips_, message, wide, data);
      OnColoursChanged();
      return TRUE;
    case WM_SETTINGCHANGE:
      UseMessageFont();
      Arrange();
      return TRUE;
    case WM_DPICHANGED: {
      const RECT& wanted = *reinterpret_cast<const RECT*>(data);
      UseMessageFont();
      SetWindowPos(window_, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                   wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE);
      Arrange();
      return TRUE;
    }
    default:
      return FALSE;
  }
}

bool DispatchToForm(MSG& message) {
  const HWND window = GetAncestor(message.hwnd, GA_ROOT);
  Form* const form = Form::Of(window);
  if (form == nullptr) {
    return false;
  }
  if (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST) {
    SendMessageW(form->toolTips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
  }
  if (message.message == WM_KEYDOWN || message.message == WM_KEYUP || message.message == WM_CHAR) {
    try {
      if (form->OnKey(message)) {
        return true;
      }
    } catch (const std::exception& failure) {
      EndAfterFailure(window, failure);
      return true;
    }
  }
  return IsDialogMessageW(window, &message) != FALSE;
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
