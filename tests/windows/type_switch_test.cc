#include <stdexcept>

#include "tests/windows/directory_test_base.h"

using namespace testing_menus;

namespace {

constexpr const char* kDefaultLine = "\"C:\\\",\"*.*\",1,0,0\r\n";

// Tests both buttons "Change Menu Type".
class TypeSwitchTest : public DirectoryTest {
 protected:
  void ExpectNoScratchFiles() {
    EXPECT_FALSE(Exists(PathOf("temporaryfile")));
    EXPECT_FALSE(Exists(PathOf("zoltempfileoktodelete")));
  }
  void ExpectOneQuestion() { ExpectBoxes(1, "Query?", kQuestion, {"Yes", "No"}); }

  const std::string someEntries = UserDefinedMenu(
      {ItemLine("One", "C:\\one.exe"), kSeparatorLine,
       ItemLine("Two", "C:\\windows", "", "", "C:\\windows\\system32\\shell32.dll", "3")});
};

TEST_F(TypeSwitchTest, HappensAfterAYesAlone) {
  const std::string pointer = DirectoryMenu(Line("K:\\", "*.txt", "0,1,1"));
  const struct {
    int button;
    std::string before;
    std::string after;
  } switches[] = {{IDC_FORM2_COMMAND13, someEntries, DirectoryMenu(kDefaultLine)},
                  {IDC_FORM2_COMMAND14, pointer, UserDefinedMenu({})}};
  std::size_t questions = 0;
  for (const auto& [button, before, after] : switches) {
    for (const bool yes : {false, true}) {
      SCOPED_TRACE(std::to_string(button) + (yes ? ", Yes" : ", No"));
      answers.Answer({yes ? IDYES : IDNO});
      ASSERT_TRUE(Open(before));
      SelectRow(2);
      const Texts rows = Rows();
      const int selected = SelectedRow();
      const std::string icon = rows.empty() ? "" : form().items().Hidden(2).text;
      Press(button);
      ExpectBoxes(++questions, "Query?", kQuestion, {"Yes", "No"});
      ExpectNoScratchFiles();
      EXPECT_EQ(MenuBytes(), yes ? after : before);
      EXPECT_EQ(ShowsDirectoryPage(), (button == IDC_FORM2_COMMAND13) == yes);
      if (yes) {
        EXPECT_TRUE(Rows().empty());
        continue;
      }
      EXPECT_EQ(Rows(), rows);
      EXPECT_EQ(SelectedRow(), selected);
      if (!rows.empty()) {
        EXPECT_EQ(form().items().Hidden(2).text, icon);
      } else {
        ExpectPage({.path = "K:\\", .pattern = "*.txt", .checks = "011"});
      }
    }
  }
}

TEST_F(TypeSwitchTest, ToADirectoryPointerEmptiesTheHiddenRowsButTheFirst) {
  answers.Answer({IDYES});
  ASSERT_TRUE(Open(UserDefinedMenu(
      {ItemLine("Two", "C:\\windows", "", "", "C:\\windows\\system32\\shell32.dll", "3"),
       ItemLine("One", "C:\\one.exe")})));
  EXPECT_NE(form().items().Hidden(0).text, "");
  Press(IDC_FORM2_COMMAND13);
  EXPECT_EQ(form().items().Hidden(0).text, "");
  EXPECT_EQ(form().items().Hidden(0).tag, "C:\\windows");
  EXPECT_THROW(form().items().Hidden(1), std::out_of_range);
}

TEST_F(TypeSwitchTest, BothQuestionsBelongToTheWindow) {
  answers.Answer({IDNO, IDNO});
  for (const auto& [menu, button] : {std::pair{someEntries, IDC_FORM2_COMMAND13},
                                     std::pair{DirectoryMenu(Line("C:\\")), IDC_FORM2_COMMAND14}}) {
    ASSERT_TRUE(Open(menu));
    ShowWindow(form().window(), SW_SHOW);
    Press(button);
    ASSERT_FALSE(answers.Shown().empty());
    EXPECT_EQ(answers.Shown().back().owner, form().window());
  }
}

TEST_F(TypeSwitchTest, OneEntryIsEnoughForTheQuestion) {
  answers.Answer({IDNO});
  ASSERT_TRUE(Open(UserDefinedMenu({kSeparatorLine})));
  Press(IDC_FORM2_COMMAND13);
  ExpectOneQuestion();
}

TEST_F(TypeSwitchTest, AnEmptyListIsSwitchedWithoutAQuestion) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  Press(IDC_FORM2_COMMAND13);
  EXPECT_TRUE(answers.Shown().empty());
  EXPECT_EQ(MenuBytes(), DirectoryMenu(kDefaultLine));
  EXPECT_TRUE(ShowsDirectoryPage());
  EXPECT_EQ(form().items().Hidden(0).text, "");
}

