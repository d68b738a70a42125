#include "tests/windows/code_pages.h"
#include "tests/windows/faulty_files.h"
#include "tests/windows/wizard_test_base.h"

using namespace testing_menus;

namespace {

const std::string kA = ItemLine("Alpha", "C:\\a.exe", "-a", "C:\\", "C:\\x.ico", "3");
const std::string kB = ItemLine("Beta", "C:\\b.exe");
const std::string kC = ItemLine("Gamma", "C:\\c.exe", "/c", "", "", "2");

}  // namespace

class WizardFinishTest : public WizardTestBase {
 protected:
  static Texts Tags(const std::vector<RowState>& state) {
    Texts tags;
    for (const RowState& row : state) {
      tags.push_back(row.target);
    }
    return tags;
  }
};

TEST_F(WizardFinishTest, AddAppendsWhateverIsSelected) {
  ASSERT_TRUE(OpenLines({kB, kSeparatorLine, kB, kB, kB}));
  std::vector<RowState> state = State();
  SelectRow(2);
  OpenAdd();
  Finish("http://example.org/", "A name", "some arguments", "C:\\start");
  ExpectClosed();
  ExpectSettled({kB, kSeparatorLine, kB, kB, kB,
                 ItemLine("A name", "http://example.org/", "some arguments", "C:\\start")});
  state.push_back({"A name", "0", "http://example.org/"});
  EXPECT_EQ(State(), state);
  EXPECT_EQ(SelectedRow(), 2);
}

TEST_F(WizardFinishTest, AddToAnEmptyMenuUsesTheFirstHiddenRow) {
  ASSERT_TRUE(OpenLines({}));
  OpenAdd();
  Finish("news:x", "X");
  ExpectSettled({ItemLine("X", "news:x")});
  EXPECT_EQ(State(), (std::vector<RowState>{{"X", "0", "news:x"}}));
  OpenAdd();
  Finish("news:y", "Y");
  ExpectSettled({ItemLine("X", "news:x"), ItemLine("Y", "news:y")});
  EXPECT_EQ(State(), (std::vector<RowState>{{"X", "0", "news:x"}, {"Y", "0", "news:y"}}));
}

TEST_F(WizardFinishTest, AddTouchesNoOtherByte) {
  const std::string menu = testing_menus::UserDefinedMenu({" " + kB, "no more"});
  WriteBytes(MenuPath(), testing_menus::UserDefinedMenu({kB}));
  ASSERT_TRUE(OpenLines({kB}));
  WriteBytes(MenuPath(), menu);
  OpenAdd();
  Finish("news:x", "X");
  // Another writer may have left the last line unended. It gets a line end first.
  EXPECT_EQ(MenuBytes(), menu + "\r\n" + ItemLine("X", "news:x"));
}

TEST_F(WizardFinishTest, TextsAreWrittenAsTheyStand) {
  const std::string name = "  say, " + testing_pages::ThisPage().bytes + "  ";
  ASSERT_TRUE(OpenLines({}));
  OpenAdd();
  Finish("http://x,y ", name, " -x, ", " ");
  ExpectSettled({ItemLine(name, "http://x,y ", " -x, ", " ")});
  EXPECT_EQ(Rows(), Texts{name});
}

TEST_F(WizardFinishTest, EditKeepsTheIconOfTheRecord) {
  ASSERT_TRUE(OpenLines({kB, kA, kSeparatorLine}));
  OpenEdit(1);
  Finish("ftp://example.org", "New name", "new arguments", "D:\\");
  ExpectClosed();
  ExpectSettled(
      {kB, ItemLine("New name", "ftp://example.org", "new arguments", "D:\\", "C:\\x.ico", "3"),
       kSeparatorLine});
  // The tag is still the old target, and the new one has no icon.
  EXPECT_EQ(State(), (std::vector<RowState>{{"Beta", "0", "C:\\b.exe"},
                                            {"New name", "0", "C:\\a.exe"},
                                            {kSeparatorRow, "0", ""}}));
  EXPECT_EQ(SelectedRow(), 1);
}

TEST_F(WizardFinishTest, EditOfTheFirstAndTheLastEntry) {
  ASSERT_TRUE(OpenLines({kA, kB, kC}));
  OpenEdit(0);
  Finish("news:first", "First");
  const std::string first = ItemLine("First", "news:first", "", "", "C:\\x.ico", "3");
  ExpectSettled({first, kB, kC});
  OpenEdit(2);
  Finish("news:last", "Last");
  ExpectSettled({first, kB, ItemLine("Last", "news:last", "", "", "", "2")});
  EXPECT_EQ(Rows(), (Texts{"First", "Beta", "Last"}));
}

TEST_F(WizardFinishTest, EditWithNothingChangedWritesTheSameBytes) {
  WriteBytes(PathOf("there"), "");
  const std::string line = ItemLine("Name", PathOf("there"), "-x", "C:\\", "C:\\x.ico", "-12");
  ASSERT_TRUE(OpenLines({kA, line}));
  OpenEdit(1);
  PressWizard(kNext);
  PressWizard(kFinish);
  ExpectClosed();
  ExpectSettled({kA, line});
}

TEST_F(WizardFinishTest, EditKeepsTheTypeLine) {
  ASSERT_TRUE(OpenLines({kB}));
  std::string menu = MenuBytes();
  menu.replace(menu.find("USERDEF"), 7, "OTHER");
  WriteBytes(MenuPath(), menu);
  OpenEdit(0);
  Finish("news:x", "Beta");
  menu.replace(menu.find("C:\\b.exe"), 8, "news:x");
  EXPECT_EQ(MenuBytes(), menu);
}

