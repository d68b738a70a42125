#ifndef CORVALIS_EDITOR_ITEM_LIST_H_
#define CORVALIS_EDITOR_ITEM_LIST_H_

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/shared_icons.h"
#include "menufile/records.h"
#include "win32/handles.h"

namespace editor {

// What the list shows for an entry without a caption: 87 hyphens.
inline constexpr std::wstring_view SeparatorText =
    L"---------------------------------------------------------------------------------------";

// What is kept of an entry besides its list row.
//
// `text` is the entry's large icon as a number in decimal, "0" when it has none
// of its own; ItemList::SetIcon() changes it. A row whose icon could not be
// extracted holds the last one that was, of a row above it.
struct HiddenRow {
  std::string text;
  std::string tag;       // the entry's target, in the bytes of the file
  HICON held = nullptr;  // that of `text`, but for what Remove() leaves in row 0
};

std::string IconText(HICON icon);
HICON IconOfText(const std::string& text);

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

  // Gives a row an icon, which the list owns from here on, or none with nullptr.
  // The icon that it had is destroyed when no other row has it too.
  void SetIcon(int row, HICON icon);

  // Captions and targets are bytes of the file; the list shows the text of them.

  // Appends the row of an entry without an icon of its own, and a hidden row for
  // it. An empty caption is shown as SeparatorText.
  void Append(const std::string& caption, const std::string& target);

  // Changes a row's caption; the selection stays.
  void Rename(int row, const std::string& caption);

  // Exchanges a row and the one below it, and their hidden rows. No other row is
  // touched or drawn again, and the list does not scroll. The selection is lost.
  void ExchangeWithNext(int row);

  // Removes a row and its hidden row, and lets go of its icon; the last of the
  // hidden ones stays, as it is. Nothing is selected afterwards.
  void Remove(int row);

  // Removes all rows, and all hidden rows but the first, which stays as it is.
  // Their icons stay for the entries that the list is filled with next.
  void Clear();
  // Destroys those icons, for a list that is not filled again. Filling the list
  // does the same at its end with what no row names any more.
  void DestroyUnusedIcons() { icons_.DestroyUnheld(); }

  // The row at the top of what the list shows.
  int TopRow() const;
  void ScrollTo(int topRow);

  // To be called when the list box got another font.
  void FitToFont();

  // While one lives, the entries of a menu file are appended to the list, in
  // their order; the list is drawn at the end, once.
  class Filling {
   public:
    explicit Filling(ItemList& items) : items_(items) { items_.BeginFilling(); }
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;
    ~Filling() { items_.EndFilling(); }

   private:
    ItemList& items_;
  };

  // Appends the row of an entry that was read, behind `row` others, with its
  // icon: from its icon file, or from its target when it has an index above 0
  // but no icon file. Only while the list is filled.
  void AppendItem(int row, const menufile::MenuItemRecord& item);

 private:
  // Measures captions in the list's font.
  struct Ruler {
    explicit Ruler(HWND list);
    // In pixels; 0 for a separator, which may be cut.
    int WidthOf(const std::wstring& caption) const;

    win32::WindowDc dc;
    win32::SelectedObject font;
  };

  void BeginFilling();
  void EndFilling();
  void AppendRow(int row, const std::string& caption, const std::string& target);
  void InsertRow(int row, const std::wstring& caption);
  void DeleteRow(int row);
  void SetTextWidth(int width);
  void WidenFor(const std::wstring& caption);

  HWND list_ = nullptr;
  std::vector<HiddenRow> hidden_{1};
  SharedIcons icons_;
  HICON extracted_ = nullptr;   // what the last extraction of this filling gave
  std::optional<Ruler> ruler_;  // while the list is filled
  int textWidth_ = 0;           // of the longest caption, in pixels
};

}  // namespace editor

#endif  // CORVALIS_EDITOR_ITEM_LIST_H_
