#include "tests/windows/list_test_base.h"
#include "tests/windows/message_watch.h"
#include "tests/windows/replaced_import.h"

using namespace testing_menus;

namespace {

constexpr int kMoveUp = IDC_FORM2_COMMAND4;
constexpr int kMoveDown = IDC_FORM2_COMMAND8;

const std::string kA = ItemLine("Alpha", "C:\\a.exe", "-a", "C:\\", "", "0");
const std::string kB = ItemLine("Beta", "C:\\b.exe", "/b \x80\xFF", "D:\\work", "C:\\x.ico", "7");
const std::string kC = ItemLine("Gamma, with comma", "C:\\c.exe");

const RowState kRowA{"Alpha", "0", "C:\\a.exe"};

}  // namespace

class MoveTest : public ListTest {};

TEST_F(MoveTest, ExchangesTheEntryWithTheOneAboveOrBelow) {
  for (const bool up : {true, false}) {
    ASSERT_TRUE(OpenLines({kA, kSeparatorLine, kC}));
    std::vector<RowState> state = State();
    SelectRow(up ? 2 : 0);
    Press(up ? kMoveUp : kMoveDown);
    ExpectSettled(up ? Texts{kA, kC, kSeparatorLine} : Texts{kSeparatorLine, kA, kC});
    std::swap(state[1], state[up ? 2 : 0]);
    EXPECT_EQ(State(), state);
    EXPECT_EQ(SelectedRow(), 1);
  }
}

TEST_F(MoveTest, ToBothEndsAndNoFurther) {
  ASSERT_TRUE(OpenLines({kA, kB, kC}));
  SelectRow(1);
  Press(kMoveUp);
  ExpectSettled({kB, kA, kC}, 0);
  Press(kMoveUp);
  ExpectSettled({kB, kA, kC}, 0);
  Press(kMoveDown);
  Press(kMoveDown);
  ExpectSettled({kA, kC, kB}, 2);
  Press(kMoveDown);
  ExpectSettled({kA, kC, kB}, 2);
}

TEST_F(MoveTest, UpAndDownAgainGivesTheSameBytes) {
  ASSERT_TRUE(OpenLines({kA, kB, kSeparatorLine, kC}));
  const std::vector<RowState> before = State();
  for (int row = 1; row < 4; ++row) {
    SelectRow(row);
    Press(kMoveUp);
    EXPECT_NE(State(), before);
    Press(kMoveDown);
    ExpectSettled({kA, kB, kSeparatorLine, kC});
    EXPECT_EQ(State(), before);
    EXPECT_EQ(SelectedRow(), row);
  }
}

TEST_F(MoveTest, NothingSelectedDoesNothing) {
  // Every rewrite would change this file.
  const std::string menu = testing_menus::UserDefinedMenu({kA, " " + kC});
  ASSERT_TRUE(Open(menu));
  Press(kMoveUp);
  Press(kMoveDown);
  EXPECT_EQ(MenuBytes(), menu);
  EXPECT_EQ(Rows(), (Texts{"Alpha", "Gamma, with comma"}));
  EXPECT_EQ(SelectedRow(), -1);
}

TEST_F(MoveTest, TheEndsAreNotRewritten) {
  const std::string menu = testing_menus::UserDefinedMenu({" " + kA, " " + kC});
  ASSERT_TRUE(Open(menu));
  SelectRow(0);
  Press(kMoveUp);
  SelectRow(1);
  Press(kMoveDown);
  EXPECT_EQ(MenuBytes(), menu);
  // A real move rewrites it.
  Press(kMoveUp);
  ExpectSettled({kC, kA});
}

TEST_F(MoveTest, ASingleRowStays) {
  const std::string menu = testing_menus::UserDefinedMenu({" " + kA});
  ASSERT_TRUE(Open(menu));
  SelectRow(0);
  Press(kMoveUp);
  Press(kMoveDown);
  EXPECT_EQ(MenuBytes(), menu);
  EXPECT_EQ(State(), std::vector<RowState>{kRowA});
  EXPECT_EQ(SelectedRow(), 0);
}

