#ifndef CORVALIS_WIN32_CONTROL_EVENT_H_
#define CORVALIS_WIN32_CONTROL_EVENT_H_

#include <windows.h>

namespace win32 {

// Events that Windows does not report by WM_COMMAND. As notification codes they clash
// with none of Windows' own, which have 16 bits.
enum ControlEvent : UINT {
  kTabChanged = 0x10000,  // another tab of a tab control was chosen
  kScrolled,              // a scroll bar control was moved, or scrolling it has ended
  kEnterPressed,          // Enter was pressed in a list box; see ReportEnter()
  kFilesDropped,          // files were dropped on a control; see FileDrop
};

// The message that brings an event to the form. WPARAM is the control's id, LPARAM the
// ControlEvent.
inline constexpr UINT kEventMessage = WM_APP;

// Reports an event to the control's parent form: Report() before it returns,
// ReportLater() through the message queue.
void Report(HWND control, ControlEvent event);
void ReportLater(HWND control, ControlEvent event);

// Makes a list box report Enter to its parent form as kEnterPressed. Otherwise Enter
// would press the default button.
void ReportEnter(HWND list);

}  // namespace win32

#endif  // CORVALIS_WIN32_CONTROL_EVENT_H_
