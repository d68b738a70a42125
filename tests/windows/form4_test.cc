#include "icons/form4.h"

#include <functional>
#include <vector>

#include "menufile/rewrite.h"
#include "tests/windows/handle_count.h"
#include "tests/windows/icon_test_base.h"

using testing_icons::Library;
using testing_menus::DirectoryMenu;
using testing_menus::ItemLine;
using testing_menus::kSeparatorLine;
using testing_menus::UserDefinedMenu;

class Form4Test : public IconTest {
 protected:
  // Opens a menu and the Select Icon window for its entry.
  void OpenFor(const std::string& menu, int row) {
    ASSERT_TRUE(Open(menu));
    ChangeIcon(row);
    ASSERT_NE(Form4(), nullptr);
  }
  void ChangeIcon(int row) {
    SelectRow(row);
    Press(IDC_FORM2_COMMAND11);
  }

  // The second of three entries, the only one that a test changes.
  std::string Menu(const std::string& itemLine) const {
    return UserDefinedMenu({ItemLine("First", "C:\\first.exe", "/a", "C:\\", two, "1"), itemLine,
                            kSeparatorLine, ItemLine("Last", "C:\\last", "", "", "", "")},
                           "1,\"MS Sans Serif\",9.75,-1,0\r\n");
  }
  std::string Item(const std::string& iconFile, const std::string& iconIndex) const {
    return ItemLine("Item", one, "/x, \x80", "C:\\in", iconFile, iconIndex);
  }
  void OpenForItem(const std::string& iconFile, const std::string& iconIndex) {
    OpenFor(Menu(Item(iconFile, iconIndex)), 1);
  }

  HWND bar() { return Form4Control(IDC_FORM4_HSCROLL1); }
  std::string Label() { return win32::WindowText(Form4Control(IDC_FORM4_LABEL1)); }
  std::vector<COLORREF> Preview() { return Painted(Form4Control(IDC_FORM4_PICTURE1)); }
  bool IsEditorEnabled() { return IsWindowEnabled(form().window()) != FALSE; }

  void Activate(WORD state) {
    SendMessageA(Form4(), WM_ACTIVATE, state, 0);
    RunMessages();
  }
  void Choose(const std::string& path) {
    ChooseInDialog(path);
    PressInForm4(IDC_FORM4_COMMAND2);
  }
  void PressOk() { PressInForm4(IDC_FORM4_COMMAND1); }

  void ExpectWriteError() {
    ASSERT_EQ(answers.Shown().size(), 1U);
    EXPECT_EQ(answers.Shown()[0].title, "Error!");
    EXPECT_EQ(answers.Shown()[0].text, "Error writing to file.");
    EXPECT_EQ(answers.Shown()[0].buttons, std::vector<std::string>{"OK"});
    EXPECT_EQ(Form4(), nullptr);
    EXPECT_TRUE(IsEditorEnabled());
    EXPECT_EQ(ExitCode(), std::nullopt);
  }

  const std::string scratch = menufile::kDialogScratchFile;
};

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
  EXPECT_EQ(win32::WindowText(Form4()), "Select Icon");
  EXPECT_TRUE(IsWindowVisible(Form4()));
  EXPECT_FALSE(IsEditorEnabled());
  EXPECT_EQ(Label(), "12 Icons");
  EXPECT_TRUE(IsWindowEnabled(bar()));
  EXPECT_EQ(LastPosition(bar()), 11);
  EXPECT_EQ(Position(bar()), 5);
  EXPECT_EQ(Preview(), Showing(colours[5]));
  EXPECT_EQ(win32::WindowText(Form4Control(IDC_FORM4_COMMAND1)), "OK");
  EXPECT_EQ(win32::WindowText(Form4Control(IDC_FORM4_COMMAND2)), "Select Icon Library");
  EXPECT_EQ(win32::WindowText(Form4Control(IDC_FORM4_COMMAND3)), "Cancel");
}

