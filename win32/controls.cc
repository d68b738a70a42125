#include "win32/controls.h"

#include <commctrl.h>

#include <iterator>
#include <string_view>

#include "win32/scale.h"

namespace win32 {

bool Kind::Is(const Kind& other) const {
  return style == other.style && std::wstring_view(windowClass) == other.windowClass;
}

namespace {

LRESULT CALLBACK UnpaintedProcedure(HWND control, UINT message, WPARAM wide, LPARAM data,
                                    UINT_PTR id, DWORD_PTR) {
  switch (message) {
    case WM_PAINT:
      ValidateRect(control, nullptr);
      return 0;
    case WM_NCDESTROY:
      RemoveWindowSubclass(control, UnpaintedProcedure, id);
      break;
    default:
      break;
  }
  return DefSubclassProc(control, message, wide, data);
}

bool IsOnlyPlace(const ControlRow& row) { return row.kind.Is(kGroupBox) && *row.text == L'\0'; }

// The order in which controls are created, 0 first.
int Turn(const ControlRow& row) {
  return row.kind.Is(kTabs) ? 3 : IsOnlyPlace(row) ? 2 : row.kind.Is(kGroupBox) ? 1 : 0;
}

RECT PlaceOf(const ControlRow& row, const Arrangement& arrangement) {
  RECT place = arrangement.layout.Rect(row.place, row.anchors, arrangement.area);
  const bool isPicture =
      row.kind.Is(kIcon) || row.kind.Is(kPictureBox) || row.kind.Is(kActivePictureBox);
  if (isPicture) {
    const SIZE icon = StandardIconSize(arrangement.dpi);
    const SIZE frame =
        FrameSize(row.kind.style | WS_CHILD, row.kind.extendedStyle, arrangement.dpi);
    place = CentredIn(place, {icon.cx + frame.cx, icon.cy + frame.cy}, row.anchors);
  }
  OffsetRect(&place, arrangement.origin.x, arrangement.origin.y);
  return place;
}

}  // namespace

void Controls::Create(HWND parent, HFONT font, const Arrangement& arrangement, unsigned pages) {
  windows_.resize(rows_.size());
  for (int turn = 0; turn <= 3; ++turn) {
    for (std::size_t number = 0; number < rows_.size(); ++number) {
      if (Turn(rows_[number]) == turn) {
        Create(number, parent, font, arrangement, pages);
      }
    }
  }
}

void Controls::Create(std::size_t number, HWND parent, HFONT font, const Arrangement& arrangement,
                      unsigned pages) {
  const ControlRow& row = rows_[number];
  const RECT place = PlaceOf(row, arrangement);
  const HWND control = CreateWindowExW(
      row.kind.extendedStyle, row.kind.windowClass, row.text,
      row.kind.style | WS_CHILD | (row.IsOn(pages) ? WS_VISIBLE : 0), place.left, place.top,
      place.right - place.left, place.bottom - place.top, parent,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(row.id)), GetModuleHandleW(nullptr), nullptr);
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  windows_[number] = control;
  if (row.kind.Is(kTabs)) {
    tabs_ = control;
  } else if (IsOnlyPlace(row)) {
    SetWindowSubclass(control, UnpaintedProcedure, 0, 0);
  }
}

HWND Controls::Find(int id) const {
  for (std::size_t number = 0; number < windows_.size(); ++number) {
    if (rows_[number].id == id) {
      return windows_[number];
    }
  }
  return nullptr;
}

const ControlRow* Controls::RowOf(HWND control) const {
  for (std::size_t number = 0; number < windows_.size(); ++number) {
    if (windows_[number] == control) {
      return &rows_[number];
    }
  }
  return nullptr;
}

void Controls::MoveTo(const Arrangement& arrangement) const {
  HDWP moves = BeginDeferWindowPos(static_cast<int>(windows_.size()));
  for (std::size_t number = 0; number < windows_.size(); ++number) {
    const RECT place = PlaceOf(rows_[number], arrangement);
    moves = DeferWindowPos(moves, windows_[number], nullptr, place.left, place.top,
                           place.right - place.left, place.bottom - place.top,
                           SWP_NOZORDER | SWP_NOACTIVATE);
  }
  EndDeferWindowPos(moves);
}

void Controls::SetFont(HFONT font) const {
  Tell(WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

void Controls::Show(unsigned pages, unsigned formerPages) const {
  for (std::size_t number = 0; number < windows_.size(); ++number) {
    const bool isShown = rows_[number].IsOn(pages);
    if (isShown != rows_[number].IsOn(formerPages)) {
      ShowWindow(windows_[number], isShown ? SW_SHOWNA : SW_HIDE);
    }
  }
}

void Controls::Tell(UINT message, WPARAM wide, LPARAM data) const {
  for (const HWND control : windows_) {
    SendMessageW(control, message, wide, data);
  }
}

void ToolTips::Create(HWND parent, const Controls& controls, std::span<const ControlText> texts) {
  window_ = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0,
                            parent, nullptr, GetModuleHandleW(nullptr), nullptr);
  for (const ControlText& text : texts) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    // No TTF_SUBCLASS: it would look at each message to the control, and a list box
    // gets one for every row.
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = parent;
    tool.uId = reinterpret_cast<UINT_PTR>(controls.Find(text.id));
    tool.lpszText = const_cast<wchar_t*>(text.text);
    SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

void ToolTips::Relay(MSG& message) const {
  SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

void ToolTips::Tell(UINT message, WPARAM wide, LPARAM data) const {
  SendMessageW(window_, message, wide, data);
}

}  // namespace win32