TEST_F(TypeSwitchTest, BothWaysKeepPictureAndAppearance) {
  const std::string picture =
      std::string("\0<\r\n<START ZOL> \r\n\xFF<", 20) + std::string(3000, '<');
  const std::string appearance = "1,\"Courier New\",10.5,-1,-1\r\n";
  answers.Answer({IDYES, IDYES});
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("One", "C:\\one.exe")}, appearance, picture)));
  Press(IDC_FORM2_COMMAND13);
  EXPECT_EQ(MenuBytes(), DirectoryMenu(kDefaultLine, appearance, picture));
  Type(IDC_FORM2_TEXT7, "C:\\");
  Press(IDC_FORM2_COMMAND14);
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({}, appearance, picture));
  EXPECT_EQ(answers.Shown().size(), 2U);
}

// The page is not loaded from the file, which holds the defaults by then.
TEST_F(TypeSwitchTest, ThePageShowsWhatItShowedBefore) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  Press(IDC_FORM2_COMMAND13);
  ExpectPage({.drive = folder().substr(0, 2),
              .list = folder(),
              .path = folder() + "\\",
              .pattern = "",
              .checks = "000"});
  EXPECT_EQ(MenuBytes(), DirectoryMenu(kDefaultLine));
  // The next save writes what the page shows.
  Type(IDC_FORM2_TEXT8, "*.txt");
  PressKey(IDC_FORM2_DIR1, VK_RETURN);
  Press(IDC_FORM2_COMMAND15);
  EXPECT_EQ(MenuBytes(), DirectoryMenu(Line(folder() + "\\", "*.txt", "0,0,0")));
}

TEST_F(TypeSwitchTest, ThereAndBackThePageStillShowsTheLoadedFolder) {
  Make("sub");
  answers.Answer({IDYES});
  ASSERT_TRUE(Open(DirectoryMenu(Line(PathOf("sub"), "*.exe", "0,1,0"))));
  Press(IDC_FORM2_COMMAND14);
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({}));
  Press(IDC_FORM2_COMMAND13);
  EXPECT_EQ(answers.Shown().size(), 1U);
  EXPECT_EQ(MenuBytes(), DirectoryMenu(kDefaultLine));
  ExpectPage({.list = PathOf("sub"), .path = PathOf("sub\\"), .pattern = "*.exe", .checks = "001"});
}

TEST_F(TypeSwitchTest, AnEmptyPathIsSwitchedWithoutAQuestion) {
  ASSERT_TRUE(Open(DirectoryMenu(Line("", "*.*"))));
  ASSERT_EQ(Path(), "");
  Press(IDC_FORM2_COMMAND14);
  EXPECT_TRUE(answers.Shown().empty());
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({}));
  EXPECT_FALSE(ShowsDirectoryPage());
}

TEST_F(TypeSwitchTest, AnEmptiedPathIsABackslashAndIsAskedAbout) {
  answers.Answer({IDNO});
  ASSERT_TRUE(Open(DirectoryMenu(Line("C:\\"))));
  Type(IDC_FORM2_TEXT7, "");
  Press(IDC_FORM2_COMMAND14);
  ExpectOneQuestion();
}

TEST_F(TypeSwitchTest, WhatWasSwitchedLoadsAgain) {
  answers.Answer({IDYES});
  ASSERT_TRUE(Open(someEntries));
  Press(IDC_FORM2_COMMAND13);
  ASSERT_TRUE(Open(MenuBytes()));
  EXPECT_TRUE(ShowsDirectoryPage());
  ExpectPage({.path = "C:\\", .pattern = "*.*", .checks = "100"});
  answers.Answer({IDYES});
  Press(IDC_FORM2_COMMAND14);
  ASSERT_TRUE(Open(MenuBytes()));
  EXPECT_FALSE(ShowsDirectoryPage());
  EXPECT_TRUE(Rows().empty());
}

TEST_F(TypeSwitchTest, TheNewPageStaysThroughAChangeOfTabs) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  Press(IDC_FORM2_COMMAND13);
  SelectTab(1);
  EXPECT_FALSE(IsVisible(IDC_FORM2_FRAME3));
  EXPECT_FALSE(IsVisible(IDC_FORM2_FRAME4));
  SelectTab(0);
  EXPECT_TRUE(ShowsDirectoryPage());
}

TEST_F(TypeSwitchTest, TheKeyboardGoesOnAtTheButtonInTheSamePlace) {
  answers.Answer({IDYES});
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  ShowWindow(form().window(), SW_SHOW);
  RunMessages();
  SetFocus(Control(IDC_FORM2_COMMAND13));
  Press(IDC_FORM2_COMMAND13);
  EXPECT_EQ(GetFocus(), Control(IDC_FORM2_COMMAND14));
  Type(IDC_FORM2_TEXT7, "C:\\");
  Press(IDC_FORM2_COMMAND14);
  EXPECT_EQ(GetFocus(), Control(IDC_FORM2_COMMAND13));
}

}  // namespace
