#include "editor/item_list.h"

#include <shellapi.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <utility>

#include "win32/handles.h"
#include "win32/icon_file.h"
#include "win32/window_text.h"

namespace editor {
std::string IconText(HICON icon) { return std::to_string(reinterpret_cast<std::uintptr_t>(icon)); }

HICON IconOfText(const std::string& text) {
  std::uintptr_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return reinterpret_cast<HICON>(number);
}

// Only the call's result tells whether the
// handles were written; on a failure they may hold anything. The small icon is
// asked for because the large one alone is not to be had from some programs;
// nothing shows it.
HICON ExtractLargeIcon(const std::string& file, int index) {
  if (!win32::IsSoundIconFile(file)) {
    return nullptr;
  }
  HICON large = nullptr;
  HICON small = nullptr;
  const UINT count = ExtractIconExA(file.c_str(), index, &large, &small, 1);
  return count == 0 || count == std::numeric_limits<UINT>::max() ? nullptr : large;
}

int ItemList::Count() const { return static_cast<int>(SendMessageA(list_, LB_GETCOUNT, 0, 0)); }

int ItemList::Selected() const { return static_cast<int>(SendMessageA(list_, LB_GETCURSEL, 0, 0)); }

void ItemList::Select(int row) { SendMessageA(list_, LB_SETCURSEL, static_cast<WPARAM>(row), 0); }

void ItemList::Append(const std::string& caption, const std::string& iconText,
                      const std::string& target) {
  const int row = Count();
  if (row > 0) {
    hidden_.resize(static_cast<std::size_t>(row) + 1);
  }
  InsertRow(row, caption.empty() ? std::string(SeparatorText) : caption);
  Hidden(row) = {iconText, target};
}

void ItemList::Rename(int row, const std::string& caption) {
  const bool selected = Selected() == row;
  SendMessageA(list_, LB_DELETESTRING, static_cast<WPARAM>(row), 0);
  InsertRow(row, caption);
  if (selected) {
    Select(row);
  }
}

void ItemList::ExchangeWithNext(int row) {
  std::swap(Hidden(row), Hidden(row + 1));
  const int top = TopRow();
  const int next = row + 1;
  SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
  const std::string below = win32::ListText(list_, next);
  SendMessageA(list_, LB_DELETESTRING, static_cast<WPARAM>(next), 0);
  SendMessageA(list_, LB_INSERTSTRING, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(below.c_str()));
  ScrollTo(top);
  SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
  for (const int changed : {row, row + 1}) {
    RECT place{};
    SendMessageA(list_, LB_GETITEMRECT, static_cast<WPARAM>(changed),
                 reinterpret_cast<LPARAM>(&place));
    InvalidateRect(list_, &place, TRUE);
  }
}

void ItemList::Remove(int row) {
  if (hidden_.size() > 1) {
    hidden_.erase(hidden_.begin() + row);
  }
  SendMessageA(list_, LB_DELETESTRING, static_cast<WPARAM>(row), 0);
  Select(-1);
}

void ItemList::Clear() {
  hidden_.resize(1);
  SendMessageA(list_, LB_RESETCONTENT, 0, 0);
  textWidth_ = 0;
  SendMessageA(list_, LB_SETHORIZONTALEXTENT, 0, 0);
}

int ItemList::TopRow() const { return static_cast<int>(SendMessageA(list_, LB_GETTOPINDEX, 0, 0)); }

void ItemList::ScrollTo(int topRow) {
  SendMessageA(list_, LB_SETTOPINDEX, static_cast<WPARAM>(topRow), 0);
}

void ItemList::AppendItem(std::size_t row, const menufile::MenuItemRecord& item) {
  if (row == 0) {
    extracted_ = nullptr;
  }
  const std::string target = item.target.Text();
  const int index = item.iconIndex.Integer();
  std::string iconText = "0";
  if (!item.iconFile.IsEmpty() || index > 0) {
    const std::string file = item.iconFile.IsEmpty() ? target : item.iconFile.Text();
    // On a failure the handle of the last success stays.
    if (const HICON icon = ExtractLargeIcon(file, index)) {
      extracted_ = icon;
    }
    iconText = IconText(extracted_);
  }
  Append(item.caption.Text(), iconText, target);
}

void ItemList::InsertRow(int row, const std::string& caption) {
  SendMessageA(list_, LB_INSERTSTRING, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(caption.c_str()));
  WidenFor(caption);
}

// A list box scrolls sideways only as far as it is told. Separators may be cut.
void ItemList::WidenFor(const std::string& caption) {
  if (caption == SeparatorText) {
    return;
  }
  const win32::WindowDc dc(list_);
  const win32::SelectedObject selected(
      dc.get(), reinterpret_cast<HGDIOBJ>(SendMessageA(list_, WM_GETFONT, 0, 0)));
  const int length = static_cast<int>(std::min<std::size_t>(caption.size(), 4096));
  SIZE extent{};
  GetTextExtentPoint32A(dc.get(), caption.c_str(), length, &extent);
  if (extent.cx > textWidth_) {
    textWidth_ = extent.cx;
    const int extentOfList = textWidth_ + GetSystemMetrics(SM_CXEDGE) * 4;
    SendMessageA(list_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extentOfList), 0);
  }
}

}  // namespace editor
