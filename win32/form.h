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

// A top-level window made of a plan. It is a dialog box, so that Tab, arrow keys and
// default buttons work as usual. The controls are its direct children and have the
// message font. The window opens within the work area of its monitor. If the plan is
// larger than that, its contents scroll, and a control that gets the focus by the
// keyboard scrolls into view.
class Form {
 public:
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form();

  HWND window() const { return window_; }
  HWND Control(int id) const { return controls_.Find(id); }
  // The DPI of the window's monitor.
  UINT dpi() const { return dpi_; }

  // Destroys the window, but not this object: so a handler of the window may call it.
  void Close();

  // The form of this window; nullptr if the window is not a form's.
  static Form* Of(HWND window);

  // Shows the controls of these pages (bits as in ControlRow) and hides the
  // others.
  void ShowPages(unsigned pages);

 protected:
  // Makes the window, hidden, with the controls of these pages shown. `plan` has to
  // outlive the form. Throws std::runtime_error if the window cannot be made.
  Form(const FormPlan& plan, HWND owner, unsigned pages = kEveryPage);

  // `event` is a notification code of WM_COMMAND or a ControlEvent.
  virtual void OnCommand(int id, UINT event) = 0;
  virtual void OnDrawItem(const DRAWITEMSTRUCT& item);
  virtual void OnActivate(bool active);
  // Handles a message that only some forms get. Returns true if it was handled.
  virtual bool OnMessage(UINT message, WPARAM wide, LPARAM data, LRESULT& result);
  // Called for WM_CLOSE, from the close box or elsewhere.
  virtual void OnClose() = 0;
  // Called for a key message while the window is active. Returns true if the key was
  // handled.
  virtual bool OnKey(const MSG& message);
  // Called after the system colours or the theme changed.
  virtual void OnColoursChanged();
  // Called after the controls got another font: the message font or the DPI changed.
  virtual void OnFontChanged();
  // Called after the controls were moved and resized.
  virtual void OnArranged();

  // Sets the picture of a control (kIcon). The icon is borrowed.
  void SetPicture(int id, HICON icon);

  // Moves the focus to a control, as Tab does.
  void FocusOn(int id);

  // Makes a button the default one, which Enter presses. With 0 there is none.
  void SetDefaultButton(int id);

 private:
  friend bool DispatchToForm(MSG& message);

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM data);
  INT_PTR Handle(UINT message, WPARAM wide, LPARAM data);
  // Messages about size, font and DPI; about scrolling; about colours. Each returns
  // true if the message was handled.
  bool HandleScale(UINT message, WPARAM wide, LPARAM data, LRESULT& result);
  bool HandleScrolling(UINT message, WPARAM wide, LPARAM data);
  bool HandleColours(UINT message, WPARAM wide, LPARAM data, INT_PTR& answer);

  // The size of the window for the client area of the plan, in pixels at that DPI.
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
  LOGFONTW fontWanted_{};  // font_ was made from this
  UniqueFont font_;
  unsigned shownPages_;
  SIZE arrangedFor_{};  // the size of the client area at the last Fit()
  bool isArranging_ = false;
  bool hadFocus_ = false;
};

// Dispatches a message from the queue to its form, with the keyboard handling of a
// dialog box. Returns false if it is for no form: then the caller dispatches it.
bool DispatchToForm(MSG& message);

// Runs until the program is to end, and returns its exit code.
int RunMessageLoop();

// Shows an exception that no handler caught, and ends the message loop with the exit
// code EXIT_FAILURE.
void EndAfterFailure(HWND owner, const std::exception& failure);

}  // namespace win32

#endif  // CORVALIS_WIN32_FORM_H_
