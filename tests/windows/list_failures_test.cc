
#include "tests/windows/faulty_files.h"
#include "tests/windows/wizard_test_base.h"

using namespace testing_menus;

namespace {

const std::string kA = ItemLine("Alpha", "C:\\a.exe", "-a", "C:\\");
const std::string kB = ItemLine("Beta", "C:\\windows\\notepad.exe", "", "", "C:\\x.ico", "7");
const std::string kC = ItemLine("Gamma", "C:\\c.exe");

// A button that works on the selected row, and the rows afterwards. The menu had Alpha,
// Beta and Gamma, with Beta selected.
struct ListOperation {
  int button;
  Texts rows;
  int selected;
};

const std::vector<ListOperation> kListOperations = {
    {IDC_FORM2_COMMAND4, {"Beta", "Alpha", "Gamma"}, 0},
    {IDC_FORM2_COMMAND8, {"Alpha", "Gamma", "Beta"}, 2},
    {IDC_FORM2_COMMAND7, {"Alpha", "Gamma"}, -1},
};

// After a rewrite that failed, Separator shows the file.
const ListOperation kSeparator{IDC_FORM2_COMMAND9, {"Alpha", "Beta", "Gamma"}, -1};

}  // namespace

class ListFailuresTest : public WizardTestBase {
 protected:
  ListFailuresTest() { files = &faulty; }

  // Expects that the list operations show no message, change the window and keep the
  // file's bytes, while the menu file cannot be changed.
  void ExpectListOperationsIgnore(const std::function<void()>& breakIt,
                                  const std::function<void()>& mendIt) {
    std::vector<ListOperation> operations = kListOperations;
    operations.push_back(kSeparator);
    for (const ListOperation& operation : operations) {
      SCOPED_TRACE(operation.button);
      ASSERT_TRUE(OpenLines({kA, kB, kC}));
      SelectRow(1);
      breakIt();
      Press(operation.button);
      mendIt();
      EXPECT_EQ(MenuBytes(), testing_menus::UserDefinedMenu({kA, kB, kC}));
      EXPECT_EQ(Rows(), operation.rows);
      EXPECT_EQ(SelectedRow(), operation.selected);
      EXPECT_TRUE(answers.Shown().empty());
      EXPECT_TRUE(IsWindowEnabled(form().window()));
      EXPECT_EQ(PreviewIsClear(), operation.selected < 0);
    }
  }

  // Expects that Finish shows no message and stays on its second page, and that file and
  // list stay the same. After the cause is removed, Finish works.
  void ExpectFinishStops(bool edits, const std::function<void()>& breakIt,
                         const std::function<void()>& mendIt) {
    SCOPED_TRACE(edits ? "edit" : "add");
    ASSERT_TRUE(OpenLines({kA, kB, kC}));
    ShowWindow(form().window(), SW_SHOW);
    const std::vector<RowState> before = State();
    OpenWizard(edits, 1);
    breakIt();
    Finish("news:x", "New");
    mendIt();
    ExpectNamePage();
    EXPECT_EQ(WizardText(kName), "New");
    EXPECT_TRUE(answers.Shown().empty());
    EXPECT_FALSE(IsWindowEnabled(form().window()));
    EXPECT_EQ(MenuBytes(), testing_menus::UserDefinedMenu({kA, kB, kC}));
    EXPECT_EQ(State(), before);
    PressWizard(kFinish);
    ExpectClosed();
    if (edits) {
      ExpectSettled({kA, ItemLine("New", "news:x", "", "", "C:\\x.ico", "7"), kC});
    } else {
      ExpectSettled({kA, kB, kC, ItemLine("New", "news:x")});
    }
  }

  // The same, but then the user cancels.
  void ExpectCancelAfterFailure(const std::function<void()>& breakIt,
                                const std::function<void()>& mendIt) {
    ASSERT_TRUE(OpenLines({kA, kB, kC}));
    ShowWindow(form().window(), SW_SHOW);
    OpenEdit(1);
    breakIt();
    Finish("news:x", "New");
    PostMessageA(Wizard(), WM_CLOSE, 0, 0);
    RunMessages();
    ExpectClosed();
    mendIt();
    ExpectSettled({kA, kB, kC});
    EXPECT_EQ(Rows(), (Texts{"Alpha", "Beta", "Gamma"}));
  }

  FaultyFiles faulty{windowsFiles};
};

