
#include "tests/windows/form4_test_base.h"

using testing_menus::ItemLine;

// Tests OK in the Select Icon window.
class Form4SaveTest : public Form4TestBase {
 protected:
  void ExpectWriteError(std::size_t boxes = 1) {
    ExpectBoxes(boxes, "Error!", "Error writing to file.");
    EXPECT_EQ(Form4(), nullptr);
    EXPECT_TRUE(IsEditorEnabled());
    EXPECT_EQ(ExitCode(), std::nullopt);
  }
};

TEST_F(Form4SaveTest, OkWritesFileAndIndexAndNothingElse) {
  OpenForItem(two, "0");
  const Texts rows = Rows();
  const std::vector<editor::HiddenRow> before = HiddenRows();
  ASSERT_TRUE(IsIcon(before[1].text));
  Choose(twelve);
  Scroll(bar(), SB_THUMBPOSITION, 9);
  PressOk();
  EXPECT_EQ(Form4(), nullptr);
  EXPECT_TRUE(IsEditorEnabled());
  EXPECT_EQ(MenuBytes(), Menu(Item(twelve, "9")));
  EXPECT_FALSE(Exists(scratch));
  EXPECT_TRUE(answers.Shown().empty());

  EXPECT_EQ(Rows(), rows);
  EXPECT_EQ(SelectedRow(), 1);
  const std::vector<editor::HiddenRow> after = HiddenRows();
  EXPECT_EQ(after[1].tag, before[1].tag);
  EXPECT_FALSE(IsIcon(before[1].text)) << "not released";
  EXPECT_TRUE(IsIcon(after[1].text)) << "released";
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), ShowingOnPage(colours[9]));
  for (const std::size_t row : {0U, 2U, 3U}) {
    EXPECT_EQ(after[row].text, before[row].text) << row;
  }
  SelectRow(0);
  SelectRow(1);
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), ShowingOnPage(colours[9]));
}

TEST_F(Form4SaveTest, OkWithoutAnyChangeKeepsFileAndIndexAndTheNumberOfAResource) {
  const std::pair<std::string, std::string> icons[] = {
      {two, "1"}, {twelve, "-7"}, {none, "-7"}, {PathOf("missing.dll"), "-7"}};
  for (const auto& [file, index] : icons) {
    OpenForItem(file, index);
    PressOk();
    EXPECT_EQ(MenuBytes(), Menu(Item(file, index)));
  }
  OpenForItem(twelve, "-7");
  PressOk();
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), ShowingOnPage(colours[6]));
}

TEST_F(Form4SaveTest, AnIconThatIsChosenReplacesTheNumberOfAResource) {
  OpenForItem(twelve, "-7");
  Scroll(bar(), SB_LINERIGHT);
  Scroll(bar(), SB_LINELEFT);
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(Item(twelve, "0")));
  OpenForItem(twelve, "-7");
  Choose(two);
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(Item(two, "0")));
}

TEST_F(Form4SaveTest, ABarMovedWithoutAMessageCounts) {
  OpenForItem(twelve, "-7");
  SendMessageW(bar(), SBM_SETPOS, 3, TRUE);
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(Item(twelve, "3")));
}

TEST_F(Form4SaveTest, EnterPressesOk) {
  OpenForItem(two, "1");
  PostMessageA(bar(), WM_KEYDOWN, VK_RETURN, 0);
  RunMessages();
  EXPECT_EQ(Form4(), nullptr);
  EXPECT_EQ(MenuBytes(), Menu(Item(two, "1")));
}

TEST_F(Form4SaveTest, OkOnAnEntryWithoutIconFileWritesItsTarget) {
  OpenForItem("", "");
  EXPECT_EQ(HiddenRows()[1].text, "0");
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(Item(one, "0")));
  EXPECT_TRUE(IsIcon(HiddenRows()[1].text));
}

TEST_F(Form4SaveTest, AFileThatIsTheCaptionIsWrittenAsNone) {
  OpenFor(Menu(ItemLine(two, one, "", "", two, "0")), 1);
  Scroll(bar(), SB_LINERIGHT);
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(ItemLine(two, one, "", "", "", "1")));
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), ShowingOnPage(colours[1]));
}

TEST_F(Form4SaveTest, TheCaptionIsComparedCaseSensitively) {
  const std::string otherCase = PathOf("TWO.DLL");
  OpenFor(Menu(ItemLine(otherCase, one, "", "", two, "0")), 1);
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(ItemLine(otherCase, one, "", "", two, "0")));
}

TEST_F(Form4SaveTest, OkOnAFileWithoutIconsLeavesTheRowWithoutOne) {
  OpenForItem(two, "1");
  Choose(none);
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(Item(none, "0")));
  EXPECT_EQ(HiddenRows()[1].text, "0");
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), std::vector<COLORREF>(Empty().size(), PageColour()));
}

TEST_F(Form4SaveTest, AMenuThatCannotBeWrittenIsAnErrorAndNothingChanges) {
  const std::string menu = Menu(Item(two, "1"));
  std::size_t boxes = 0;
  for (const Obstacle& obstacle : Obstacles()) {
    SCOPED_TRACE(obstacle.name);
    OpenFor(menu, 1);
    const std::string handle = HiddenRows()[1].text;
    obstacle.make();
    Choose(twelve);
    PressOk();
    obstacle.remove();
    ExpectWriteError(++boxes);
    EXPECT_EQ(MenuBytes(), menu);
    EXPECT_EQ(HiddenRows()[1].text, handle);
    EXPECT_TRUE(IsIcon(handle));
  }
}

TEST_F(Form4SaveTest, AMenuThatIsGoneIsAnError) {
  OpenForItem(two, "1");
  ASSERT_TRUE(DeleteFileA(MenuPath().c_str()));
  PressOk();
  ExpectWriteError();
  EXPECT_FALSE(Exists(MenuPath()));
}

TEST_F(Form4SaveTest, AMenuCutShortIsAnErrorAndKeepsItsBytes) {
  const std::string menu = Menu(Item(two, "1"));
  OpenFor(menu, 1);
  const std::string cut = menu.substr(0, menu.size() - 10);
  WriteBytes(MenuPath(), cut);
  PressOk();
  ExpectWriteError();
  EXPECT_EQ(MenuBytes(), cut);
}
