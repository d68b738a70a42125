// Tests how a user gets on after a change was interrupted while it wrote the menu file.
#include "menufile/changes.h"
#include "menufile/failure.h"
#include "tests/windows/faulty_files.h"
#include "tests/windows/form2_test_base.h"
#include "tests/windows/related_window.h"

using namespace testing_menus;

namespace {

const std::string kOne = ItemLine("One", "C:\\windows");  // which has an icon
const std::string kTwo = ItemLine("Two", "C:\\2");
const std::string kThree = ItemLine("Three", "C:\\windows\\system32");
const std::string kMenu = UserDefinedMenu({kOne, kTwo, kThree});

class InterruptedTest : public Form2Test {
 protected:
  // Interrupts a change after it has written that many bytes of `menu`.
  void CutShort(const menufile::MenuChange& change, const std::string& menu, std::size_t bytes) {
    WriteBytes(MenuPath(), menu);
    FaultyFiles full(windowsFiles);
    full.FillDiskOf("test.menu", bytes);
    menufile::MenuFile file(full, MenuPath());
    try {
      menufile::RewriteMenuFile(file, change);
    } catch (const menufile::Failure&) {
    }
    ASSERT_EQ(MenuBytes().size(), bytes);
  }

  void ExpectTheQuestion() {
    ExpectBoxes(answers.Shown().size(), "Query?",
                "The last change to the menu file was interrupted.\rWould you like to finish it?",
                {"Yes", "No"});
  }
};

}  // namespace

TEST_F(InterruptedTest, IsFinishedOnYes) {
  CutShort(menufile::Delete(1), kMenu, 50);
  answers.Answer({IDYES});
  ASSERT_TRUE(Load());
  ExpectTheQuestion();
  EXPECT_EQ(Rows(), (Texts{"One", "Three"}));
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({kOne, kThree}));
  EXPECT_FALSE(Exists(PathOf("temporaryfile")));
}

TEST_F(InterruptedTest, StaysOnNoAndIsAskedAgain) {
  const std::string newMenu = UserDefinedMenu({kOne});
  CutShort(menufile::MoveUp(2), kMenu, newMenu.size());
  const std::string scratch = ReadBytes(PathOf("temporaryfile"));
  for (int i = 0; i < 2; ++i) {
    answers.Answer({IDNO});
    ASSERT_TRUE(Load());
    ExpectTheQuestion();
    EXPECT_EQ(Rows(), Texts{"One"});
    EXPECT_EQ(MenuBytes(), newMenu);
    EXPECT_EQ(ReadBytes(PathOf("temporaryfile")), scratch);
  }
  // The next change keeps the declined scratch file under another name.
  SelectRow(0);
  Press(IDC_FORM2_COMMAND7);
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({}));
  EXPECT_EQ(ReadBytes(PathOf("temporaryfile-declined-1")), scratch);
  ASSERT_TRUE(Load());
  EXPECT_EQ(answers.Shown().size(), 2U);
}

TEST_F(InterruptedTest, AScratchFileWithoutAJournalAsksNothing) {
  for (const std::string& scratch : {std::string(), kMenu, kMenu.substr(0, kMenu.size() - 1),
                                     std::string("other"), kMenu + "\r\n"}) {
    WriteBytes(PathOf("temporaryfile"), scratch);
    WriteBytes(PathOf("zoltempfileoktodelete"), scratch);
    for (const std::string& menu : {kMenu, UserDefinedMenu({kOne})}) {
      ASSERT_TRUE(Open(menu));
      ASSERT_EQ(answers.Shown().size(), 0U) << scratch << answers.Shown()[0].text;
      EXPECT_EQ(MenuBytes(), menu);
      EXPECT_EQ(ReadBytes(PathOf("temporaryfile")), scratch);
    }
  }
}

