#ifndef CORVALIS_WIN32_FORM_H_
#define CORVALIS_WIN32_FORM_H_

#include <windows.h>

#include <exception>
#include <span>

#include "win32/accessible_names.h"
#include "win32/control_event.h"
#include "win32/layout.h"

namespace win32 {

// One control of a window's plan. The order of the rows is the order in which
// Tab goes round and in which a label names the control right behind it, to screen
// readers too.
struct ControlRow {
  int id = 0;
  const wchar_t* windowClass = L"";
  const wchar_t* text = L"";
  DWORD style = 0;  // besides WS_CHILD
  Place place{};
  unsigned anchors = 0;  // Anchor flags
  unsigned pages = 0;    // which of the window's pages show it, one bit each
  const wchar_t* toolTip = nullptr;
  // For screen readers, where no label does: see AccessibleNames.
  const wchar_t* accessibleName = nullptr;
};

// Every page of a window.
inline constexpr unsigned kEveryPage = ~0U;

struct FormPlan {
  const wchar_t* windowClass;  // registered on first use
  const wchar_t* caption;
  DWORD style;
  SIZE size;   // of the client area, the least one of a sizable window, in dialog units
  int iconId;  // of the window's icon among the resources; 0 for none
  std::span<const ControlRow> controls;
};

// A top-level window made of a plan. It is a dialog box to Windows, so that
// Tab, arrow keys and default buttons work as everywhere. Controls are its
// direct children, in the message font; owner-drawn Static controls are sized
// to hold one standard icon.
class Form {
 public:
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form();

  HWND window() const { return window_; }
  HWND Control(int id) const { return GetDlgItem(window_, id); }

  // Destroys the window. The object can do without it, so that a handler of
  // the window may call this.
  void Close();

  // The form whose window this is; nullptr when it is none.
  static Form* Of(HWND window);

  // Shows the controls of these pages (bits as in ControlRow) and hides the
  // others.
  void ShowPages(unsigned pages);
  bool IsVisible(const ControlRow& row) const { return (row.pages & shownPages_) != 0; }

 protected:
  // Makes the window, hidden, with the controls of these pages shown. Throws
  // std::runtime_error when Windows does not.
  Form(const FormPlan& plan, HWND owner, unsigned pages = kEveryPage);

  // `event` is a notification code of WM_COMMAND or a ControlEvent.
  virtual void OnCommand(int id, UINT event) = 0;
  virtual void OnDrawItem(const DRAWITEMSTRUCT& item);
  virtual void OnActivate(bool active);
  // Some messages come only to some windows; true when this one was for it.
  virtual bool OnMessage(UINT message, WPARAM wide, LPARAM data, LRESULT& result);
  // The close box, or whatever else asks the window to close.
  virtual void OnClose() = 0;
  // The user pressed a key while the window was active: true when that was all.
  virtual bool OnKey(const MSG& message);
  // The user has chosen other system colours.
  virtual void OnColoursChanged();
  // The controls have been given the message font anew.
  virtual void OnFontChanged();
  // The controls have been placed and sized anew.
  virtual void OnArranged();

  // Gives a Static control (SS_ICON) its picture, which is borrowed.
  void SetPicture(int id, HICON icon);

  // Gives a control the focus, as Tab does.
  void FocusOn(int id);

  // Makes a button the one that Enter presses; none with 0.
  void SetDefaultButton(int id);

 private:
  friend bool DispatchToForm(MSG& message);

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM data);
  INT_PTR Handle(UINT message, WPARAM wide, LPARAM data);
  RECT PlaceOf(const ControlRow& row, const Layout& layout) const;
  void CreateControls();
  void AddToolTips();
  void AddAccessibleNames();
  void UseMessageFont();
  void SizeToPlan();
  void Arrange();

  const FormPlan& plan_;
  HWND window_ = nullptr;
  HWND toolTips_ = nullptr;
  AccessibleNames accessibleNames_;
  UniqueFont font_;
  unsigned shownPages_;
  SIZE arrangedFor_{};  // the client area
};

// Gives a message that was taken from the queue to the form that it is for, with
// all that a dialog box does with keys. False when it is for none: then it is to
// be dispatched as usual.
bool DispatchToForm(MSG& message);

// Runs until the program is to end, and returns its exit code.
int RunMessageLoop();

// Shows what went wrong where nothing was there to deal with it, and ends the
// message loop with a failing exit code.
void EndAfterFailure(HWND owner, const std::exception& failure);

}  // namespace win32

#endif  // CORVALIS_WIN32_FORM_H_
