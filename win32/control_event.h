#ifndef CORVALIS_WIN32_CONTROL_EVENT_H_
#define CORVALIS_WIN32_CONTROL_EVENT_H_

#include <windows.h>

namespace win32 {

// Events that Windows does not report by WM_COMMAND, as notification codes
// that it does not use (its own have 16 bits).
enum ControlEvent : UINT {
  kTabChanged = 0x10000,  // another tab of a tab control was chosen
  kScrolled,              // a scroll bar control has moved, or scrolling it has ended
  kEnterPressed,          // in a list box made to report it (ReportEnter())
  kFilesDropped,          // on a control that accepts them (FileDrop)
};

// What carries one to the form: the control's id and a ControlEvent are the
// parameters.
inline constexpr UINT kEventMessage = WM_APP;

// Tells a control's parent form of an event: at once, or when it next takes a
// message from the queue.
void Report(HWND control, ControlEvent event);
void ReportLater(HWND control, ControlEvent event);

// Makes a list box report Enter to its parent form as kEnterPressed, instead of
// leaving it to a default button.
void ReportEnter(HWND list);

}  // namespace win32

#endif  // CORVALIS_WIN32_CONTROL_EVENT_H_
