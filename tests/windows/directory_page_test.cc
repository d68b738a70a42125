#include <filesystem>

#include "tests/windows/code_pages.h"
#include "tests/windows/directory_test_base.h"
#include "win32/window_text.h"

using namespace testing_menus;

// Tests how the page is filled, and its lists and boxes.
class DirectoryPageTest : public DirectoryTest {};

TEST_F(DirectoryPageTest, ShowsTheRecord) {
  Make("sub");
  Make("sub\\inside");
  const std::string menu = DirectoryMenu(Line(PathOf("sub"), "*.exe", "1,0,1"));
  ASSERT_TRUE(Open(menu));
  EXPECT_TRUE(ShowsDirectoryPage());
  ExpectPage({.drive = folder().substr(0, 2), .list = PathOf("sub")});
  EXPECT_GE(RowOf("inside"), 0);
  ExpectPage({.path = PathOf("sub\\"), .pattern = "*.exe", .checks = "110"});
  EXPECT_EQ(MenuBytes(), menu);
  EXPECT_TRUE(answers.Shown().empty());
}

// The order of the flags in the file: folders, extensions, hidden. In the window: folders,
// hidden, extensions.
TEST_F(DirectoryPageTest, EachFlagHasItsCheckBox) {
  const std::pair<const char*, const char*> cases[] = {
      {"0,0,0", "000"},    {"1,0,0", "100"},    {"0,1,0", "001"},     {"0,0,1", "010"},
      {"1,1,1", "111"},    {",,", "000"},       {"\"1\",0,0", "100"}, {"1x,0,0", "100"},
      {"yes,no,1", "010"}, {"01,00,0.0", "100"}};
  for (const auto& [flags, checks] : cases) {
    ASSERT_TRUE(Open(DirectoryMenu(Line(folder(), "*.*", flags))));
    EXPECT_EQ(Checks(), checks) << flags;
  }
}

TEST_F(DirectoryPageTest, AStoredBackslashIsNotDoubled) {
  ASSERT_TRUE(Open(DirectoryMenu(Line(folder() + "\\"))));
  ExpectPage({.list = folder(), .path = folder() + "\\"});
  ASSERT_TRUE(Open(DirectoryMenu(Line("C:\\"))));
  ExpectPage({.list = "C:\\", .path = "C:\\"});
}

