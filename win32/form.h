#ifndef CORVALIS_WIN32_FORM_H_
#define CORVALIS_WIN32_FORM_H_

#include <windows.h>

#include <exception>

#include "win32/accessible_names.h"
#include "win32/control_event.h"
#include "win32/controls.h"
#include "win32/handles.h"
#include "win32/page_face.h"
#include "win32/plan.h"
#include "win32/scrolled_area.h"

namespace win32 {

// A top-level window made of a plan. It is a dialog box to Windows, so that
// Tab, arrow keys and default buttons work as everywhere. Controls are its
// direct children, in the message font. The window opens within the work area of
// its monitor; where the plan is larger than that, its contents scroll, and the
// keyboard brings the control that it comes to into view.
class Form {
 public:
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form();

  HWND window() const { return window_; }
  HWND Control(int id) const { return controls_.Find(id); }
  // Of the window's monitor.
  UINT dpi() const { return dpi_; }

  // Destroys the window. The object can do without it, so that a handler of
  // the window may call this.
  void Close();

  // The form whose window this is; nullptr when it is none.
  static Form* Of(HWND window);

  // Shows the controls of these pages (bits as in ControlRow) and hides the
  // others.
  void ShowPages(unsigned pages);

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
  // The controls have another font: the user chose one, or the DPI is another.
  virtual void OnFontChanged();
  // The controls have been placed and sized anew.
  virtual void OnArranged();

  // Gives a control (kIcon) its picture, which is borrowed.
  void SetPicture(int id, HICON icon);

  // Gives a control the focus, as Tab does.
  void FocusOn(int id);

  // Makes a button the one that Enter presses; none with 0.
  void SetDefaultButton(int id);

 private:
  friend bool DispatchToForm(MSG& message);

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM data);
  INT_PTR Handle(UINT message, WPARAM wide, LPARAM data);
  // The messages about size, font and DPI, and about scrolling; about colours.
  bool HandleScale(UINT message, WPARAM wide, LPARAM data, LRESULT& result);
  bool HandleScrolling(UINT message, WPARAM wide, LPARAM data);
  bool HandleColours(UINT message, WPARAM wide, LPARAM data, INT_PTR& answer);

  // The window as large as the plan, in pixels of that DPI.
  SIZE LeastSize(UINT dpi) const;
  void Open(HWND owner);
  Layout LayoutInFont() const { return Layout(font_.get(), plan_.size); }
  Arrangement Fit();
  void Arrange();
  void UseMessageFont();
  void GrowToPlan();
  void Reveal(HWND control);
  bool IsOnPage(HWND control) const;

  const FormPlan& plan_;
  HWND window_ = nullptr;
  Controls controls_;
  ToolTips toolTips_;
  AccessibleNames accessibleNames_;
  PageFace pageFace_;
  ScrolledArea scrolled_;
  UINT dpi_ = 0;
  LOGFONTW fontWanted_{};  // what font_ was made from
  UniqueFont font_;
  unsigned shownPages_;
  SIZE arrangedFor_{};  // the client area
  bool isArranging_ = false;
  bool hadFocus_ = false;
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
