#include "editor/item_list.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

#include "win32/text.h"
#include "win32/window_text.h"

namespace editor {

std::string IconText(HICON icon) { return std::to_string(reinterpret_cast<std::uintptr_t>(icon)); }

HICON IconOfText(const std::string& text) {
  std::uintptr_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return reinterpret_cast<HICON>(number);
}

int ItemList::Count() const { return static_cast<int>(SendMessageW(list_, LB_GETCOUNT, 0, 0)); }

int ItemList::Selected() const { return static_cast<int>(SendMessageW(list_, LB_GETCURSEL, 0, 0)); }

void ItemList::Select(int row) { SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(row), 0); }

void ItemList::SetIcon(int row, HICON icon) {
  HiddenRow& hidden = Hidden(row);
  icons_.Hold(icon);
  icons_.Release(std::exchange(hidden.held, icon));
  hidden.text = IconText(icon);
}

void ItemList::Append(const std::string& caption, const std::string& target) {
  AppendRow(Count(), caption, target);
}

void ItemList::Rename(int row, const std::string& caption) {
  const bool selected = Selected() == row;
  DeleteRow(row);
  InsertRow(row, win32::ToText(caption));
  if (selected) {
    Select(row);
  }
}

void ItemList::ExchangeWithNext(int row) {
  std::swap(Hidden(row), Hidden(row + 1));
  const int top = TopRow();
  const int next = row + 1;
  SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
  const std::wstring below = win32::ListText(list_, next);
  SendMessageW(list_, LB_DELETESTRING, static_cast<WPARAM>(next), 0);
  SendMessageW(list_, LB_INSERTSTRING, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(below.c_str()));
  ScrollTo(top);
  SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
  for (const int changed : {row, row + 1}) {
    RECT place{};
    SendMessageW(list_, LB_GETITEMRECT, static_cast<WPARAM>(changed),
                 reinterpret_cast<LPARAM>(&place));
    InvalidateRect(list_, &place, TRUE);
  }
}

void ItemList::Remove(int row) {
  icons_.Release(std::exchange(Hidden(row).held, nullptr));
  if (hidden_.size() > 1) {
    hidden_.erase(hidden_.begin() + row);
  }
  DeleteRow(row);
  Select(-1);
}

void ItemList::Clear() {
  for (std::size_t row = 1; row < hidden_.size(); ++row) {
    icons_.ReleaseLater(hidden_[row].held);
  }
  hidden_.resize(1);
  SendMessageW(list_, LB_RESETCONTENT, 0, 0);
  SetTextWidth(0);
}

int ItemList::TopRow() const { return static_cast<int>(SendMessageW(list_, LB_GETTOPINDEX, 0, 0)); }

void ItemList::ScrollTo(int topRow) {
  SendMessageW(list_, LB_SETTOPINDEX, static_cast<WPARAM>(topRow), 0);
}

void ItemList::BeginFilling() {
  SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
  extracted_ = nullptr;
  ruler_.emplace(list_);
}

void ItemList::EndFilling() {
  DestroyUnusedIcons();
  ruler_.reset();
  SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list_, nullptr, TRUE);
}

void ItemList::AppendItem(int row, const menufile::MenuItemRecord& item) {
  const std::string target = item.target.Text();
  AppendRow(row, item.caption.Text(), target);
  const int index = item.iconIndex.Integer();
  if (item.iconFile.IsEmpty() && item.iconIndex.Number() <= 0) {
    return;
  }
  const std::string file = item.iconFile.IsEmpty() ? target : item.iconFile.Text();
  extracted_ = icons_.Extract(file, index, extracted_);
  SetIcon(row, extracted_);
}

// The caller passes the row: asking the list box for its count would take one message
// more for each of thousands of rows.
void ItemList::AppendRow(int row, const std::string& caption, const std::string& target) {
  if (row > 0) {
    hidden_.resize(static_cast<std::size_t>(row) + 1);
  }
  icons_.ReleaseLater(Hidden(row).held);
  Hidden(row) = {IconText(nullptr), target};
  InsertRow(row, caption.empty() ? std::wstring(SeparatorText) : win32::ToText(caption));
}

void ItemList::InsertRow(int row, const std::wstring& caption) {
  SendMessageW(list_, LB_INSERTSTRING, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(caption.c_str()));
  WidenFor(caption);
}

ItemList::Ruler::Ruler(HWND list)
    : dc(list), font(dc.get(), reinterpret_cast<HGDIOBJ>(SendMessageW(list, WM_GETFONT, 0, 0))) {}

int ItemList::Ruler::WidthOf(const std::wstring& caption) const {
  if (caption == SeparatorText) {
    return 0;
  }
  constexpr std::size_t kMostCharacters = 4096;
  SIZE extent{};
  GetTextExtentPoint32W(dc.get(), caption.c_str(),
                        static_cast<int>(std::min(caption.size(), kMostCharacters)), &extent);
  return extent.cx;
}

// A list box scrolls sideways only as far as its horizontal extent.
void ItemList::WidenFor(const std::wstring& caption) {
  if (const int width = ruler_ ? ruler_->WidthOf(caption) : Ruler(list_).WidthOf(caption);
      width > textWidth_) {
    SetTextWidth(width);
  }
}

void ItemList::DeleteRow(int row) {
  const bool isWidest = Ruler(list_).WidthOf(win32::ListText(list_, row)) >= textWidth_;
  SendMessageW(list_, LB_DELETESTRING, static_cast<WPARAM>(row), 0);
  if (isWidest && textWidth_ > 0) {
    FitToFont();
  }
}

void ItemList::SetTextWidth(int width) {
  textWidth_ = width;
  const int extent = width == 0 ? 0 : width + GetSystemMetrics(SM_CXEDGE) * 4;
  SendMessageW(list_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent), 0);
}

void ItemList::FitToFont() {
  const Ruler ruler(list_);
  int widest = 0;
  const int count = Count();
  for (int row = 0; row < count; ++row) {
    widest = std::max(widest, ruler.WidthOf(win32::ListText(list_, row)));
  }
  SetTextWidth(widest);
}

}  // namespace editor