TEST_F(DirectoryPageTest, AFolderThatIsNotThereLeavesTheListWhereItWas) {
  ASSERT_TRUE(Open(DirectoryMenu(Line(PathOf("none")))));
  EXPECT_TRUE(ShowsDirectoryPage());
  ExpectPage({.drive = folder().substr(0, 2), .list = folder(), .path = PathOf("none\\")});
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(DirectoryPageTest, ADriveThatIsNotThereLeavesBothListsWhereTheyWere) {
  for (const std::string path :
       {"K:\\menus", "\\\\server\\share", "menus", "\\windows", "http://www.debian.org/"}) {
    ASSERT_TRUE(Open(DirectoryMenu(Line(path))));
    EXPECT_EQ(Path(), path.back() == '\\' ? path : path + "\\") << path;
    EXPECT_EQ(Drive(), folder().substr(0, 2)) << path;
    EXPECT_EQ(ListPath(), folder()) << path;
    EXPECT_EQ(Pattern(), "*.*") << path;
  }
}

TEST_F(DirectoryPageTest, AnEmptyDriveIsShownThoughItHasNoFolder) {
  const EmptyDrive drive("Q:");
  ASSERT_TRUE(Open(DirectoryMenu(Line("Q:\\menus"))));
  ExpectPage({.drive = "Q:", .list = folder(), .path = "Q:\\menus\\"});
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(DirectoryPageTest, GoesToAFolderOnAnotherDrive) {
  const std::string other = OtherDrive();
  const std::string inside = FolderInRoot(other);
  ASSERT_TRUE(Open(DirectoryMenu(Line(inside))));
  ExpectPage({.drive = other, .list = inside, .path = inside + "\\"});
}

TEST_F(DirectoryPageTest, ForAFolderThatIsNotThereTheListsGoToItsDrive) {
  const std::string other = OtherDrive();
  const CurrentFolderOfDrive current(other, FolderInRoot(other));
  ASSERT_TRUE(Open(DirectoryMenu(Line(other + "\\no such folder"))));
  ExpectPage({.drive = other, .list = FolderInRoot(other), .path = other + "\\no such folder\\"});
}

// Wine looks for servers in a folder of its own.
TEST_F(DirectoryPageTest, TheListFollowsAPathOnAServer) {
  char prefix[MAX_PATH] = "";
  ASSERT_NE(GetEnvironmentVariableA("WINEPREFIX", prefix, MAX_PATH), 0U);
  const std::string servers = "Z:" + std::string(prefix) + "/dosdevices/unc";
  std::error_code failed;
  std::filesystem::create_directories(servers + "/server/share/one", failed);
  ASSERT_TRUE(Open(DirectoryMenu(Line("\\\\server\\share\\one"))));
  ExpectPage({.drive = "", .list = "\\\\server\\share\\one", .path = "\\\\server\\share\\one\\"});
  ChooseDrive(folder().substr(0, 2));
  EXPECT_EQ(ListPath(), folder());
  // The list follows a typed path when the box loses the focus, not at each key.
  ShowWindow(form().window(), SW_SHOW);
  SetFocus(Control(IDC_FORM2_TEXT7));
  Type(IDC_FORM2_TEXT7, "\\\\server\\share");
  EXPECT_EQ(ListPath(), folder());
  SetFocus(Control(IDC_FORM2_TEXT8));
  ExpectPage({.list = "\\\\server\\share\\", .path = "\\\\server\\share\\"});
  // The list follows at once if another program sets the path.
  Type(IDC_FORM2_TEXT7, "\\\\server\\share\\one");
  EXPECT_EQ(ListPath(), "\\\\server\\share\\one");
  Type(IDC_FORM2_TEXT7, "\\\\server\\share\\none");
  EXPECT_EQ(ListPath(), "\\\\server\\share\\one");
  std::filesystem::remove_all(servers, failed);
}

TEST_F(DirectoryPageTest, AnEmptyPathStaysEmpty) {
  ASSERT_TRUE(Open(DirectoryMenu(Line("", ""))));
  ExpectPage({.list = folder(), .path = "", .pattern = ""});
}

TEST_F(DirectoryPageTest, LongAndOddTextsAreShownAsTheyAre) {
  std::string bytes;
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    bytes += static_cast<char>(byte);
  }
  // Of which some are no characters in some pages, but come back all the same.
  bytes = "K:\\, & " + bytes;
  ASSERT_TRUE(Open(DirectoryMenu(Line(bytes, " *.txt; *.doc "))));
  EXPECT_EQ(win32::WindowText(Control(IDC_FORM2_TEXT7)), win32::ToText(bytes) + L"\\");
  EXPECT_EQ(Pattern(), " *.txt; *.doc ");
  Press(IDC_FORM2_COMMAND15);
  EXPECT_EQ(MenuBytes(), DirectoryMenu(Line(bytes + "\\", " *.txt; *.doc ")));
  const std::string longPath = "K:\\" + std::string(40000, 'x');
  ASSERT_TRUE(Open(DirectoryMenu(Line(longPath, std::string(40000, 'y')))));
  ExpectPage({.path = longPath + "\\", .pattern = std::string(40000, 'y')});
}

TEST_F(DirectoryPageTest, StandsAtTheCurrentFolderBeforeItIsShown) {
  Make("sub");
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  EXPECT_FALSE(ShowsDirectoryPage());
  ExpectPage({.drive = folder().substr(0, 2), .list = folder()});
  EXPECT_GE(RowOf("sub"), 0);
  EXPECT_EQ(Path(), folder() + "\\");
  Press(IDC_FORM2_COMMAND13);
  EXPECT_TRUE(ShowsDirectoryPage());
  ExpectPage({.drive = folder().substr(0, 2),
              .list = folder(),
              .path = folder() + "\\",
              .pattern = "",
              .checks = "000"});
}

TEST_F(DirectoryPageTest, AnotherDriveShowsItsCurrentFolder) {
  const std::string other = OtherDrive();
  const CurrentFolderOfDrive current(other, FolderInRoot(other));
  const std::string menu = DirectoryMenu(Line("C:\\"));
  ASSERT_TRUE(Open(menu));
  ChooseDrive(other);
  ExpectPage({.list = FolderInRoot(other), .path = FolderInRoot(other) + "\\"});
  ChooseDrive(folder().substr(0, 2));
  ExpectPage({.list = folder(), .path = folder() + "\\"});
  EXPECT_EQ(MenuBytes(), menu);
}

TEST_F(DirectoryPageTest, ChoosingTheDriveThatIsChosenChangesNothing) {
  const std::string path = folder().substr(0, 3);
  ASSERT_TRUE(Open(DirectoryMenu(Line(path))));
  ASSERT_EQ(ListPath(), path);  // not the current folder of the drive
  Type(IDC_FORM2_TEXT7, "K:\\typed");
  ChooseDrive(folder().substr(0, 2));
  ExpectPage({.list = path, .path = "K:\\typed\\"});
}

TEST_F(DirectoryPageTest, AnEmptyDriveLeavesFolderAndPath) {
  const EmptyDrive drive("Q:");
  ASSERT_TRUE(Open(DirectoryMenu(Line(folder()))));
  ChooseDrive("Q:");
  ExpectPage({.list = folder(), .path = folder() + "\\"});
  EXPECT_TRUE(answers.Shown().empty());
  ChooseDrive("C:");
  EXPECT_EQ(Path(), folder() + "\\");
}

TEST_F(DirectoryPageTest, TheDriveListIsNewEachTimeItDropsDown) {
  ASSERT_TRUE(Open(DirectoryMenu(Line(folder()))));
  const HWND combo = Control(IDC_FORM2_DRIVE1);
  const LRESULT before = SendMessageA(combo, CB_GETCOUNT, 0, 0);
  {
    const EmptyDrive drive("Q:");
    Notify(IDC_FORM2_DRIVE1, CBN_DROPDOWN);
    EXPECT_EQ(SendMessageA(combo, CB_GETCOUNT, 0, 0), before + 1);
  }
  Notify(IDC_FORM2_DRIVE1, CBN_DROPDOWN);
  EXPECT_EQ(SendMessageA(combo, CB_GETCOUNT, 0, 0), before);
  ExpectPage({.drive = folder().substr(0, 2), .path = folder() + "\\"});
}

TEST_F(DirectoryPageTest, EnterOpensTheSelectedFolder) {
  Make("sub");
  Make("sub\\inside");
  const std::string menu = DirectoryMenu(Line(folder()));
  ASSERT_TRUE(Open(menu));
  SendMessageA(Control(IDC_FORM2_DIR1), LB_SETCURSEL, static_cast<WPARAM>(RowOf("sub")), 0);
  PressKey(IDC_FORM2_DIR1, VK_RETURN);
  ExpectPage({.list = PathOf("sub"), .path = PathOf("sub\\")});
  EXPECT_GE(RowOf("inside"), 0);
  // Enter also goes up again.
  SendMessageA(Control(IDC_FORM2_DIR1), LB_SETCURSEL, 0, 0);
  PressKey(IDC_FORM2_DIR1, VK_RETURN);
  EXPECT_EQ(Path(), folder().substr(0, 3));
  EXPECT_EQ(MenuBytes(), menu);
}

TEST_F(DirectoryPageTest, EnterOnTheCurrentFolderBringsItsPathBack) {
  ASSERT_TRUE(Open(DirectoryMenu(Line(folder()))));
  Type(IDC_FORM2_TEXT7, "K:\\elsewhere");
  PressKey(IDC_FORM2_DIR1, VK_RETURN);
  EXPECT_EQ(Path(), folder() + "\\");
}

TEST_F(DirectoryPageTest, OtherKeysOpenNothing) {
  Make("sub");
  ASSERT_TRUE(Open(DirectoryMenu(Line(folder()))));
  PressKey(IDC_FORM2_DIR1, VK_DOWN);
  EXPECT_EQ(SendMessageA(Control(IDC_FORM2_DIR1), LB_GETCURSEL, 0, 0), RowOf("sub"));
  for (const WPARAM key : {WPARAM{VK_SPACE}, WPARAM{VK_ESCAPE}, WPARAM{'S'}, WPARAM{VK_DELETE}}) {
    PressKey(IDC_FORM2_DIR1, key);
    EXPECT_EQ(Path(), folder() + "\\") << key;
    EXPECT_GE(RowOf("sub"), 0) << key;
  }
  EXPECT_NE(form().window(), nullptr);
}

TEST_F(DirectoryPageTest, AClickSelectsAndADoubleClickOpens) {
  Make("sub");
  ASSERT_TRUE(Open(DirectoryMenu(Line(folder()))));
  ClickFolder("sub");
  EXPECT_EQ(SendMessageA(Control(IDC_FORM2_DIR1), LB_GETCURSEL, 0, 0), RowOf("sub"));
  EXPECT_EQ(Path(), folder() + "\\");
  DoubleClickFolder("sub");
  ExpectPage({.list = PathOf("sub"), .path = PathOf("sub\\")});
}

TEST_F(DirectoryPageTest, AFolderThatIsGoneOpensNothing) {
  Make("sub");
  ASSERT_TRUE(Open(DirectoryMenu(Line(folder()))));
  RemoveDirectoryA(PathOf("sub").c_str());
  ClickFolder("sub");
  PressKey(IDC_FORM2_DIR1, VK_RETURN);
  EXPECT_EQ(Path(), folder() + "\\");
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(DirectoryPageTest, ThePathEndsWithABackslashAfterEveryKey) {
  const struct {
    const char* rule;
    std::string path;
    int first;  // the selection
    int last;
    std::string typed;
    std::string shown;
    DWORD caret;
  } cases[] = {{"typed before it", "C:\\", 3, 3, "a", "C:\\a\\", 4},
               {"typed before it", "C:\\", 3, 3, "abc", "C:\\abc\\", 6},
               {"a typed backslash is a second one", "C:\\abc", 6, 6, "\\", "C:\\abc\\\\", 7},
               {"comes back when it is deleted", "C:\\menus", 9, 9, "\b", "C:\\menus\\", 8},
               {"comes back when it is deleted", "C:\\menus", 9, 9, "\b\b", "C:\\menu\\", 7},
               {"an emptied box", "C:\\menus", 0, -1, "\b", "\\", 0},
               {"typed over a selection", "C:\\work\\more", 3, 8, "x", "C:\\xmore\\", 4}};
  for (const auto& key : cases) {
    SCOPED_TRACE(key.rule);
    ASSERT_TRUE(Open(DirectoryMenu(Line(key.path))));
    SetCaret(IDC_FORM2_TEXT7, key.first, key.last);
    TypeKeys(IDC_FORM2_TEXT7, key.typed);
    EXPECT_EQ(Path(), key.shown);
    EXPECT_EQ(Caret(IDC_FORM2_TEXT7), std::make_pair(key.caret, key.caret));
  }
}

TEST_F(DirectoryPageTest, AChangeInTheMiddleLeavesTheCaretThere) {
  ASSERT_TRUE(Open(DirectoryMenu(Line("C:\\menus"))));
  SetCaret(IDC_FORM2_TEXT7, 3, 9);
  SendMessageA(Control(IDC_FORM2_TEXT7), EM_REPLACESEL, TRUE,
               reinterpret_cast<LPARAM>("work\\more"));
  EXPECT_EQ(Path(), "C:\\work\\more\\");
  EXPECT_EQ(Caret(IDC_FORM2_TEXT7), std::make_pair(12UL, 12UL));
}

TEST_F(DirectoryPageTest, ASetTextGetsTheBackslashEvenIfItIsLongOrEmpty) {
  ASSERT_TRUE(Open(DirectoryMenu(Line("C:\\"))));
  for (const std::string& text : {std::string(70000, 'x'), std::string()}) {
    Type(IDC_FORM2_TEXT7, text);
    EXPECT_EQ(Path(), text + "\\");
  }
}

TEST_F(DirectoryPageTest, TypingInThePathLeavesTheLists) {
  Make("sub");
  const std::string menu = DirectoryMenu(Line(folder()));
  ASSERT_TRUE(Open(menu));
  Type(IDC_FORM2_TEXT7, "C:\\windows");
  EXPECT_EQ(ListPath(), folder());
  EXPECT_EQ(MenuBytes(), menu);
}

// In some code pages, the last byte of the name equals a backslash.
TEST_F(DirectoryPageTest, ASecondByteIsNoBackslash) {
  const std::string& name = testing_pages::ThisPage().bytes;
  ASSERT_TRUE(Open(DirectoryMenu(Line("K:\\" + name))));
  EXPECT_EQ(Path(), "K:\\" + name + "\\");
  Type(IDC_FORM2_TEXT7, name);
  EXPECT_EQ(Path(), name + "\\");
  Type(IDC_FORM2_TEXT7, name + "\\");
  EXPECT_EQ(Path(), name + "\\");
  Press(IDC_FORM2_COMMAND15);
  EXPECT_EQ(MenuBytes(), DirectoryMenu(Line(name + "\\")));
}

TEST_F(DirectoryPageTest, AFolderMayEndWithASecondByte) {
  const std::string& name = testing_pages::ThisPage().bytes;
  Make(name);
  Make(name + "\\" + name);
  ASSERT_TRUE(Open(DirectoryMenu(Line(PathOf(name)))));
  ExpectPage({.list = PathOf(name), .path = PathOf(name) + "\\"});
  SendMessageA(Control(IDC_FORM2_DIR1), WM_KEYDOWN, VK_DOWN, 1);
  PressKey(IDC_FORM2_DIR1, VK_RETURN);
  EXPECT_EQ(Path(), PathOf(name) + "\\" + name + "\\");
}
