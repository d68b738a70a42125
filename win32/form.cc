#include "win32/form.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "win32/scale.h"

namespace win32 {
namespace {

constexpr const wchar_t* kFormProperty = L"CorvalisForm";

// The distance that one notch of the mouse wheel scrolls, in dialog units: two rows of
// buttons.
constexpr int kWheelStep = 36;

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
  RegisterClassW(&windowClass);  // a second registration fails, which does no harm
}

// The template of a dialog box without controls: its header, no menu, the
// window class and the caption.
std::vector<WORD> DialogTemplate(const FormPlan& plan) {
  DLGTEMPLATE header{};
  // WS_CLIPCHILDREN: painting the window under its controls would flicker.
  header.style = plan.style | WS_CLIPCHILDREN;
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

bool IsSizable(const FormPlan& plan) { return (plan.style & WS_THICKFRAME) != 0; }

}  // namespace

Form::Form(const FormPlan& plan, HWND owner, unsigned pages)
    : plan_(plan), controls_(plan.controls), shownPages_(pages) {
  RegisterFormClass(plan);
  const std::vector<WORD> dialog = DialogTemplate(plan);
  window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                                       reinterpret_cast<const DLGTEMPLATE*>(dialog.data()), owner,
                                       Procedure, 0);
  if (window_ == nullptr) {
    throw std::runtime_error("The window could not be created.");
  }
  // Windows resizes a dialog box when the DPI changes. This form does so itself.
  using BehaviorFunction = BOOL WINAPI(HWND, UINT, UINT);
  if (const auto setBehavior = reinterpret_cast<BehaviorFunction*>(reinterpret_cast<void*>(
          GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetDialogDpiChangeBehavior")))) {
    constexpr UINT kDisableAll = 1;
    setBehavior(window_, kDisableAll, kDisableAll);
  }
  // The window opens on its owner's monitor.
  dpi_ = DpiOf(owner != nullptr ? owner : window_);
  fontWanted_ = MessageFont(dpi_);
  font_.reset(CreateFontIndirectW(&fontWanted_));
  scrolled_.Attach(window_);
  Open(owner);
  controls_.Create(window_, font_.get(), Fit(), pages);
  pageFace_.Attach(controls_.Tabs());
  toolTips_.Create(window_, controls_, plan.toolTips);
  for (const ControlText& name : plan.accessibleNames) {
    if (!accessibleNames_.Set(Control(name.id), name.text)) {
      break;
    }
  }
  // From here on Procedure() passes messages to the form.
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

SIZE Form::LeastSize(UINT dpi) const {
  const LOGFONTW wanted = MessageFont(dpi);
  const UniqueFont font(CreateFontIndirectW(&wanted));
  const SIZE client = Layout(font.get(), plan_.size).LeastClientSize();
  const SIZE frame = FrameSize(static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)),
                               static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)), dpi);
  return {client.cx + frame.cx, client.cy + frame.cy};
}

// Centres the window on its owner, or in the work area if it has none.
void Form::Open(HWND owner) {
  RECT around = WorkAreaOf(window_);
  if (owner != nullptr) {
    GetWindowRect(owner, &around);
  }
  SetPlace(window_, WindowPlace(LeastSize(dpi_), around, WorkAreaNearest(around)));
}

Arrangement Form::Fit() {
  const Layout layout = LayoutInFont();
  scrolled_.SetStep(layout.VerticalPixels(kWheelStep));
  isArranging_ = true;
  const SIZE area = scrolled_.Fit(layout.LeastClientSize(), dpi_);
  isArranging_ = false;
  arrangedFor_ = ClientSize(window_);
  return {layout, area, scrolled_.Origin(), dpi_};
}

void Form::Arrange() {
  controls_.MoveTo(Fit());
  InvalidateRect(window_, nullptr, TRUE);
  OnArranged();
}

void Form::UseMessageFont() {
  fontWanted_ = MessageFont(dpi_);
  UniqueFont font(CreateFontIndirectW(&fontWanted_));
  controls_.SetFont(font.get());
  font_ = std::move(font);
  OnFontChanged();
}

// Grows a sizable window to the size of its plan at least. A window that is not
// sizable gets just that size.
void Form::GrowToPlan() {
  if (IsIconic(window_) || IsZoomed(window_)) {
    return;
  }
  RECT now{};
  GetWindowRect(window_, &now);
  SIZE size = LeastSize(dpi_);
  if (IsSizable(plan_)) {
    size = {std::max(size.cx, SizeOf(now).cx), std::max(size.cy, SizeOf(now).cy)};
  }
  SetPlace(window_, WindowPlace(size, now, WorkAreaNearest(now)));
}

void Form::Reveal(HWND control) {
  if (control == nullptr || GetParent(control) != window_) {
    return;
  }
  RECT place{};
  GetWindowRect(control, &place);
  MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
  if (scrolled_.Reveal(place)) {
    controls_.MoveTo(Fit());
  }
}

// True if the control lies on a page of the tab control: it is not on every page.
bool Form::IsOnPage(HWND control) const {
  const ControlRow* const row = controls_.RowOf(control);
  return controls_.Tabs() != nullptr && row != nullptr && row->pages != kEveryPage;
}

void Form::ShowPages(unsigned pages) {
  const unsigned former = std::exchange(shownPages_, pages);
  const ControlRow* const focused = controls_.RowOf(GetFocus());
  controls_.Show(pages | former, former);
  if (focused != nullptr && !focused->IsOn(pages)) {
    // The focused control is about to be hidden: move the focus, or the keyboard would
    // do nothing.
    const HWND next = controls_.Tabs();
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), next != nullptr);
  }
  controls_.Show(pages, pages | former);
}

void Form::SetPicture(int id, HICON icon) {
  SendMessageW(Control(id), STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
}

void Form::FocusOn(int id) {
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(id)), TRUE);
}

// The dialog manager draws the focused button as the default one, and later may not
// know which button to draw normally again. So every button gets its style here.
void Form::SetDefaultButton(int id) {
  SendMessageW(window_, DM_SETDEFID, static_cast<WPARAM>(id), 0);
  for (const ControlRow& row : plan_.controls) {
    if (row.kind.Is(kButton)) {
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

}  // namespace win32
