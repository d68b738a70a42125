#include <windows.h>

#include <dlgs.h>

#include "tests/windows/icon_files.h"
#include "tests/windows/outside/known_menu.h"
#include "tests/windows/outside/outside_test_base.h"

using outside::WaitUntil;
using testing_icons::Library;
using testing_menus::Difference;
using testing_menus::DirectoryMenu;
using testing_menus::ItemLine;
using testing_menus::kAppearance;
using testing_menus::kPicture;
using testing_menus::kSeparatorLine;
using testing_menus::UserDefinedMenu;

namespace {

const std::string kIconFileTitle = "Select a DLL or EXE which includes Icons";
const std::string kSaved = "You might have to refresh the desktop for the new icon to show.";

}  // namespace

class IconsOutsideTest : public OutsideTest {
 protected:
  IconsOutsideTest() {
    WriteBytes(two, Library({colours[0], colours[1]}));
    WriteBytes(twelve, Library(colours));
  }

  std::string PictureIn(const std::string& menu) const {
    return menu.substr(0, menu.find("\r\n<START ZOL>\r\n"));
  }

  const std::vector<COLORREF> colours = testing_icons::Colours(12);
  const std::string two = PathOf("two.dll");
  const std::string twelve = PathOf("twelve.dll");
};

TEST_F(IconsOutsideTest, ChangesAnEntrysIcon) {
  const auto menu = [&](const std::string& iconFile, const std::string& iconIndex) {
    return UserDefinedMenu({kSeparatorLine, ItemLine("Entry", "C:\\windows\\notepad.exe", "", "",
                                                     iconFile, iconIndex)});
  };
  Start(menu(two, "1"));
  outside::SelectRow(List(), 1);
  outside::Click(form2(), IDC_FORM2_COMMAND11);
  const HWND form4 = program().WaitFor("Form4");
  ASSERT_NE(form4, nullptr);
  EXPECT_TRUE(WaitForText(form4, IDC_FORM4_LABEL1, "2 Icons"));
  EXPECT_FALSE(IsWindowEnabled(form2()));
  EXPECT_EQ(SendMessageA(GetDlgItem(form4, IDC_FORM4_HSCROLL1), SBM_GETPOS, 0, 0), 1);

  ChooseFile(form4, IDC_FORM4_COMMAND2, kIconFileTitle, twelve);
  EXPECT_TRUE(WaitForText(form4, IDC_FORM4_LABEL1, "12 Icons"));
  ScrollTo(form4, IDC_FORM4_HSCROLL1, 9);
  // The old file must not come back with the focus.
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == form4; }));
  EXPECT_EQ(outside::Text(form4, IDC_FORM4_LABEL1), "12 Icons");
  EXPECT_EQ(SendMessageA(GetDlgItem(form4, IDC_FORM4_HSCROLL1), SBM_GETPOS, 0, 0), 9);

  outside::Click(form4, IDC_FORM4_COMMAND1);
  EXPECT_TRUE(program().WaitUntilGone("Form4"));
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == form2(); }));
  EXPECT_TRUE(IsWindowEnabled(form2()));
  EXPECT_EQ(MenuBytes(), menu(twelve, "9"));
  EXPECT_EQ(outside::SelectedRow(List()), 1);
  ExpectCleanEnd();
}

TEST_F(IconsOutsideTest, EscLeavesAnEntrysIcon) {
  const std::string menu = UserDefinedMenu({ItemLine("Entry", two)});
  Start(menu);
  outside::SelectRow(List(), 0);
  outside::Click(form2(), IDC_FORM2_COMMAND11);
  const HWND form4 = program().WaitFor("Form4");
  ASSERT_NE(form4, nullptr);
  EXPECT_TRUE(WaitForText(form4, IDC_FORM4_LABEL1, "2 Icons"));
  PostMessageA(GetDlgItem(form4, IDC_FORM4_HSCROLL1), WM_KEYDOWN, VK_ESCAPE, 0);
  EXPECT_TRUE(program().WaitUntilGone("Form4"));
  EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(form2()) != FALSE; }));
  EXPECT_EQ(MenuBytes(), menu);
  ExpectCleanEnd();
}

TEST_F(IconsOutsideTest, SavesFontAndSmallIcons) {
  const std::vector<std::string> items = {ItemLine("Entry", two), kSeparatorLine};
  Start(UserDefinedMenu(items, "0,\"Liberation Sans\",8.25,0,0\r\n"));
  ShowAppearancePage();
  const HWND dialog = OpenFontDialog();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(outside::Text(dialog, cmb1), "Liberation Sans");
  EXPECT_EQ(outside::Text(dialog, cmb3), "8");
  ChooseFont(dialog, "Liberation Mono", kBold, "16");
  Press(IDC_FORM2_CHECK1);
  outside::Click(form2(), IDC_FORM2_COMMAND12);
  Confirm("Corvalis Edit", kSaved);
  const std::string saved = MenuBytes();
  EXPECT_EQ(saved, UserDefinedMenu(items, "1,\"Liberation Mono\",16,-1,0\r\n", PictureIn(saved)));
  EXPECT_EQ(saved.substr(0, 2), "BM");
  ExpectCleanEnd();
}

TEST_F(IconsOutsideTest, SavesTheMenusIconOnTheColourOfTheDesktop) {
  const std::vector<std::string> items = {ItemLine("Entry", two)};
  Start(UserDefinedMenu(items));
  ShowAppearancePage();
  ChooseFile(form2(), IDC_FORM2_COMMAND10, kIconFileTitle, twelve);
  EXPECT_TRUE(WaitForText(form2(), IDC_FORM2_LABEL8, "12 Icons"));
  ScrollTo(form2(), IDC_FORM2_HSCROLL1, 4);
  ClickPreview();
  outside::Click(form2(), IDC_FORM2_COMMAND12);
  Confirm("Corvalis Edit", kSaved);
  const std::string saved = MenuBytes();
  const std::string picture = PictureIn(saved);
  EXPECT_EQ(Difference(picture, testing_icons::BitmapFile(testing_icons::PixelsOf(
                                    colours[4], GetSysColor(COLOR_BACKGROUND)))),
            "");
  EXPECT_EQ(saved, UserDefinedMenu(items, kAppearance, picture));
  ExpectCleanEnd();
}

TEST_F(IconsOutsideTest, ADirectoryPointerIsNotSavedAndEndsTheProgram) {
  const std::string menu = DirectoryMenu("\"C:\\\",\"*.*\",1,0,0\r\n");
  Start(menu);
  ShowAppearancePage();
  outside::Click(form2(), IDC_FORM2_COMMAND12);
  const HWND box = WaitForDialog("Error!");
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(outside::Text(box, outside::kMessageTextId), "Error writing to file.");
  outside::Click(box, IDOK);
  EXPECT_EQ(program().WaitForExit(), 0U);
  EXPECT_EQ(MenuBytes(), menu);
}
