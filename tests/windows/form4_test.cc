#include "icons/form4.h"

#include "tests/windows/form4_test_base.h"
#include "tests/windows/handle_count.h"
#include "tests/windows/replaced_import.h"

class Form4Test : public Form4TestBase {};

TEST_F(Form4Test, ChangeIconWantsASelectedEntryWithATarget) {
  ASSERT_TRUE(Open(Menu(Item(two, "0"))));
  Press(IDC_FORM2_COMMAND11);
  EXPECT_EQ(Form4(), nullptr);
  ChangeIcon(2);  // the separator
  EXPECT_EQ(Form4(), nullptr);
  EXPECT_TRUE(IsEditorEnabled());
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(Form4Test, OpensOnTheIconOfTheEntryAndDisablesTheEditor) {
  OpenForItem(twelve, "5");
  EXPECT_EQ(WindowBytes(Form4()), "Select Icon");
  EXPECT_TRUE(IsWindowVisible(Form4()));
  EXPECT_FALSE(IsEditorEnabled());
  EXPECT_EQ(Label(), "12 Icons");
  EXPECT_TRUE(IsWindowEnabled(bar()));
  ExpectShown({.last = 11, .position = 5, .preview = Showing(colours[5])});
  EXPECT_EQ(WindowBytes(Form4Control(IDC_FORM4_COMMAND1)), "OK");
  EXPECT_EQ(WindowBytes(Form4Control(IDC_FORM4_COMMAND2)), "Select Icon Library");
  EXPECT_EQ(WindowBytes(Form4Control(IDC_FORM4_COMMAND3)), "Cancel");
}

TEST_F(Form4Test, OpensOnTheTargetWhereNoIconFileIsGiven) {
  OpenForItem("", "0");
  ExpectShown({.label = "1 Icon", .last = 0, .preview = Showing(colours[0])});
}

TEST_F(Form4Test, OpensOnTheFirstIconWhereTheIndexIsNoneOfTheFile) {
  for (const char* index : {"", "2", "32768", "-1", "-9", "\"\"", "\"no number\""}) {
    OpenForItem(two, index);
    EXPECT_EQ(Position(bar()), 0) << index;
    EXPECT_EQ(Preview(), Showing(colours[0])) << index;
    PressInForm4(IDC_FORM4_COMMAND3);
  }
  OpenForItem(two, "\"1st\"");
  EXPECT_EQ(Preview(), Showing(colours[1]));
}

TEST_F(Form4Test, ANegativeIndexIsTheNumberOfAResource) {
  for (const int number : {1, 2, 12}) {
    OpenForItem(twelve, std::to_string(-number));
    EXPECT_EQ(Preview(), Showing(colours[static_cast<std::size_t>(number) - 1])) << number;
    ExpectShown({.label = "12 Icons", .position = 0});
    Scroll(bar(), SB_ENDSCROLL);
    EXPECT_EQ(Preview(), Showing(colours[static_cast<std::size_t>(number) - 1])) << number;
    Scroll(bar(), SB_LINERIGHT);
    EXPECT_EQ(Preview(), Showing(colours[1])) << number;
    PressInForm4(IDC_FORM4_COMMAND3);
  }
}

TEST_F(Form4Test, TheMouseWheelTurnsTheIconsFromAnywhereInTheWindow) {
  OpenForItem(twelve, "3");
  const auto turn = [&](HWND control, int delta) {
    SendMessageW(control, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0);
    return Position(bar());
  };
  EXPECT_EQ(turn(bar(), -WHEEL_DELTA), 4);
  EXPECT_EQ(Preview(), Showing(colours[4]));
  EXPECT_EQ(turn(Form4Control(IDC_FORM4_PICTURE1), -2 * WHEEL_DELTA), 6);
  EXPECT_EQ(turn(Form4Control(IDC_FORM4_COMMAND2), WHEEL_DELTA), 5);
  EXPECT_EQ(turn(Form4(), 5 * WHEEL_DELTA), 0);
  EXPECT_EQ(turn(bar(), WHEEL_DELTA), 0);
  EXPECT_EQ(turn(bar(), -WHEEL_DELTA / 2), 0);
  EXPECT_EQ(turn(bar(), -WHEEL_DELTA / 2), 1);
  EXPECT_EQ(Preview(), Showing(colours[1]));
}

TEST_F(Form4Test, AStartFileWithoutIconsShowsNothingAndSaysNothing) {
  OpenForItem(none, "1");
  EXPECT_EQ(Label(), "");
  EXPECT_FALSE(IsWindowEnabled(bar()));
  EXPECT_EQ(Preview(), Empty());
  EXPECT_TRUE(answers.Shown().empty());
  Choose(two);
  EXPECT_EQ(Label(), "2 Icons");
  EXPECT_TRUE(IsWindowEnabled(bar()));
  ExpectShown({.position = 0, .preview = Showing(colours[0])});
}

TEST_F(Form4Test, EachActivationStartsAgainWithTheEntrysIcon) {
  OpenForItem(two, "1");
  Choose(twelve);
  Scroll(bar(), SB_THUMBPOSITION, 9);
  Activate(WA_INACTIVE);
  EXPECT_EQ(Preview(), Showing(colours[9]));
  Activate(WA_CLICKACTIVE);
  ExpectShown({.label = "2 Icons", .last = 1, .position = 1, .preview = Showing(colours[1])});
}

TEST_F(Form4Test, AnActivationThatFindsNoIconsLeavesLabelAndScrollBar) {
  OpenForItem(two, "1");
  WriteBytes(two, "");
  Activate(WA_ACTIVE);
  ExpectShown({.label = "2 Icons", .last = 1});
  EXPECT_TRUE(IsWindowEnabled(bar()));
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(Form4Test, ComingBackFromItsOwnDialogsIsNoActivation) {
  OpenForItem(two, "1");
  // Windows activates the window after the dialog has closed, by OK or by Cancel.
  Choose(twelve);
  ExpectShown({.label = "12 Icons", .preview = Showing(colours[0])});
  Scroll(bar(), SB_THUMBPOSITION, 3);
  CancelDialog();
  PressInForm4(IDC_FORM4_COMMAND2);
  EXPECT_EQ(Preview(), Showing(colours[3]));
  Choose(none);
  ExpectBoxes(1, "Error!", "No Icons found in this file!");
  ExpectShown({.label = "0 Icons", .preview = Empty()});
  // A real activation while the dialog is open.
  answers.OnDialog([this](HWND dialog) {
    SendMessageA(Form4(), WM_ACTIVATE, WA_ACTIVE, 0);
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
  });
  PressInForm4(IDC_FORM4_COMMAND2);
  EXPECT_EQ(Label(), "0 Icons");
}

TEST_F(Form4Test, AnActivationAfterItsOwnDialogWaitsForTheUser) {
  OpenForItem(two, "1");
  Choose(twelve);
  for (int passed = 0; passed < 3; ++passed) {  // some window managers move the focus around
    Activate(WA_INACTIVE);
    Activate(WA_ACTIVE);
    EXPECT_EQ(Label(), "12 Icons");
  }
  Scroll(bar(), SB_LINERIGHT);
  Activate(WA_ACTIVE);
  ExpectShown({.label = "2 Icons", .position = 1});

  Choose(twelve);
  const ReplacedImport front(
      "GetForegroundWindow", +[]() -> HWND { return reinterpret_cast<HWND>(0x1234); });
  const ReplacedImport process(
      "GetWindowThreadProcessId", +[](HWND, DWORD* id) -> DWORD {
        *id = GetCurrentProcessId() + 1;
        return 1;
      });
  Activate(WA_INACTIVE);
  Activate(WA_ACTIVE);
  EXPECT_EQ(Label(), "2 Icons") << "after another program was in front";
}

TEST_F(Form4Test, TheDialogIsTheOneOfTheAppearancePage) {
  OpenForItem(two, "1");
  Choose(twelve);
  ASSERT_EQ(FileDialogs().size(), 1U);
  EXPECT_EQ(FileDialogs()[0].title, "Select a DLL or EXE which includes Icons");
  EXPECT_EQ(FileDialogs()[0].filter, "Icon Files (*.ico;*.exe;*.dll)");
  EXPECT_NE(FileDialogs()[0].name.find("two.dll"), std::string::npos);
}

// Some versions of the dialog fail with such a name.
TEST_F(Form4Test, TheDialogOpensForAnEntryWhoseSourceIsNoFile) {
  for (const std::string& source :
       {std::string("C:\\"), std::string("a|b<>?*"), std::string("http://www.debian.org/"),
        std::string(5000, 'x'), folder()}) {
    OpenForItem(source, "0");
    Choose(two);
    EXPECT_EQ(Label(), "2 Icons") << source;
    PressInForm4(IDC_FORM4_COMMAND3);
  }
}

TEST_F(Form4Test, CancelEscAndTheCloseBoxWriteNothing) {
  const std::string menu = Menu(Item(two, "1"));
  ASSERT_TRUE(Open(menu));
  const std::vector<std::function<void()>> ways = {[this] { PressInForm4(IDC_FORM4_COMMAND3); },
                                                   [this] {
                                                     PostMessageA(bar(), WM_KEYDOWN, VK_ESCAPE, 0);
                                                     RunMessages();
                                                   },
                                                   [this] {
                                                     SendMessageA(Form4(), WM_CLOSE, 0, 0);
                                                     RunMessages();
                                                   }};
  for (const std::function<void()>& way : ways) {
    ChangeIcon(1);
    ASSERT_NE(Form4(), nullptr);
    Choose(twelve);
    const std::vector<editor::HiddenRow> before = HiddenRows();
    way();
    EXPECT_EQ(Form4(), nullptr);
    EXPECT_TRUE(IsEditorEnabled());
    EXPECT_TRUE(IsWindowVisible(form().window()));
    EXPECT_EQ(MenuBytes(), menu);
    EXPECT_FALSE(Exists(scratch));
    EXPECT_EQ(HiddenRows()[1].text, before[1].text);
    EXPECT_EQ(SelectedRow(), 1);
    EXPECT_EQ(ExitCode(), std::nullopt);
  }
}

// A window closed without OK leaves its icon until the process ends.
TEST_F(Form4Test, EachCancelLeavesOneIcon) {
  ASSERT_TRUE(Open(Menu(Item(twelve, "0"))));
  const int before = HandleCount::Now().user;
  for (int i = 0; i < 5; ++i) {
    ChangeIcon(1);
    PressInForm4(IDC_FORM4_COMMAND3);
  }
  EXPECT_EQ(HandleCount::Now().user - before, 5);
}
