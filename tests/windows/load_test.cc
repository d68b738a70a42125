#include "tests/windows/form2_test_base.h"

using testing_menus::ItemLine;
using testing_menus::kSeparatorLine;
using testing_menus::UserDefinedMenu;

class LoadTest : public Form2Test {};

TEST_F(LoadTest, ShowsTheEntriesInFileOrder) {
  const std::string menu =
      UserDefinedMenu({ItemLine("One", "C:\\one.exe"), kSeparatorLine, ItemLine("Two", "C:\\two")});
  ASSERT_TRUE(Open(menu));
  EXPECT_EQ(Rows(), (Texts{"One", std::string(87, '-'), "Two"}));
  EXPECT_EQ(HiddenRows()[2].tag, "C:\\two");
  EXPECT_EQ(SelectedRow(), -1);
  EXPECT_EQ(MenuBytes(), menu);
}

TEST_F(LoadTest, AsksBeforeItConverts) {
  answers.Answer({IDNO});
  EXPECT_FALSE(Open("0,\"Tahoma\",8.25,0,0\r\n"));
  ExpectBoxes(1, "Query?",
              "The menu file is invalid or a previous version.\rWould you like to update the file?",
              {"Yes", "No"});
  EXPECT_EQ(MenuBytes(), "0,\"Tahoma\",8.25,0,0\r\n");
}
