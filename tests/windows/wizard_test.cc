

#include "tests/windows/message_watch.h"
#include "tests/windows/wizard_test_base.h"

using namespace testing_menus;

namespace {

const std::string kA = ItemLine("Alpha", "C:\\a.exe", "-a ", "C:\\", "C:\\x.ico", "3");

}  // namespace

class WizardTest : public WizardTestBase {
 protected:
  void SetUp() override {
    ASSERT_TRUE(OpenLines({kA, kSeparatorLine}));
    ShowWindow(form().window(), SW_SHOW);
    RunMessages();
  }
};

TEST_F(WizardTest, OpensEmptyOnItsFirstPage) {
  OpenAdd();
  ExpectTargetPage(kNext);
  EXPECT_EQ(WindowBytes(Wizard()), "New Shortcut");
  EXPECT_EQ(Boxes(), Texts(4));
  EXPECT_FALSE(IsWizardEnabled(kNext));
  EXPECT_EQ(DrawnAsDefault(), std::vector<int>{kNext});
  ExpectFront(Wizard());
  EXPECT_EQ(GetFocus(), WizardControl(kTarget));
  EXPECT_FALSE(IsWindowEnabled(form().window()));
}

TEST_F(WizardTest, HasItsCaptions) {
  OpenAdd();
  EXPECT_EQ(WizardText(IDC_FORM3_COMMAND3), "Browse...");
  EXPECT_EQ(WizardText(IDC_FORM3_LABEL2), "Additional Command Line Arguments");
  EXPECT_EQ(WizardText(IDC_FORM3_LABEL3), "Start in");
  EXPECT_EQ(WizardText(kNext), "Next >");
  EXPECT_EQ(WizardText(kBack), "< Back");
  EXPECT_EQ(WizardText(kFinish), "Finish");
  EXPECT_EQ(WizardText(kCancel), "Cancel");
  RECT next{};
  RECT finish{};
  GetWindowRect(WizardControl(kNext), &next);
  GetWindowRect(WizardControl(kFinish), &finish);
  EXPECT_TRUE(EqualRect(&next, &finish));
}

TEST_F(WizardTest, ItsPictureFillsItsPlace) {
  OpenAdd();
  const HWND picture = WizardControl(IDC_FORM3_PICTURE1);
  const auto bitmap =
      reinterpret_cast<HBITMAP>(SendMessageA(picture, STM_GETIMAGE, IMAGE_BITMAP, 0));
  ASSERT_NE(bitmap, nullptr);
  BITMAP info{};
  GetObjectA(bitmap, sizeof info, &info);
  RECT area{};
  GetClientRect(picture, &area);
  EXPECT_EQ(info.bmWidth, area.right);
  EXPECT_EQ(info.bmHeight, area.bottom);
  EXPECT_GT(area.bottom, 100);
}

TEST_F(WizardTest, NextIsEnabledWhileThereIsATarget) {
  OpenAdd();
  TypeWizard(kTarget, "x");
  EXPECT_TRUE(IsWizardEnabled(kNext));
  TypeWizard(kTarget, "");
  EXPECT_FALSE(IsWizardEnabled(kNext));
  // Type the first character with a real key.
  SendMessageA(WizardControl(kTarget), WM_CHAR, 'q', 1);
  EXPECT_TRUE(IsWizardEnabled(kNext));
  EXPECT_EQ(DefaultButton(), kNext);
}

