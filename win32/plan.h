#ifndef CORVALIS_WIN32_PLAN_H_
#define CORVALIS_WIN32_PLAN_H_

#include <windows.h>

#include <commctrl.h>

#include <span>

#include "win32/layout.h"

namespace win32 {

// A kind of control: a window class of Windows with styles.
struct Kind {
  const wchar_t* windowClass = nullptr;
  DWORD style = 0;  // besides WS_CHILD
  DWORD extendedStyle = 0;

  bool Is(const Kind& other) const;
};

inline constexpr Kind kButton{L"Button", BS_PUSHBUTTON | WS_TABSTOP};
inline constexpr Kind kCheckBox{L"Button", BS_AUTOCHECKBOX | WS_TABSTOP};
// A group box paints only its frame and its caption; the window below paints the
// inside. One without a caption paints nothing: it names the shown page of a tab
// control, and its place.
inline constexpr Kind kGroupBox{L"Button", BS_GROUPBOX | WS_CLIPSIBLINGS, WS_EX_TRANSPARENT};
inline constexpr Kind kLabel{L"Static", SS_LEFT};
inline constexpr Kind kCentredLabel{L"Static", SS_CENTER};
inline constexpr Kind kLine{L"Static", SS_ETCHEDHORZ};
// SS_CENTERIMAGE keeps Windows from resizing the control to the bitmap.
inline constexpr Kind kBitmap{L"Static", SS_BITMAP | SS_CENTERIMAGE};
// The next three always have the size of a standard icon, in the middle of their place.
inline constexpr Kind kIcon{L"Static", SS_ICON | SS_CENTERIMAGE};
inline constexpr Kind kPictureBox{L"Static", SS_OWNERDRAW, WS_EX_CLIENTEDGE};
inline constexpr Kind kActivePictureBox{L"Static", SS_OWNERDRAW | SS_NOTIFY | WS_TABSTOP,
                                        WS_EX_CLIENTEDGE};
inline constexpr Kind kTextBox{L"Edit", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
inline constexpr DWORD kListStyle =
    LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_HASSTRINGS | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP;
inline constexpr Kind kList{L"ListBox", kListStyle, WS_EX_CLIENTEDGE};
inline constexpr Kind kDrawnList{L"ListBox", kListStyle | LBS_OWNERDRAWFIXED, WS_EX_CLIENTEDGE};
inline constexpr Kind kDropDown{L"ComboBox",
                                CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP};
inline constexpr Kind kScrollBar{L"ScrollBar", SBS_HORZ | WS_TABSTOP | WS_DISABLED};
// The controls of its pages are not its children, but lie above it.
inline constexpr Kind kTabs{WC_TABCONTROLW, WS_TABSTOP | WS_CLIPSIBLINGS};

// One control of a window's plan. The order of the rows is the tab order. A label names
// the control in the next row, for screen readers too.
struct ControlRow {
  int id = 0;
  Kind kind;
  const wchar_t* text = nullptr;
  Place place{};
  unsigned anchors = 0;  // Anchor flags
  unsigned pages = 0;    // the pages of the window that show it, one bit each

  bool IsOn(unsigned shownPages) const { return (pages & shownPages) != 0; }
};

// Every page of a window.
inline constexpr unsigned kEveryPage = ~0U;

// A text about a control: its tool tip, or its name for screen readers if neither its
// own text nor a label names it.
struct ControlText {
  int id;
  const wchar_t* text;
};

struct FormPlan {
  const wchar_t* windowClass;  // registered on first use
  const wchar_t* caption;
  DWORD style;
  SIZE size;           // of the client area in dialog units; a sizable window can grow
  int iconId;          // the resource id of the window's icon
  int firstFocus = 0;  // the id of the control with the first focus; 0: the first that Tab finds
  std::span<const ControlRow> controls;
  std::span<const ControlText> toolTips{};
  std::span<const ControlText> accessibleNames{};
};

}  // namespace win32

#endif  // CORVALIS_WIN32_PLAN_H_
