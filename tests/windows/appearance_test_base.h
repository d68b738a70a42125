#ifndef CORVALIS_TESTS_WINDOWS_APPEARANCE_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_APPEARANCE_TEST_BASE_H_

#include "tests/windows/icon_test_base.h"

// Opens the Appearance page of a menu, and saves it.
class AppearanceTestBase : public IconTest {
 protected:
  void OpenPage(const std::string& menu) {
    ASSERT_TRUE(Open(menu));
    SelectTab(1);
  }
  // A menu with that appearance line.
  std::string Menu(const std::string& appearance,
                   const std::string& picture = testing_menus::kPicture) const {
    return testing_menus::UserDefinedMenu(
        {testing_menus::ItemLine("First", "C:\\first.exe", "/a", "C:\\", two, "1"),
         testing_menus::kSeparatorLine,
         testing_menus::ItemLine("Last, \x80", "C:\\last", "", "", "", "")},
        appearance, picture);
  }
  void Save() { Press(IDC_FORM2_COMMAND12); }

  // Saves, and returns the appearance line in the menu file.
  std::string SavedLine() {
    Save();
    const std::string bytes = MenuBytes();
    const std::string before = "\r\n<START ZOL>\r\n\"USERDEF\"\r\n";
    const std::size_t at = bytes.find(before);
    EXPECT_NE(at, std::string::npos);
    const std::size_t start = at + before.size();
    return bytes.substr(start, bytes.find('\n', start) + 1 - start);
  }
};

#endif  // CORVALIS_TESTS_WINDOWS_APPEARANCE_TEST_BASE_H_