TEST_F(WizardFinishTest, EditMakesASeparatorAnEntry) {
  ASSERT_TRUE(OpenLines({kA, kSeparatorLine, kB}));
  OpenEdit(1);
  Finish("news:x", "No separator any more");
  ExpectSettled({kA, ItemLine("No separator any more", "news:x", "", "", "", ""), kB});
  EXPECT_EQ(Rows()[1], "No separator any more");
  EXPECT_EQ(HiddenTag(1), "");
}

TEST_F(WizardFinishTest, EditTakesTheIconOfTheNewTarget) {
  ASSERT_TRUE(OpenLines({IconLine("With", "C:\\old"), kB}));
  const std::string oldIcon = HiddenIcon(0);
  ASSERT_TRUE(IsIcon(oldIcon));
  OpenEdit(0);
  Finish(ThisProgram(), "With");
  // The icon file of the record stays, though the row shows the target's icon.
  ExpectSettled({IconLine("With", ThisProgram()), kB});
  EXPECT_FALSE(IsIcon(oldIcon));
  EXPECT_TRUE(IsIcon(HiddenIcon(0)));
  EXPECT_EQ(HiddenTag(0), "C:\\old");
}

TEST_F(WizardFinishTest, EditToATargetWithoutIconsShowsTheOldTarget) {
  WriteBytes(PathOf("plain.txt"), "");
  ASSERT_TRUE(OpenLines({IconLine("With", "C:\\windows")}));
  const std::string oldIcon = HiddenIcon(0);
  OpenEdit(0);
  Finish(PathOf("plain.txt"), "With");
  EXPECT_FALSE(IsIcon(oldIcon));
  EXPECT_EQ(State(), (std::vector<RowState>{{"With", "0", "C:\\windows"}}));
}

TEST_F(WizardFinishTest, DoubleQuotesAreWrittenAndCrashNothing) {
  const std::string quoted = "say \"hi\", \"";
  for (const int box : {0, 1, 2, 3}) {
    ASSERT_TRUE(OpenLines({kA, kB, kC}));
    std::string texts[4] = {"http://x", "Name", "arguments", "start"};
    texts[box] += quoted;
    OpenAdd();
    Finish(texts[0], texts[1], texts[2], texts[3]);
    ExpectSettled({kA, kB, kC, ItemLine(texts[1], texts[0], texts[2], texts[3])});
    EXPECT_EQ(Rows()[3], texts[1]);
    // No operation on this file crashes.
    for (const int button : {IDC_FORM2_COMMAND4, IDC_FORM2_COMMAND8, IDC_FORM2_COMMAND7}) {
      SelectRow(2);
      Press(button);
      EXPECT_FALSE(MenuBytes().empty());
    }
    SelectRow(0);
    Press(IDC_FORM2_COMMAND9);
    ExpectNoScratchFiles();
    EXPECT_TRUE(MenuBytes().starts_with(testing_menus::UserDefinedMenu({kSeparatorLine, kA})));
  }
}

TEST_F(WizardFinishTest, AnOldScratchFileGoesFirst) {
  for (const bool edits : {false, true}) {
    ASSERT_TRUE(OpenLines({kB}));
    WriteBytes(PathOf("zoltempfileoktodelete"), std::string(100000, 'x'));
    if (edits) {
      OpenEdit(0);
      Finish("news:x", "X");
      ExpectSettled({ItemLine("X", "news:x")});
    } else {
      OpenAdd();
      Finish("news:x", "X");
      ExpectSettled({kB, ItemLine("X", "news:x")});
    }
  }
}

TEST_F(WizardFinishTest, TheListScrollsSidewaysAsFarAsItsEntriesGo) {
  const auto extent = [this] {
    return SendMessageW(Control(IDC_FORM2_LIST1), LB_GETHORIZONTALEXTENT, 0, 0);
  };
  const std::string wideName(150, 'W');
  ASSERT_TRUE(OpenLines({kB}));
  const LRESULT narrow = extent();
  ASSERT_TRUE(OpenLines({ItemLine(wideName, "news:x"), kB}));
  const LRESULT wide = extent();
  RECT inside{};
  GetClientRect(Control(IDC_FORM2_LIST1), &inside);
  EXPECT_GT(narrow, 0);
  EXPECT_LT(narrow, inside.right);
  EXPECT_GT(wide, inside.right);
  EXPECT_NE(GetWindowLongW(Control(IDC_FORM2_LIST1), GWL_STYLE) & WS_HSCROLL, 0);
  OpenEdit(0);
  Finish("news:x", "X");
  EXPECT_EQ(extent(), narrow) << "renamed";
  OpenAdd();
  Finish("news:x", wideName);
  EXPECT_EQ(extent(), wide) << "added";
  Press(IDC_FORM2_COMMAND8);
  EXPECT_EQ(extent(), wide) << "another one moved";
  SelectRow(2);
  Press(IDC_FORM2_COMMAND7);
  EXPECT_EQ(extent(), narrow) << "deleted";
  WriteBytes(MenuPath(), testing_menus::UserDefinedMenu({ItemLine(wideName, "news:x"), kB}));
  SelectRow(1);
  Press(IDC_FORM2_COMMAND9);
  EXPECT_EQ(extent(), wide) << "read again";
  WriteBytes(MenuPath(), testing_menus::UserDefinedMenu({kB}));
  SelectRow(0);
  Press(IDC_FORM2_COMMAND9);
  EXPECT_EQ(extent(), narrow) << "read again without it";
}