TEST_F(Form4Test, OpensOnTheTargetWhereNoIconFileIsGiven) {
  OpenForItem("", "0");
  EXPECT_EQ(Label(), "1 Icon");
  EXPECT_EQ(LastPosition(bar()), 0);
  EXPECT_EQ(Preview(), Showing(colours[0]));
}

TEST_F(Form4Test, OpensOnTheFirstIconWhereTheIndexIsNoneOfTheFile) {
  for (const char* index : {"", "2", "32768", "-1", "\"\"", "\"no number\""}) {
    OpenForItem(two, index);
    EXPECT_EQ(Position(bar()), 0) << index;
    EXPECT_EQ(Preview(), Showing(colours[0])) << index;
    PressInForm4(IDC_FORM4_COMMAND3);
  }
  OpenForItem(two, "\"1st\"");
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
  EXPECT_EQ(Position(bar()), 0);
  EXPECT_EQ(Preview(), Showing(colours[0]));
}

TEST_F(Form4Test, PagesThroughTheIcons) {
  OpenForItem(two, "0");
  Scroll(bar(), SB_LINERIGHT);
  EXPECT_EQ(Preview(), Showing(colours[1]));
  Scroll(bar(), SB_LINERIGHT);
  EXPECT_EQ(Position(bar()), 1);
  Scroll(bar(), SB_LINELEFT);
  EXPECT_EQ(Preview(), Showing(colours[0]));
}

TEST_F(Form4Test, EachActivationStartsAgainWithTheEntrysIcon) {
  OpenForItem(two, "1");
  Choose(twelve);
  Scroll(bar(), SB_THUMBPOSITION, 9);
  Sleep(1100);  // the dialog is a while ago
  Activate(WA_INACTIVE);
  EXPECT_EQ(Preview(), Showing(colours[9]));
  Activate(WA_CLICKACTIVE);
  EXPECT_EQ(Label(), "2 Icons");
  EXPECT_EQ(LastPosition(bar()), 1);
  EXPECT_EQ(Position(bar()), 1);
  EXPECT_EQ(Preview(), Showing(colours[1]));
}

TEST_F(Form4Test, AnActivationThatFindsNoIconsLeavesLabelAndScrollBar) {
  OpenForItem(two, "1");
  WriteBytes(two, "");
  Activate(WA_ACTIVE);
  EXPECT_EQ(Label(), "2 Icons");
  EXPECT_EQ(LastPosition(bar()), 1);
  EXPECT_TRUE(IsWindowEnabled(bar()));
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(Form4Test, ComingBackFromItsOwnDialogsIsNoActivation) {
  OpenForItem(two, "1");
  // Windows activates the window when the dialog has gone, and when it was
  // cancelled.
  Choose(twelve);
  EXPECT_EQ(Label(), "12 Icons");
  EXPECT_EQ(Preview(), Showing(colours[0]));
  Scroll(bar(), SB_THUMBPOSITION, 3);
  CancelDialog();
  PressInForm4(IDC_FORM4_COMMAND2);
  EXPECT_EQ(Preview(), Showing(colours[3]));
  Choose(none);
  ASSERT_EQ(answers.Shown().size(), 1U);
  EXPECT_EQ(answers.Shown()[0].text, "No Icons found in this file!");
  EXPECT_EQ(answers.Shown()[0].title, "Error!");
  EXPECT_EQ(Label(), "0 Icons");
  EXPECT_EQ(Preview(), Empty());
  // The real thing, in the middle of the dialog.
  answers.OnDialog([this](HWND dialog) {
    SendMessageA(Form4(), WM_ACTIVATE, WA_ACTIVE, 0);
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
  });
  PressInForm4(IDC_FORM4_COMMAND2);
  EXPECT_EQ(Label(), "0 Icons");
}

TEST_F(Form4Test, TheDialogIsTheOneOfTheAppearancePage) {
  OpenForItem(two, "1");
  Choose(twelve);
  ASSERT_EQ(FileDialogs().size(), 1U);
  EXPECT_EQ(FileDialogs()[0].title, "Select a DLL or EXE which includes Icons");
  EXPECT_EQ(FileDialogs()[0].filter, "Icon Files (*.ico;*.exe;*.dll)");
  EXPECT_NE(FileDialogs()[0].name.find("two.dll"), std::string::npos);
}

// Some versions of the dialog refuse to open with such a name.
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

TEST_F(Form4Test, OkWritesFileAndIndexAndNothingElse) {
  OpenForItem(two, "0");
  const std::vector<std::string> rows = Rows();
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
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), Showing(colours[9]));
  for (const std::size_t row : {0U, 2U, 3U}) {
    EXPECT_EQ(after[row].text, before[row].text) << row;
  }
  SelectRow(0);
  SelectRow(1);
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), Showing(colours[9]));
}