TEST_F(ListFailuresTest, AMenuOrAScratchFileThatCannotBeWritten) {
  std::vector<Obstacle> obstacles = Obstacles();
  obstacles.push_back({"a menu file that cannot be opened to write",
                       [this] { faulty.unwritable = {"test.menu"}; },
                       [this] { faulty.unwritable.clear(); }});
  obstacles.push_back({"a current folder that takes no file",
                       [] {
                         ASSERT_TRUE(SetCurrentDirectoryA("Z:\\proc"));
                         const HANDLE made =
                             CreateFileA("temporaryfile", GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                         FILE_FLAG_DELETE_ON_CLOSE, nullptr);
                         ASSERT_EQ(made, INVALID_HANDLE_VALUE) << "it can be written after all";
                       },
                       [this] { ASSERT_TRUE(SetCurrentDirectoryA(folder().c_str())); }, false});
  for (const Obstacle& obstacle : obstacles) {
    SCOPED_TRACE(obstacle.name);
    ExpectListOperationsIgnore(obstacle.make, obstacle.remove);
    ExpectFinishStops(true, obstacle.make, obstacle.remove);
    ExpectCancelAfterFailure(obstacle.make, obstacle.remove);
    if (obstacle.stopsAdding) {
      ExpectFinishStops(false, obstacle.make, obstacle.remove);
    } else {
      ASSERT_TRUE(OpenLines({kA}));
      ShowWindow(form().window(), SW_SHOW);
      obstacle.make();
      OpenAdd();
      Finish("news:x", "New");
      ExpectClosed();
      obstacle.remove();
      ExpectSettled({kA, ItemLine("New", "news:x")});
    }
  }
}

TEST_F(ListFailuresTest, AMenuFileThatIsGone) {
  for (const ListOperation& operation : kListOperations) {
    SCOPED_TRACE(operation.button);
    ASSERT_TRUE(OpenLines({kA, kB, kC}));
    SelectRow(1);
    DeleteFileA(MenuPath().c_str());
    Press(operation.button);
    EXPECT_FALSE(Exists(MenuPath()));
    ExpectNoScratchFiles();
    EXPECT_EQ(Rows(), operation.rows);
    EXPECT_EQ(SelectedRow(), operation.selected);
    EXPECT_TRUE(answers.Shown().empty());
  }
}

TEST_F(ListFailuresTest, SeparatorWithTheMenuFileGoneShowsAnEmptyList) {
  ASSERT_TRUE(OpenLines({kA, kB, kC}));
  SelectRow(1);
  DeleteFileA(MenuPath().c_str());
  Press(kSeparator.button);
  EXPECT_FALSE(Exists(MenuPath()));
  ExpectNoScratchFiles();
  EXPECT_TRUE(Rows().empty());
  EXPECT_TRUE(PreviewIsClear());
  EXPECT_TRUE(answers.Shown().empty());
  EXPECT_TRUE(IsWindow(form().window()));
}

TEST_F(ListFailuresTest, FinishWithTheMenuFileGoneMakesNone) {
  for (const bool edits : {false, true}) {
    ASSERT_TRUE(OpenLines({kA, kB, kC}));
    OpenWizard(edits, 1);
    DeleteFileA(MenuPath().c_str());
    Finish("news:x", "New");
    ExpectNamePage();
    EXPECT_FALSE(Exists(MenuPath()));
    ExpectNoScratchFiles();
    EXPECT_EQ(Rows().size(), 3U);
    EXPECT_TRUE(answers.Shown().empty());
    PressWizard(kCancel);
  }
}

