#ifndef CORVALIS_EDITOR_ITEM_LIST_H_
#define CORVALIS_EDITOR_ITEM_LIST_H_

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "menufile/records.h"

namespace editor {

// What the list shows for an entry without a caption: 87 hyphens.
inline constexpr std::string_view SeparatorText =
    "---------------------------------------------------------------------------------------";

// What is kept of an entry besides its list row.
//
// `text` is the entry's large icon as a number in decimal, "0" when it has none
// of its own. It is the row that owns the icon: DestroyIcon() is due when the
// row gets another one or is deleted. Icons of rows that go in a reload or a
// switch of the menu type live as long as the process. A row whose icon could
// not be extracted holds the icon of the row above it, a second time.
struct HiddenRow {
  std::string text;
  std::string tag;  // the entry's target
};

std::string IconText(HICON icon);
HICON IconOfText(const std::string& text);

// Takes the icon of that index out of a file; nullptr when there is none. The
// caller owns it.
HICON ExtractLargeIcon(const std::string& file, int index);

// The item list, `List1`, with its hidden rows: one for each list row, at the
// same index, and one more when the list is empty: row 0 always exists.
class ItemList {
 public:
  // Borrows the list box.
  void Attach(HWND list) { list_ = list; }
  HWND window() const { return list_; }

  int Count() const;
  // 0-based; -1 when no row is selected.
  int Selected() const;
  // Selects a row without telling the window, as list boxes do.
  void Select(int row);

  HiddenRow& Hidden(int row) { return hidden_.at(static_cast<std::size_t>(row)); }

  // Appends the row of an entry, and a hidden row for it: `icon` as text, and
  // its target. An empty caption is shown as SeparatorText.
  void Append(const std::string& caption, const std::string& iconText, const std::string& target);

  // Changes a row's caption; the selection stays.
  void Rename(int row, const std::string& caption);

  // Exchanges a row and the one below it, and their hidden rows. No other row is
  // touched or drawn again, and the list does not scroll. The selection is lost.
  void ExchangeWithNext(int row);

  // Removes a row and its hidden row; the last of the hidden ones stays, as it
  // is. Nothing is selected afterwards.
  void Remove(int row);

  // Removes all rows, and all hidden rows but the first, which stays as it is.
  void Clear();

  // The row at the top of what the list shows.
  int TopRow() const;
  void ScrollTo(int topRow);

  // Appends the row of an entry that was read, with its icon: from its icon
  // file, or from its target when it has an index above 0 but no icon file.
  void AppendItem(std::size_t row, const menufile::MenuItemRecord& item);

 private:
  void InsertRow(int row, const std::string& caption);
  void WidenFor(const std::string& caption);

  HWND list_ = nullptr;
  std::vector<HiddenRow> hidden_{1};
  HICON extracted_ = nullptr;  // what the last extraction of this load gave
  int textWidth_ = 0;          // of the longest caption, in pixels
};

}  // namespace editor

#endif  // CORVALIS_EDITOR_ITEM_LIST_H_