TEST_F(Form4Test, OkWithoutAnyChangeWritesTheSameFileAndIndex) {
  OpenForItem(two, "1");
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(Item(two, "1")));
}

TEST_F(Form4Test, EnterPressesOk) {
  OpenForItem(two, "1");
  PostMessageA(bar(), WM_KEYDOWN, VK_RETURN, 0);
  RunMessages();
  EXPECT_EQ(Form4(), nullptr);
  EXPECT_EQ(MenuBytes(), Menu(Item(two, "1")));
}

TEST_F(Form4Test, OkOnAnEntryWithoutIconFileWritesItsTarget) {
  OpenForItem("", "");
  EXPECT_EQ(HiddenRows()[1].text, "0");
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(Item(one, "0")));
  EXPECT_TRUE(IsIcon(HiddenRows()[1].text));
}

TEST_F(Form4Test, AFileThatIsTheCaptionIsWrittenAsNone) {
  OpenFor(Menu(ItemLine(two, one, "", "", two, "0")), 1);
  Scroll(bar(), SB_LINERIGHT);
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(ItemLine(two, one, "", "", "", "1")));
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), Showing(colours[1]));
}

TEST_F(Form4Test, TheCaptionIsComparedCaseSensitively) {
  const std::string otherCase = PathOf("TWO.DLL");
  OpenFor(Menu(ItemLine(otherCase, one, "", "", two, "0")), 1);
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(ItemLine(otherCase, one, "", "", two, "0")));
}

TEST_F(Form4Test, OkOnAFileWithoutIconsLeavesTheRowWithoutOne) {
  OpenForItem(two, "1");
  Choose(none);
  PressOk();
  EXPECT_EQ(MenuBytes(), Menu(Item(none, "0")));
  EXPECT_EQ(HiddenRows()[1].text, "0");
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), Empty());
}

// The window leaves an old scratch file as it is: what is longer in it ends up
// behind the menu.
TEST_F(Form4Test, AnOldScratchFileIsWrittenOver) {
  OpenForItem(two, "1");
  const std::string old(2000, '#');
  WriteBytes(PathOf(scratch), old);
  Choose(twelve);
  PressOk();
  const std::string menu = Menu(Item(twelve, "0"));
  ASSERT_LT(menu.size(), old.size());
  EXPECT_EQ(MenuBytes(), menu + old.substr(menu.size()));
  EXPECT_FALSE(Exists(scratch));
}

TEST_F(Form4Test, ReadingAMenuThatIsGoneOrCutShortEndsTheProgram) {
  const std::string menu = Menu(Item(two, "1"));
  ASSERT_TRUE(Open(menu));
  WriteBytes(MenuPath(), menu.substr(0, menu.find("\"Item\"") + 20));
  ChangeIcon(1);
  ASSERT_EQ(answers.Shown().size(), 1U);
  EXPECT_EQ(answers.Shown()[0].title, "Error!");
  EXPECT_NE(answers.Shown()[0].text.find(MenuPath()), std::string::npos);
  EXPECT_EQ(Form4(), nullptr);
  EXPECT_EQ(ExitCode(), EXIT_FAILURE);
  ASSERT_TRUE(DeleteFileA(MenuPath().c_str()));
  ChangeIcon(1);
  EXPECT_EQ(answers.Shown().size(), 2U);
  EXPECT_EQ(ExitCode(), EXIT_FAILURE);
}

