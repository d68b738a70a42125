#ifndef CORVALIS_WIN32_PLAN_H_
#define CORVALIS_WIN32_PLAN_H_

#include <windows.h>

#include <commctrl.h>

#include <span>

#include "win32/layout.h"

namespace win32 {

// A window class of Windows, and the styles that make a kind of control of it.
struct Kind {
  const wchar_t* windowClass = nullptr;
  DWORD style = 0;  // besides WS_CHILD
  DWORD extendedStyle = 0;

  bool Is(const Kind& other) const;
};

inline constexpr Kind kButton{L"Button", BS_PUSHBUTTON | WS_TABSTOP};
inline constexpr Kind kCheckBox{L"Button", BS_AUTOCHECKBOX | WS_TABSTOP};
// A group box paints no more than its frame and its caption: what shows inside of it is
// painted before it, by the window below. Without a caption it paints nothing, and
// only tells which page of a tab control is shown, and where.
inline constexpr Kind kGroupBox{L"Button", BS_GROUPBOX | WS_CLIPSIBLINGS, WS_EX_TRANSPARENT};
inline constexpr Kind kLabel{L"Static", SS_LEFT};
inline constexpr Kind kCentredLabel{L"Static", SS_CENTER};
inline constexpr Kind kLine{L"Static", SS_ETCHEDHORZ};
// Centred, a bitmap is neither stretched nor does the control shrink to it.
inline constexpr Kind kBitmap{L"Static", SS_BITMAP | SS_CENTERIMAGE};
// These two are always as large as a standard icon, in the middle of their place.
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
// It encloses its pages. Their controls are no children of it, but lie over it.
inline constexpr Kind kTabs{WC_TABCONTROLW, WS_TABSTOP | WS_CLIPSIBLINGS};

// One control of a window's plan. The order of the rows is the order in which Tab goes
// round and in which a label names the control right after it, to screen readers too.
struct ControlRow {
  int id = 0;
  Kind kind;
  const wchar_t* text = nullptr;
  Place place{};
  unsigned anchors = 0;  // Anchor flags
  unsigned pages = 0;    // which of the window's pages show it, one bit each

  bool IsOn(unsigned shownPages) const { return (pages & shownPages) != 0; }
};

// Every page of a window.
inline constexpr unsigned kEveryPage = ~0U;

// A text about a control: its tool tip, or its name for screen readers, where neither
// its own text nor a label names it.
struct ControlText {
  int id;
  const wchar_t* text;
};

struct FormPlan {
  const wchar_t* windowClass;  // registered on first use
  const wchar_t* caption;
  DWORD style;
  SIZE size;           // of the client area, the least one of a sizable window, in dialog units
  int iconId;          // of the window's icon among the resources
  int firstFocus = 0;  // the control that has the focus at first; 0 for the first in turn
  std::span<const ControlRow> controls;
  std::span<const ControlText> toolTips{};
  std::span<const ControlText> accessibleNames{};
};

}  // namespace win32

#endif  // CORVALIS_WIN32_PLAN_H_