// Edit and Change Icon read the menu file first.
TEST_F(ListFailuresTest, AnEntryThatCannotBeReadIsNamedAndTheProgramGoesOn) {
  const std::function<void()> lacksTheEntry = [this] {
    WriteBytes(MenuPath(), testing_menus::UserDefinedMenu({kA}));
  };
  const std::function<void()> isGone = [this] { DeleteFileA(MenuPath().c_str()); };
  const std::pair<std::function<void()>, std::string> cases[] = {
      {lacksTheEntry, "Cannot read entry 2, field caption"},
      {isGone, "Cannot open the file:\n" + MenuPath()}};
  for (const auto& [breakIt, message] : cases) {
    for (const int button : {IDC_FORM2_COMMAND3, IDC_FORM2_COMMAND11}) {
      SCOPED_TRACE(button);
      ASSERT_TRUE(OpenLines({kA, kB}));
      ShowWindow(form().window(), SW_SHOW);
      const std::size_t shown = answers.Shown().size();
      SelectRow(1);
      breakIt();
      Press(button);
      ASSERT_EQ(answers.Shown().size(), shown + 1);
      EXPECT_EQ(answers.Shown().back().title, "Error!");
      EXPECT_TRUE(answers.Shown().back().text.starts_with(message));
      EXPECT_NE(answers.Shown().back().text.find(MenuPath()), std::string::npos);
      EXPECT_EQ(answers.Shown().back().owner, form().window());
      EXPECT_EQ(GetWindow(form().window(), GW_ENABLEDPOPUP), nullptr) << "a child is open";
      EXPECT_EQ(Wizard(), nullptr);
      EXPECT_TRUE(IsWindowEnabled(form().window()));
      EXPECT_FALSE(TakeQuit());
      // The next time the file is there again.
      WriteBytes(MenuPath(), testing_menus::UserDefinedMenu({kA, kB}));
      Press(button);
      EXPECT_FALSE(IsWindowEnabled(form().window()));
    }
  }
}

// The disk gets full while the menu file is being written. The scratch file is then the
// only complete copy, and nothing may delete it.
TEST_F(ListFailuresTest, ADiskThatGetsFullInFinishLosesNothing) {
  ASSERT_TRUE(OpenLines({kA, kB, kC}));
  OpenEdit(1);
  faulty.FillDiskOf("test.menu", 30);
  Finish("news:x", "New");
  ExpectNamePage();
  EXPECT_EQ(MenuBytes().size(), 30U);
  const Texts changed{kA, ItemLine("New", "news:x", "", "", "C:\\x.ico", "7"), kC};
  // Press again, first on the full disk, then with free space.
  PressWizard(kFinish);
  ExpectNamePage();
  EXPECT_TRUE(menufile::MenuFile(windowsFiles, MenuPath()).WasCutShort());
  faulty.limitedFile.clear();
  PressWizard(kFinish);
  ExpectClosed();
  ExpectSettled(changed);
}

TEST_F(ListFailuresTest, ADiskThatGetsFullInAListOperationLosesNothing) {
  for (const ListOperation& operation : kListOperations) {
    SCOPED_TRACE(operation.button);
    ASSERT_TRUE(OpenLines({kA, kB, kC}));
    SelectRow(1);
    faulty.FillDiskOf("test.menu", 40);
    Press(operation.button);
    EXPECT_EQ(Rows(), operation.rows);
    EXPECT_EQ(MenuBytes().size(), 40U);
    faulty.limitedFile.clear();
    // The next press only finishes that change.
    SelectRow(0);
    Press(IDC_FORM2_COMMAND8);
    EXPECT_EQ(Rows(), operation.rows);
    EXPECT_EQ(SelectedRow(), -1);
    Texts expected;
    for (const std::string& row : Rows()) {
      expected.push_back(row == "Alpha" ? kA : row == "Beta" ? kB : kC);
    }
    ExpectSettled(expected);
  }
}

TEST_F(ListFailuresTest, ADiskThatGetsFullInSeparatorLosesNothing) {
  ASSERT_TRUE(OpenLines({kA, kB}));
  SelectRow(1);
  faulty.FillDiskOf("test.menu", 10);
  Press(kSeparator.button);
  // There is no question whether to convert the cut file.
  EXPECT_TRUE(answers.Shown().empty());
  EXPECT_TRUE(Rows().empty());
  faulty.limitedFile.clear();
  OpenAdd();
  Finish("news:x", "X");
  // The list shows the menu again, still without the new entry.
  ExpectNamePage();
  EXPECT_EQ(Rows().size(), 3U);
  PressWizard(kFinish);
  ExpectSettled({kA, kSeparatorLine, kB, ItemLine("X", "news:x")});
}

TEST_F(ListFailuresTest, HalfAnAddedLineIsTakenBack) {
  ASSERT_TRUE(OpenLines({kA}));
  OpenAdd();
  faulty.FillDiskOf("test.menu", 5);
  Finish("news:x", "X");
  ExpectNamePage();
  EXPECT_EQ(MenuBytes(), testing_menus::UserDefinedMenu({kA}));
  EXPECT_EQ(Rows(), Texts{"Alpha"});
}