TEST_F(WizardTest, NextShowsTheNamePage) {
  OpenAdd();
  TypeWizard(kTarget, "mailto:someone@example.org");
  TypeWizard(kArguments, "some arguments");
  TypeWizard(kStartIn, "C:\\start");
  PressWizard(kNext);
  ExpectNamePage();
  EXPECT_EQ(DrawnAsDefault(), std::vector<int>{kFinish});
  ExpectFront(Wizard());
  EXPECT_EQ(GetFocus(), WizardControl(kName));
  TypeWizard(kName, "Someone");
  EXPECT_TRUE(IsWizardEnabled(kFinish));
  TypeWizard(kName, "");
  EXPECT_FALSE(IsWizardEnabled(kFinish));
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(WizardTest, BackKeepsTheTextsAndHasNoDefaultButton) {
  OpenAdd();
  TypeWizard(kTarget, "news:one");
  TypeWizard(kArguments, "two");
  TypeWizard(kStartIn, "three");
  PressWizard(kNext);
  TypeWizard(kName, "four");
  PressWizard(kBack);
  ExpectTargetPage(0);
  EXPECT_EQ(DrawnAsDefault(), std::vector<int>{});
  ExpectFront(Wizard());
  EXPECT_EQ(GetFocus(), WizardControl(kTarget));
  EXPECT_EQ(Boxes(), (Texts{"news:one", "two", "three", "four"}));
  // Typing, or moving the focus to a box, does not make a default button either.
  TypeWizard(kTarget, "news:other");
  SendMessageA(Wizard(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(WizardControl(kStartIn)), TRUE);
  EXPECT_EQ(DefaultButton(), 0);
  Key(WizardControl(kStartIn), VK_RETURN);
  ExpectTargetPage(0);
  // Next works again.
  PressWizard(kNext);
  ExpectNamePage();
  EXPECT_EQ(DrawnAsDefault(), std::vector<int>{kFinish});
}

TEST_F(WizardTest, BackWithAnEmptyNameEnablesFinishAllTheSame) {
  OpenAdd();
  Next("news:one");
  TypeWizard(kName, "");
  ASSERT_FALSE(IsWizardEnabled(kFinish));
  PressWizard(kBack);
  EXPECT_TRUE(IsWizardEnabled(kFinish));
  PressWizard(kNext);
  EXPECT_FALSE(IsWizardEnabled(kFinish));
}

TEST_F(WizardTest, EnterPressesNextAndThenFinish) {
  WriteBytes(PathOf("thing.txt"), "");
  OpenAdd();
  Key(WizardControl(kTarget), VK_RETURN);  // still disabled
  ExpectTargetPage(kNext);
  TypeWizard(kTarget, PathOf("thing.txt"));
  Key(WizardControl(kTarget), VK_RETURN);
  ExpectNamePage();
  Key(WizardControl(kName), VK_RETURN);
  ExpectClosed();
  ExpectSettled({kA, kSeparatorLine, ItemLine("thing.txt", PathOf("thing.txt"))});
}

TEST_F(WizardTest, EveryWayOutGivesTheEditorBackAndWritesNothing) {
  const std::string menu = MenuBytes();
  const auto closeBox = [this] {
    PostMessageA(Wizard(), WM_SYSCOMMAND, SC_CLOSE, 0);
    RunMessages();
  };
  const std::vector<std::function<void()>> waysOut = {
      [this] { PressWizard(kCancel); },
      closeBox,
      [this] { Key(WizardControl(kTarget), VK_ESCAPE); },
      [this] {
        Next("news:x");
        PressWizard(kCancel);
      },
      [this] {
        Next("news:x");
        Key(WizardControl(kName), VK_ESCAPE);
      },
      [this, closeBox] {
        Next("news:x");
        PressWizard(kBack);
        closeBox();
      },
  };
  for (std::size_t way = 0; way < waysOut.size(); ++way) {
    SCOPED_TRACE(way);
    OpenAdd();
    ASSERT_FALSE(IsWindowEnabled(form().window()));
    waysOut[way]();
    ExpectClosed();
    OpenEdit(0);
    ASSERT_FALSE(IsWindowEnabled(form().window()));
    waysOut[way]();
    ExpectClosed();
    EXPECT_EQ(MenuBytes(), menu);
    EXPECT_EQ(Rows(), (Texts{"Alpha", kSeparatorRow}));
    EXPECT_EQ(SelectedRow(), 0);
  }
}

// Otherwise Windows would activate another program's window when the wizard closes.
TEST_F(WizardTest, TheEditorIsEnabledBeforeTheWizardGoes) {
  OpenAdd();
  std::optional<bool> enabled;
  const MessageWatch watch(Wizard(), [&](UINT message, WPARAM) {
    if (message == WM_DESTROY) {
      enabled = IsWindowEnabled(form().window()) != FALSE;
    }
  });
  PressWizard(kCancel);
  EXPECT_EQ(enabled, true);
}

TEST_F(WizardTest, CancelAfterAFinishThatFailedGivesTheEditorBack) {
  for (const bool edits : {false, true}) {
    OpenWizard(edits, 0);
    MakeReadOnly(MenuPath());
    Finish("news:x", "X");
    MakeWritable(MenuPath());
    ExpectNamePage();
    EXPECT_FALSE(IsWindowEnabled(form().window()));
    PressWizard(kCancel);
    ExpectClosed();
    EXPECT_EQ(Rows(), (Texts{"Alpha", kSeparatorRow}));
  }
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(WizardTest, EachOpeningStartsAnew) {
  OpenEdit(0);
  Next("news:edited");
  PressWizard(kCancel);
  OpenAdd();
  ExpectTargetPage(kNext);
  EXPECT_EQ(Boxes(), Texts(4));
  Finish("news:new", "New");
  // It is not an edit of entry 0.
  ExpectSettled({kA, kSeparatorLine, ItemLine("New", "news:new")});
}

TEST_F(WizardTest, NextProposesTheShellsNameOrNoneEachTimeInAddMode) {
  WriteBytes(PathOf("thing.txt"), "");
  const std::pair<std::string, std::string> targets[] = {{PathOf("thing.txt"), "thing.txt"},
                                                         {"gopher://example.org/1", ""}};
  for (const auto& [target, name] : targets) {
    OpenAdd();
    Next(target);
    EXPECT_EQ(WizardText(kName), name);
    TypeWizard(kName, "My own name");
    PressWizard(kBack);
    PressWizard(kNext);
    EXPECT_EQ(WizardText(kName), name);
    EXPECT_EQ(IsWizardEnabled(kFinish), !name.empty());
    PressWizard(kCancel);
  }
}

TEST_F(WizardTest, EditFillsTheBoxesAndKeepsTheName) {
  WriteBytes(PathOf("thing.txt"), "");
  OpenEdit(0);
  ExpectTargetPage(kNext);
  EXPECT_EQ(Boxes(), (Texts{"C:\\a.exe", "-a ", "C:\\", "Alpha"}));
  EXPECT_TRUE(IsWizardEnabled(kNext));
  Next(PathOf("thing.txt"));
  ExpectNamePage();
  EXPECT_EQ(WizardText(kName), "Alpha");
  TypeWizard(kName, "Changed");
  PressWizard(kBack);
  PressWizard(kNext);
  EXPECT_EQ(WizardText(kName), "Changed");
}

TEST_F(WizardTest, EditOfASeparatorIsEmpty) {
  OpenEdit(1);
  ExpectTargetPage(kNext);
  EXPECT_EQ(Boxes(), Texts(4));
  EXPECT_FALSE(IsWizardEnabled(kNext));
  // The wizard asks for a name, as for every other entry.
  Next("news:x");
  ExpectNamePage();
  EXPECT_FALSE(IsWizardEnabled(kFinish));
}

TEST_F(WizardTest, EditWithoutASelectionDoesNothing) {
  Press(IDC_FORM2_COMMAND3);
  EXPECT_EQ(Wizard(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(form().window()));
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(WizardTest, ClosingTheEditorClosesTheWizard) {
  OpenAdd();
  SendMessageA(form().window(), WM_CLOSE, 0, 0);
  EXPECT_EQ(Wizard(), nullptr);
  EXPECT_TRUE(TakeQuit());
}

TEST_F(WizardTest, ReadsTheEntryAfterAMove) {
  SelectRow(0);
  Press(IDC_FORM2_COMMAND8);
  OpenEdit(1);
  EXPECT_EQ(WizardText(kName), "Alpha");
  PressWizard(kCancel);
  OpenEdit(0);
  EXPECT_EQ(WizardText(kName), "");
}