TEST_F(MoveTest, IconsTravelWithTheirRows) {
  ASSERT_TRUE(OpenLines({IconLine("With", "C:\\with"), ItemLine("Without", "C:\\without")}));
  const std::string icon = HiddenIcon(0);
  ASSERT_TRUE(IsIcon(icon));
  SelectRow(1);
  const std::string previewOfWithout = form().iconic1().BitmapFile();
  SelectRow(0);
  const std::string previewOfWith = form().iconic1().BitmapFile();
  ASSERT_NE(previewOfWith, previewOfWithout);
  SelectRow(1);
  Press(kMoveUp);
  EXPECT_EQ(State(),
            (std::vector<RowState>{{"Without", "0", "C:\\without"}, {"With", icon, "C:\\with"}}));
  EXPECT_TRUE(IsIcon(icon));
  EXPECT_EQ(form().iconic1().BitmapFile(), previewOfWithout);
}

TEST_F(MoveTest, ThePreviewShowsTheMovedEntry) {
  ASSERT_TRUE(OpenLines({IconLine("With", "C:\\with"), ItemLine("Without", "C:\\without")}));
  SelectRow(0);
  const std::string preview = form().iconic1().BitmapFile();
  // Clear the preview, so that the move has to draw it.
  form().iconic1().Clear();
  Press(kMoveDown);
  EXPECT_EQ(SelectedRow(), 1);
  EXPECT_EQ(form().iconic1().BitmapFile(), preview);
}

// The list does not draw while its rows are exchanged; then it draws only the two rows.
TEST_F(MoveTest, BothRowsAreDrawnAnewAndNoOther) {
  static HWND list;
  static std::vector<LONG> tops;
  tops.clear();
  ASSERT_TRUE(OpenLines({kA, kB, kC, kA}));
  list = Control(IDC_FORM2_LIST1);
  SelectRow(1);
  const ReplacedImport invalidate(
      "InvalidateRect", +[](HWND window, const RECT* place, BOOL) -> BOOL {
        if (window == list) {
          tops.push_back(place == nullptr ? -1 : place->top);
        }
        return TRUE;
      });
  const LRESULT height = SendMessageA(list, LB_GETITEMHEIGHT, 0, 0);
  for (const int button : {kMoveDown, kMoveUp}) {
    tops.clear();
    Press(button);
    EXPECT_EQ(tops, (std::vector<LONG>{static_cast<LONG>(height), static_cast<LONG>(2 * height)}));
  }
}

TEST_F(MoveTest, TenThousandRows) {
  Texts lines = ManyLines(10000);
  ASSERT_TRUE(OpenLines(lines));
  const HWND list = Control(IDC_FORM2_LIST1);
  SelectRow(5000);
  SendMessageA(list, LB_SETTOPINDEX, 4995, 0);
  int changes = 0;
  std::vector<int> selected;  // by the editor: Wine's list box may move a selection itself
  {
    const MessageWatch watch(list, [&](UINT message, WPARAM wide) {
      if (message == LB_SETCURSEL) {
        selected.push_back(static_cast<int>(wide));
      }
      changes += message == LB_DELETESTRING || message == LB_INSERTSTRING ||
                 message == LB_ADDSTRING || message == LB_RESETCONTENT || message == LB_SETITEMDATA;
    });
    Press(kMoveUp);
    Press(kMoveDown);
    Press(kMoveDown);
  }
  EXPECT_EQ(selected, (std::vector<int>{4999, 5000, 5001}));
  EXPECT_LE(changes, 3 * 4);
  EXPECT_GE(changes, 3 * 2);
  EXPECT_EQ(SendMessageA(list, LB_GETTOPINDEX, 0, 0), 4995);
  EXPECT_EQ(SelectedRow(), 5001);
  std::swap(lines[5000], lines[5001]);
  ExpectSettled(lines);
  EXPECT_EQ(Rows()[5001], "Entry 5000");
  EXPECT_EQ(Rows()[5000], "Entry 5001");
  EXPECT_EQ(HiddenTag(5001), "C:\\5000");
  EXPECT_EQ(HiddenTag(5000), "C:\\5001");
}

TEST_F(MoveTest, TheLastOfManyRowsKeepsItsPlaceOnTheScreen) {
  const Texts lines = ManyLines(200);
  ASSERT_TRUE(OpenLines(lines));
  const HWND list = Control(IDC_FORM2_LIST1);
  SelectRow(199);
  const LRESULT top = SendMessageA(list, LB_GETTOPINDEX, 0, 0);
  ASSERT_GT(top, 100);
  Press(kMoveUp);
  EXPECT_EQ(SendMessageA(list, LB_GETTOPINDEX, 0, 0), top);
  EXPECT_EQ(SelectedRow(), 198);
}