TEST_F(Form4Test, AReadOnlyMenuIsAnErrorAndNothingChanges) {
  const std::string menu = Menu(Item(two, "1"));
  OpenFor(menu, 1);
  const std::string handle = HiddenRows()[1].text;
  MakeReadOnly(MenuPath());
  Choose(twelve);
  PressOk();
  MakeWritable(MenuPath());
  ExpectWriteError();
  EXPECT_EQ(MenuBytes(), menu);
  EXPECT_EQ(HiddenRows()[1].text, handle);
  EXPECT_TRUE(IsIcon(handle));
}

TEST_F(Form4Test, AMenuThatIsGoneIsAnError) {
  OpenForItem(two, "1");
  ASSERT_TRUE(DeleteFileA(MenuPath().c_str()));
  PressOk();
  ExpectWriteError();
  EXPECT_FALSE(Exists(MenuPath()));
}

TEST_F(Form4Test, ALockedMenuIsAnError) {
  const std::string menu = Menu(Item(two, "1"));
  OpenFor(menu, 1);
  const HANDLE lock = CreateFileA(MenuPath().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(lock, INVALID_HANDLE_VALUE);
  PressOk();
  CloseHandle(lock);
  ExpectWriteError();
  EXPECT_EQ(MenuBytes(), menu);
}

TEST_F(Form4Test, AScratchFileThatCannotBeMadeIsAnError) {
  const std::string menu = Menu(Item(two, "1"));
  OpenFor(menu, 1);
  ASSERT_TRUE(CreateDirectoryA(PathOf(scratch).c_str(), nullptr));
  PressOk();
  ExpectWriteError();
  EXPECT_EQ(MenuBytes(), menu);
  EXPECT_TRUE(Exists(scratch));
}

TEST_F(Form4Test, AMenuCutShortIsAnErrorAndKeepsItsBytes) {
  const std::string menu = Menu(Item(two, "1"));
  OpenFor(menu, 1);
  const std::string cut = menu.substr(0, menu.size() - 10);
  WriteBytes(MenuPath(), cut);
  PressOk();
  ExpectWriteError();
  EXPECT_EQ(MenuBytes(), cut);
}

TEST_F(Form4Test, AThousandChoicesLeaveNoHandlesBehind) {
  OpenForItem(twelve, "0");
  const auto round = [&](int i) {
    Scroll(bar(), SB_THUMBPOSITION, i % 12);
    if (i % 10 == 0) {
      Activate(WA_ACTIVE);
    }
  };
  round(0);
  round(1);
  const HandleCount before = HandleCount::Now();
  for (int i = 2; i < 1002; ++i) {
    round(i);
  }
  const HandleCount after = HandleCount::Now();
  EXPECT_EQ(after.gdi, before.gdi);
  EXPECT_EQ(after.user, before.user);
}

TEST_F(Form4Test, SavesLeaveNoHandlesBehind) {
  ASSERT_TRUE(Open(Menu(Item(twelve, "0"))));
  const auto round = [&](int i) {
    ChangeIcon(1);
    Scroll(bar(), SB_THUMBPOSITION, i % 12);
    PressOk();
  };
  round(0);
  round(1);
  const HandleCount before = HandleCount::Now();
  for (int i = 2; i < 102; ++i) {
    round(i);
  }
  const HandleCount after = HandleCount::Now();
  EXPECT_EQ(after.gdi, before.gdi);
  EXPECT_EQ(after.user, before.user);
  EXPECT_EQ(MenuBytes(), Menu(Item(twelve, "5")));
}

// A window that is closed otherwise leaves its icon to the end of the process.
TEST_F(Form4Test, EachCancelLeavesOneIcon) {
  ASSERT_TRUE(Open(Menu(Item(twelve, "0"))));
  const auto round = [&] {
    ChangeIcon(1);
    PressInForm4(IDC_FORM4_COMMAND3);
  };
  round();
  const int first = HandleCount::Now().user;
  round();
  const int second = HandleCount::Now().user;
  round();
  EXPECT_EQ(second - first, 1);
  EXPECT_EQ(HandleCount::Now().user - second, 1);
}
