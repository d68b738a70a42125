#include "tests/windows/list_test_base.h"
#include "tests/windows/message_watch.h"

using namespace testing_menus;

namespace {

constexpr int kSeparator = IDC_FORM2_COMMAND9;

const std::string kA = ItemLine("Alpha", "C:\\a.exe", "-a", "C:\\");
const std::string kB = ItemLine("Beta", "C:\\b.exe");
const RowState kRowA{"Alpha", "0", "C:\\a.exe"};
const RowState kRowB{"Beta", "0", "C:\\b.exe"};
const RowState kRowSeparator{kSeparatorRow, "0", ""};

}  // namespace

class SeparatorTest : public ListTest {};

TEST_F(SeparatorTest, GoesBeforeTheSelectedRow) {
  const Texts lines{kA, kSeparatorLine, kB};
  for (int row = 0; row < 3; ++row) {
    ASSERT_TRUE(OpenLines(lines));
    std::vector<RowState> state{kRowA, kRowSeparator, kRowB};
    SelectRow(row);
    Press(kSeparator);
    Texts more = lines;
    more.insert(more.begin() + row, kSeparatorLine);
    state.insert(state.begin() + row, kRowSeparator);
    ExpectSettled(more);
    EXPECT_EQ(State(), state);
    EXPECT_EQ(SelectedRow(), -1);
    EXPECT_TRUE(PreviewIsClear());
  }
}

TEST_F(SeparatorTest, NothingSelectedDoesNothing) {
  const std::string menu = testing_menus::UserDefinedMenu({" " + kA, kB});
  ASSERT_TRUE(Open(menu));
  form().iconic1().Draw(LoadIconA(nullptr, MAKEINTRESOURCEA(32512)));  // any
  Press(kSeparator);
  EXPECT_EQ(MenuBytes(), menu);
  EXPECT_EQ(State(), (std::vector<RowState>{kRowA, kRowB}));
  EXPECT_FALSE(PreviewIsClear());
}

TEST_F(SeparatorTest, ReloadsTheRowsFromTheFile) {
  ASSERT_TRUE(OpenLines({IconLine("With", "C:\\with"), kB}));
  const std::string icon = HiddenIcon(0);
  ASSERT_TRUE(IsIcon(icon));
  // Rows that are in the window but not in the file are gone afterwards.
  form().items().Hidden(1).tag = "C:\\elsewhere";
  SelectRow(1);
  Press(kSeparator);
  ExpectSettled({IconLine("With", "C:\\with"), kSeparatorLine, kB});
  EXPECT_EQ(HiddenTag(2), "C:\\b.exe");
  EXPECT_EQ(HiddenIcon(0), icon);
  EXPECT_TRUE(IsIcon(icon));
}

TEST_F(SeparatorTest, ShowsWhatElseHasChangedInTheFile) {
  ASSERT_TRUE(OpenLines({kA}));
  WriteBytes(MenuPath(), testing_menus::UserDefinedMenu({kA, kB}, "1,\"Arial\",10,-1,0\r\n"));
  SelectRow(0);
  Press(kSeparator);
  EXPECT_EQ(MenuBytes(),
            testing_menus::UserDefinedMenu({kSeparatorLine, kA, kB}, "1,\"Arial\",10,-1,0\r\n"));
  EXPECT_EQ(State(), (std::vector<RowState>{kRowSeparator, kRowA, kRowB}));
  EXPECT_TRUE(IsChecked(IDC_FORM2_CHECK1));
}

TEST_F(SeparatorTest, DrawsTenThousandRowsOnceAndStaysWhereItWas) {
  Texts lines = ManyLines(10000);
  ASSERT_TRUE(OpenLines(lines));
  ShowWindow(form().window(), SW_SHOWNA);
  RunMessages();
  const HWND list = Control(IDC_FORM2_LIST1);
  SelectRow(5000);
  SendMessageA(list, LB_SETTOPINDEX, 4995, 0);
  RunMessages();
  // Records whether the list could paint while it was filled.
  int paints = 0;
  int rowsAddedWhileDrawing = 0;
  bool draws = true;
  const MessageWatch watch(list, [&](UINT message, WPARAM wide) {
    draws = message == WM_SETREDRAW ? wide != FALSE : draws;
    paints += message == WM_PAINT;
    rowsAddedWhileDrawing += message == LB_INSERTSTRING && draws;
  });
  SendMessageA(Control(kSeparator), BM_CLICK, 0, 0);
  EXPECT_EQ(paints, 0);
  EXPECT_EQ(rowsAddedWhileDrawing, 0);
  EXPECT_TRUE(draws);
  UpdateWindow(list);
  EXPECT_EQ(paints, 1);
  lines.insert(lines.begin() + 5000, kSeparatorLine);
  ExpectSettled(lines);
  EXPECT_EQ(Rows().size(), 10001U);
  EXPECT_EQ(Rows()[5000], kSeparatorRow);
  EXPECT_EQ(SendMessageA(list, LB_GETTOPINDEX, 0, 0), 4995);
}

TEST_F(SeparatorTest, ANoToConvertingEndsTheProgram) {
  ASSERT_TRUE(OpenLines({kA}));
  ShowWindow(form().window(), SW_SHOW);
  const HWND window = form().window();
  const std::string other = "no menu any more";
  WriteBytes(MenuPath(), other);
  MakeReadOnly(MenuPath());  // so that the separator is not written either
  SelectRow(0);
  answers.Answer({IDNO});
  SendMessageA(Control(kSeparator), BM_CLICK, 0, 0);
  MakeWritable(MenuPath());
  ASSERT_EQ(answers.Shown().size(), 1U);
  EXPECT_EQ(answers.Shown()[0].title, "Query?");
  EXPECT_EQ(answers.Shown()[0].owner, window);
  EXPECT_TRUE(TakeQuit());
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(MenuBytes(), other);
}
