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

// The row that the list shows for an entry without a caption: 87 hyphens.
inline constexpr std::wstring_view SeparatorText =
    L"---------------------------------------------------------------------------------------";

// The data of an entry besides its list row.
//
// `text` is the handle of the entry's large icon as a decimal number, "0" if it has no
// icon of its own. ItemList::SetIcon() changes it. If an icon could not be extracted,
// the row has the icon that was extracted last, of a row above it.
struct HiddenRow {
  std::string text;
  std::string tag;       // the entry's target, in the ANSI code page
  HICON held = nullptr;  // the icon that the row holds in SharedIcons; the one of `text`,
                         // but nullptr in a row 0 that Remove() has left
};

// Converts between an icon handle and the text of a hidden row.

std::string IconText(HICON icon);
HICON IconOfText(const std::string& text);

// The item list, `List1`, with its hidden rows: one for each list row, at the same
// index. Hidden row 0 exists even if the list is empty. Row numbers are 0-based.
class ItemList {
 public:
  // Borrows the list box.
  void Attach(HWND list) { list_ = list; }
  HWND window() const { return list_; }

  int Count() const;
  // The selected row; -1 if there is none.
  int Selected() const;
  // Selects a row without a notification to the window.
  void Select(int row);

  HiddenRow& Hidden(int row) { return hidden_.at(static_cast<std::size_t>(row)); }

  // Gives a row an icon, or none with nullptr. The list owns the icon from here on. The
  // row's old icon is destroyed if no other row has it.
  void SetIcon(int row, HICON icon);

  // Captions and targets are in the ANSI code page.

  // Appends a row, and its hidden row, for an entry without an icon of its own. An empty
  // caption is shown as SeparatorText.
  void Append(const std::string& caption, const std::string& target);

  // Changes a row's caption. The selection stays.
  void Rename(int row, const std::string& caption);

  // Exchanges a row and the next one, and their hidden rows. No other row is drawn
  // again, and the list does not scroll. No row is selected afterwards.
  void ExchangeWithNext(int row);

  // Removes a row and its hidden row, and releases its icon. If it is the only hidden
  // row, that one stays unchanged. No row is selected afterwards.
  void Remove(int row);

  // Removes all rows, and all hidden rows but the first, which stays unchanged. The
  // icons are kept, because the next entries may have the same ones.
  void Clear();

  // Destroys the icons that no row has. To be called after Clear() if the list is not
  // filled again; a Filling does it at its end.
  void DestroyUnusedIcons() { icons_.DestroyUnheld(); }

  // The first row that can be seen.
  int TopRow() const;
  void ScrollTo(int topRow);

  // To be called after the font of the list box has changed.
  void FitToFont();

  // Exists while entries are appended to the list: those of a menu file, or new ones. The
  // list is drawn once, by the destructor.
  class Filling {
   public:
    explicit Filling(ItemList& items) : items_(items) { items_.BeginFilling(); }
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;
    ~Filling() { items_.EndFilling(); }

   private:
    ItemList& items_;
  };

  // Appends an entry as row `row`, which is the number of rows so far, with its icon.
  // The icon comes from the icon file. If there is none, but the index is above 0, it
  // comes from the target. To be called only during a Filling.
  void AppendItem(int row, const menufile::MenuItemRecord& item);

 private:
  // Measures captions in the list's font.
  struct Ruler {
    explicit Ruler(HWND list);
    // The width in pixels. 0 for a separator: it may be cut off.
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
  HICON extracted_ = nullptr;   // the result of the last extraction of this Filling
  std::optional<Ruler> ruler_;  // exists during a Filling
  int textWidth_ = 0;           // the width of the longest caption, in pixels
};

}  // namespace editor

#endif  // CORVALIS_EDITOR_ITEM_LIST_H_
