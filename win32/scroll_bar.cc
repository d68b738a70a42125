#include "win32/scroll_bar.h"

#include <algorithm>

namespace win32 {

int RequestedPosition(const SCROLLINFO& info, UINT request, int position, int step) {
  const int page = std::max(static_cast<int>(info.nPage), 1);
  int wanted = info.nPos;
  switch (request) {
    case SB_LINELEFT:
      wanted -= step;
      break;
    case SB_LINERIGHT:
      wanted += step;
      break;
    case SB_PAGELEFT:
      wanted -= page;
      break;
    case SB_PAGERIGHT:
      wanted += page;
      break;
    case SB_LEFT:
      wanted = info.nMin;
      break;
    case SB_RIGHT:
      wanted = info.nMax;
      break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
      wanted = position;
      break;
    default:
      break;
  }
  return std::clamp(wanted, info.nMin, std::max(info.nMin, info.nMax - page + 1));
}

bool MoveScrollBar(HWND bar, UINT request, int position) {
  if (request > SB_ENDSCROLL) {
    return false;
  }
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  SendMessageW(bar, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(&info));
  const int wanted = RequestedPosition(info, request, position, 1);
  // At the end of scrolling, another program may have set the position already, so it
  // counts as changed.
  const bool ends = request == SB_THUMBPOSITION || request == SB_ENDSCROLL;
  if (wanted == info.nPos && !ends) {
    return false;
  }
  SendMessageW(bar, SBM_SETPOS, static_cast<WPARAM>(wanted), TRUE);
  return true;
}

}  // namespace win32
