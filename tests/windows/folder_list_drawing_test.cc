#include <windows.h>

#include <shellapi.h>

#include "tests/windows/folder_list_test_base.h"
#include "tests/windows/replaced_import.h"
#include "win32/scale.h"

namespace {

class FolderListDrawingTest : public FolderListTest {};

// The pixels of one row that the list draws.
struct DrawnRow {
  DrawnRow(win32::FolderList& folders, HWND list, int row, UINT state) {
    const win32::WindowDc screen(nullptr);
    const win32::UniqueMemoryDc dc(CreateCompatibleDC(screen.get()));
    const win32::UniqueBitmap bitmap(CreateCompatibleBitmap(screen.get(), 450, 54));
    const win32::SelectedObject selected(dc.get(), bitmap.get());
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_LISTBOX;
    item.itemID = static_cast<UINT>(row);
    item.itemState = state;
    item.hwndItem = list;
    item.hDC = dc.get();
    item.rcItem = {50, 30, 450, 54};  // not at 0, like most rows
    folders.Draw(item);
    background = GetPixel(dc.get(), 449, 53);
    for (int x = 0; x < 400; ++x) {
      for (int y = 0; y < 24; ++y) {
        pixels.push_back(GetPixel(dc.get(), 50 + x, 30 + y));
        if (pixels.back() != background) {
          firstInk = firstInk < 0 ? x : firstInk;
          if (x < firstInk + win32::SystemMetric(SM_CXSMICON, 96)) {
            top = std::min(top, y);
            bottom = std::max(bottom, y);
          }
        }
      }
    }
  }
  // True if a text of that colour stands after the icon.
  bool HasText(int systemColour) const {
    const std::ptrdiff_t text = (firstInk + win32::SystemMetric(SM_CXSMICON, 96) + 2) * 24;
    return std::find(pixels.begin() + text, pixels.end(), GetSysColor(systemColour)) !=
           pixels.end();
  }
  COLORREF background = CLR_INVALID;
  std::vector<COLORREF> pixels;  // column by column
  int firstInk = -1;             // the first column that is not all background
  int top = 24, bottom = -1;     // the first and last row of the icon's ink
};

TEST_F(FolderListDrawingTest, DrawsEachFolderAStepFurtherIn) {
  Make("first");
  Make("second");
  ASSERT_TRUE(SetPath(folder()));
  const int current = Selected();
  int former = -1;
  for (int row = 0; row <= current + 1; ++row) {
    const DrawnRow drawn(folders, list_, row, 0);
    EXPECT_EQ(drawn.background, GetSysColor(COLOR_WINDOW));
    EXPECT_TRUE(drawn.HasText(COLOR_WINDOWTEXT)) << row;
    EXPECT_GT(drawn.firstInk, former) << row;
    EXPECT_NEAR(drawn.top + drawn.bottom, 23, 4) << row;
    former = drawn.firstInk;
  }
  EXPECT_EQ(DrawnRow(folders, list_, current + 2, 0).firstInk, former);
}

TEST_F(FolderListDrawingTest, FoldersDownToTheCurrentOneAreOpenAndThoseInItClosed) {
  static HICON open, closed, drawn;
  open = CopyIcon(LoadIconW(nullptr, reinterpret_cast<const wchar_t*>(32512)));
  closed = CopyIcon(LoadIconW(nullptr, reinterpret_cast<const wchar_t*>(32513)));
  const ReplacedImport info(
      "SHGetFileInfoW",
      +[](const wchar_t*, DWORD, SHFILEINFOW* file, UINT, UINT flags) -> DWORD_PTR {
        file->hIcon = (flags & SHGFI_OPENICON) != 0 ? open : closed;
        return 1;
      });
  const ReplacedImport draw(
      "DrawIconEx", +[](HDC, int, int, HICON icon, int, int, UINT, HBRUSH, UINT) -> BOOL {
        drawn = icon;
        return TRUE;
      });
  Make("closed");
  win32::FolderList list;  // owns the icons
  list.Attach(list_);
  list.Start();
  ASSERT_TRUE(list.SetPath(win32::ToText(folder())));
  const int current = Selected();
  for (int row = 0; row <= current + 1; ++row) {
    DrawnRow(list, list_, row, 0);
    EXPECT_EQ(drawn, row <= current ? open : closed) << row;
  }
}

TEST_F(FolderListDrawingTest, DrawsTheSelectedRowInTheColoursOfASelection) {
  const DrawnRow drawn(folders, list_, 0, ODS_SELECTED);
  EXPECT_EQ(drawn.background, GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_GE(drawn.firstInk, 0);
  EXPECT_TRUE(drawn.HasText(COLOR_HIGHLIGHTTEXT));
}

TEST_F(FolderListDrawingTest, DrawsTheFocusWhereThereIsNoRow) {
  const DrawnRow drawn(folders, list_, -1, ODS_FOCUS);
  EXPECT_EQ(drawn.firstInk, 0);
}

TEST_F(FolderListDrawingTest, ScrollsSidewaysToTheEndOfTheLongestName) {
  const LRESULT before = SendMessageA(list_, LB_GETHORIZONTALEXTENT, 0, 0);
  Make(std::string(150, 'W'));
  ASSERT_TRUE(SetPath(folder()));
  const LRESULT after = SendMessageA(list_, LB_GETHORIZONTALEXTENT, 0, 0);
  EXPECT_GT(after, before + 500);
  const DrawnRow drawn(folders, list_, 0, 0);
  EXPECT_LT(drawn.firstInk, 20);
}

TEST_F(FolderListDrawingTest, RowsAreHighEnoughForTheFontAndTheIcon) {
  const win32::UniqueFont large(
      CreateFontA(-60, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "Tahoma"));
  EXPECT_GE(SendMessageA(list_, LB_GETITEMHEIGHT, 0, 0), 16);
  SendMessageA(list_, WM_SETFONT, reinterpret_cast<WPARAM>(large.get()), FALSE);
  folders.FitToFont();
  EXPECT_GE(SendMessageA(list_, LB_GETITEMHEIGHT, 0, 0), 60);
}

TEST_F(FolderListDrawingTest, TypingANameFindsItsRow) {
  Make("zebra");
  ASSERT_TRUE(SetPath(folder()));
  SendMessageA(list_, WM_CHAR, 'z', 0);
  EXPECT_EQ(ListRows()[static_cast<std::size_t>(Selected())], "zebra");
}

}  // namespace
