#include "tests/windows/code_pages.h"
#include "tests/windows/directory_test_base.h"

using testing_menus::DirectoryMenu;

// Tests "Save Changes" on the directory page.
class DirectorySaveTest : public DirectoryTest {
 protected:
  // Presses the button, and expects `menu` in the file and no message.
  void ExpectSaved(const std::string& menu) {
    Press(IDC_FORM2_COMMAND15);
    EXPECT_EQ(MenuBytes(), menu);
    EXPECT_FALSE(Exists(PathOf("temporaryfile")));
    EXPECT_FALSE(Exists(PathOf("zoltempfileoktodelete")));
    EXPECT_TRUE(answers.Shown().empty());
    EXPECT_TRUE(ShowsDirectoryPage());
  }
};

TEST_F(DirectorySaveTest, WritesWhatThePageShows) {
  ASSERT_TRUE(Open(DirectoryMenu(Line("C:\\", "*.*", "0,0,0"))));
  Type(IDC_FORM2_TEXT7, "K:\\menus");
  Type(IDC_FORM2_TEXT8, "*.txt");
  Press(IDC_FORM2_CHECK2);
  ExpectSaved(DirectoryMenu("\"K:\\menus\\\",\"*.txt\",1,0,0\r\n"));
}

// The order in the file: folders, extensions, hidden.
TEST_F(DirectorySaveTest, EachCheckBoxHasItsPlace) {
  const std::pair<int, const char*> cases[] = {
      {IDC_FORM2_CHECK2, "1,0,0"}, {IDC_FORM2_CHECK4, "0,1,0"}, {IDC_FORM2_CHECK3, "0,0,1"}};
  for (const auto& [check, flags] : cases) {
    ASSERT_TRUE(Open(DirectoryMenu(Line("C:\\", "*.*", "0,0,0"))));
    Press(check);
    ExpectSaved(DirectoryMenu(Line("C:\\", "*.*", flags)));
    Press(check);
    ExpectSaved(DirectoryMenu(Line("C:\\", "*.*", "0,0,0")));
  }
}

TEST_F(DirectorySaveTest, AMenuThatWasNotChangedStaysAsItIs) {
  for (const char* flags :
       {"0,0,0", "1,0,0", "0,1,0", "0,0,1", "1,1,0", "1,0,1", "0,1,1", "1,1,1"}) {
    const std::string menu = DirectoryMenu(Line(folder() + "\\", "*.exe", flags));
    ASSERT_TRUE(Open(menu));
    ExpectSaved(menu);
    ExpectSaved(menu);
  }
}

TEST_F(DirectorySaveTest, TheFolderChosenInTheListIsSaved) {
  Make("sub");
  ASSERT_TRUE(Open(DirectoryMenu(Line(folder()))));
  DoubleClickFolder("sub");
  ExpectSaved(DirectoryMenu(Line(PathOf("sub\\"))));
  EXPECT_EQ(ListPath(), PathOf("sub"));
}

TEST_F(DirectorySaveTest, PictureAndAppearanceStay) {
  const std::string picture =
      std::string("\0<\r\n<START ZOL> \r\n\xFF<", 20) + std::string(3000, '<');
  const std::string appearance = "1,\"Courier New\",10.5,-1,-1\r\n";
  ASSERT_TRUE(Open(DirectoryMenu(Line("C:\\", "*.*", "0,0,0"), appearance, picture)));
  Press(IDC_FORM2_CHECK2);
  ExpectSaved(DirectoryMenu(Line("C:\\", "*.*", "1,0,0"), appearance, picture));
}

// This button does not save the settings of the Appearance page.
TEST_F(DirectorySaveTest, TheAppearanceIsTheFilesOwn) {
  ASSERT_TRUE(Open(DirectoryMenu(Line("C:\\"))));
  SendMessageA(Control(IDC_FORM2_CHECK1), BM_SETCHECK, BST_CHECKED, 0);
  ExpectSaved(DirectoryMenu(Line("C:\\")));
  const std::string other = "1,\"Arial\",12,0,0\r\n";
  WriteBytes(MenuPath(), DirectoryMenu(Line("D:\\"), other));
  ExpectSaved(DirectoryMenu(Line("C:\\"), other));
}

TEST_F(DirectorySaveTest, TextsAreWrittenAsTheyStand) {
  const std::string& bytes = testing_pages::ThisPage().bytes;
  const std::pair<std::string, std::string> cases[] = {
      {"no folder at all\\", ""},
      {"\\", "*.*"},
      {"K:\\a \"quoted\" name\\", "\"*.*\""},
      {" C:\\blanks around \\", " *.* "},
      {"C:\\a,b\\", "*.a,*.b"},
      {"C:\\" + bytes + "\\", "*." + bytes},
      {std::string(5000, 'x') + "\\", std::string(5000, 'y')}};
  for (const auto& [path, pattern] : cases) {
    ASSERT_TRUE(Open(DirectoryMenu(Line("C:\\"))));
    Type(IDC_FORM2_TEXT7, path);
    Type(IDC_FORM2_TEXT8, pattern);
    ExpectSaved(DirectoryMenu("\"" + path + "\",\"" + pattern + "\",1,0,1\r\n"));
  }
}

TEST_F(DirectorySaveTest, AnEmptyPathIsWrittenEmpty) {
  ASSERT_TRUE(Open(DirectoryMenu(Line("", ""))));
  ExpectSaved(DirectoryMenu("\"\",\"\",1,0,1\r\n"));
}

TEST_F(DirectorySaveTest, WhatWasSavedLoadsAgain) {
  ASSERT_TRUE(Open(DirectoryMenu(Line("C:\\", "*.*", "0,0,0"))));
  Type(IDC_FORM2_TEXT7, "C:\\windows");
  Type(IDC_FORM2_TEXT8, "*.txt");
  Press(IDC_FORM2_CHECK3);
  Press(IDC_FORM2_COMMAND15);
  ASSERT_TRUE(Open(MenuBytes()));
  ExpectPage({.list = "C:\\windows", .path = "C:\\windows\\", .pattern = "*.txt", .checks = "010"});
}

// The button does not load the page again.
TEST_F(DirectorySaveTest, ThePageStaysAsItIs) {
  ASSERT_TRUE(Open(DirectoryMenu(Line(folder()))));
  Type(IDC_FORM2_TEXT7, "K:\\menus");
  SetCaret(IDC_FORM2_TEXT7, 2, 5);
  Press(IDC_FORM2_COMMAND15);
  EXPECT_EQ(Path(), "K:\\menus\\");
  EXPECT_EQ(Caret(IDC_FORM2_TEXT7), std::make_pair(2UL, 5UL));
  EXPECT_EQ(ListPath(), folder());
}