// The next button finishes the change and does nothing else. The window then shows the
// present menu, on the page for its type.
TEST_F(InterruptedTest, IsFinishedByTheNextButtonWhichDoesNothingMore) {
  const struct {
    int failing;
    int next;
  } kCases[] = {
      {IDC_FORM2_COMMAND7, IDC_FORM2_COMMAND4},  {IDC_FORM2_COMMAND7, IDC_FORM2_COMMAND8},
      {IDC_FORM2_COMMAND7, IDC_FORM2_COMMAND7},  {IDC_FORM2_COMMAND4, IDC_FORM2_COMMAND9},
      {IDC_FORM2_COMMAND7, IDC_FORM2_COMMAND3},   // Edit
      {IDC_FORM2_COMMAND7, IDC_FORM2_COMMAND11},  // Change Icon
      {IDC_FORM2_COMMAND7, IDC_FORM2_COMMAND12},
  };
  for (const auto& [failing, next] : kCases) {
    SCOPED_TRACE(std::to_string(failing) + ", " + std::to_string(next));
    FaultyFiles faulty(windowsFiles);
    files = &faulty;
    ASSERT_TRUE(Open(kMenu));
    const std::string clear = form().iconic1().BitmapFile();
    SelectRow(1);
    faulty.FillDiskOf("test.menu", 40);
    Press(failing);
    EXPECT_EQ(MenuBytes().size(), 40U);
    faulty.limitedFile.clear();
    SelectRow(next == IDC_FORM2_COMMAND8 ? 0 : 1);
    ASSERT_NE(form().iconic1().BitmapFile(), clear);
    Press(next);
    const bool deleted = failing == IDC_FORM2_COMMAND7;
    EXPECT_EQ(MenuBytes(), UserDefinedMenu(deleted ? std::vector{kOne, kThree}
                                                   : std::vector{kTwo, kOne, kThree}));
    EXPECT_EQ(Rows(), deleted ? (Texts{"One", "Three"}) : (Texts{"Two", "One", "Three"}));
    EXPECT_EQ(SelectedRow(), -1);
    EXPECT_EQ(form().iconic1().BitmapFile(), clear);
    EXPECT_EQ(ThreadWindow("Form3"), nullptr);
    EXPECT_EQ(ThreadWindow("Form4"), nullptr);
    EXPECT_TRUE(IsWindowEnabled(form().window()));
    EXPECT_TRUE(answers.Shown().empty());
    EXPECT_FALSE(Exists(PathOf("temporaryfile")));
  }
}

TEST_F(InterruptedTest, ASwitchOfTheTypeIsFinishedOnItsPage) {
  FaultyFiles faulty(windowsFiles);
  files = &faulty;
  ASSERT_TRUE(Open(kMenu));
  faulty.FillDiskOf("test.menu", 40);
  answers.Answer({IDYES});
  Press(IDC_FORM2_COMMAND13);
  EXPECT_EQ(Rows().size(), 3U);
  faulty.limitedFile.clear();
  SelectRow(1);
  Press(IDC_FORM2_COMMAND7);
  EXPECT_EQ(MenuBytes(), DirectoryMenu("\"C:\\\",\"*.*\",1,0,0\r\n"));
  EXPECT_TRUE(Rows().empty());
  EXPECT_TRUE(IsVisible(IDC_FORM2_TEXT7));
  EXPECT_FALSE(IsVisible(IDC_FORM2_LIST1));
  EXPECT_EQ(Text(IDC_FORM2_TEXT7), "C:\\");
}

TEST_F(InterruptedTest, ClosingTheWindowFinishesItOrSaysThatItCouldNot) {
  for (const bool succeeds : {true, false}) {
    FaultyFiles faulty(windowsFiles);
    files = &faulty;
    ASSERT_TRUE(Open(kMenu));
    SelectRow(1);
    faulty.FillDiskOf("test.menu", 40);
    Press(IDC_FORM2_COMMAND7);
    if (succeeds) {
      faulty.limitedFile.clear();
    }
    Press(IDC_FORM2_COMMAND5);
    EXPECT_EQ(answers.Shown().size(), succeeds ? 0U : 1U);
    if (succeeds) {
      EXPECT_EQ(MenuBytes(), UserDefinedMenu({kOne, kThree}));
    } else {
      EXPECT_TRUE(answers.Shown()[0].text.ends_with("offer to finish it at its next start."));
      menufile::MenuFile next(windowsFiles, MenuPath());
      EXPECT_TRUE(next.WasCutShort());
    }
    EXPECT_TRUE(TakeQuit());
  }
}
