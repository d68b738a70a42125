#include <windows.h>

#include <commctrl.h>
#include <dlgs.h>

#include "tests/windows/icon_files.h"
#include "tests/windows/outside/outside_test_base.h"

using outside::WaitUntil;
using testing_icons::Library;
using testing_menus::DirectoryMenu;
using testing_menus::ItemLine;
using testing_menus::kAppearance;
using testing_menus::kPicture;
using testing_menus::kSeparatorLine;
using testing_menus::UserDefinedMenu;

namespace {

const std::string kSaved = "You might have to refresh the desktop for the new icon to show.";

}  // namespace

class IconsOutsideTest : public OutsideTest {
 protected:
  IconsOutsideTest() {
    WriteBytes(two, Library({colours[0], colours[1]}));
    WriteBytes(twelve, Library(colours));
  }

  HWND WaitForDialog(const std::string& title) {
    HWND dialog = nullptr;
    EXPECT_TRUE(WaitUntil([&] {
      dialog = program().Find("#32770");
      return dialog != nullptr && outside::Text(dialog) == title;
    })) << "no dialog \""
        << title << "\"";
    return dialog;
  }

  // In the file dialog that a button of the window opens.
  void ChooseFile(HWND window, int buttonId, const std::string& path) {
    outside::Click(window, buttonId);
    const HWND dialog = WaitForDialog("Select a DLL or EXE which includes Icons");
    ASSERT_NE(dialog, nullptr);
    outside::Type(dialog, GetDlgItem(dialog, cmb13) != nullptr ? cmb13 : edt1, path);
    outside::Click(dialog, IDOK);
    EXPECT_TRUE(program().WaitUntilGone("#32770"));
  }

  // Presses OK of a message box.
  void Confirm(const std::string& title, const std::string& text) {
    const HWND box = WaitForDialog(title);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(outside::Text(box, outside::kMessageTextId), text);
    outside::Click(box, IDOK);
    EXPECT_TRUE(program().WaitUntilGone("#32770"));
  }

  bool WaitForText(HWND window, int id, const std::string& text) {
    return WaitUntil([&] { return outside::Text(window, id) == text; });
  }

  static void ScrollTo(HWND window, int barId, int position) {
    SendMessageA(window, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, position),
                 reinterpret_cast<LPARAM>(GetDlgItem(window, barId)));
  }

  void ShowAppearancePage() {
    SendMessageA(Control(IDC_FORM2_SSTAB1), TCM_SETCURFOCUS, 1, 0);
    EXPECT_TRUE(WaitUntil([&] { return IsWindowVisible(Control(IDC_FORM2_COMMAND12)) != FALSE; }));
  }

  // The bytes of the bitmap file with such an icon begin behind its headers,
  // with the bottom row.
  static std::string SavedPicture(COLORREF icon, COLORREF background) {
    std::string pixels;
    for (int y = testing_icons::kIconSize - 1; y >= 0; --y) {
      for (int x = 0; x < testing_icons::kIconSize; ++x) {
        const COLORREF pixel = testing_icons::PixelOf(icon, x, y, background);
        pixels += static_cast<char>(GetBValue(pixel));
        pixels += static_cast<char>(GetGValue(pixel));
        pixels += static_cast<char>(GetRValue(pixel));
      }
    }
    return pixels;
  }
  static constexpr std::size_t kHeaders = 54;
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

  ChooseFile(form4, IDC_FORM4_COMMAND2, twelve);
  EXPECT_TRUE(WaitForText(form4, IDC_FORM4_LABEL1, "12 Icons"));
  ScrollTo(form4, IDC_FORM4_HSCROLL1, 9);
  // Nothing may bring the old file back once the focus has come back.
  Sleep(1500);
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
  outside::Click(form2(), IDC_FORM2_COMMAND6);
  const HWND dialog = WaitForDialog("Select Font");
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(outside::Text(dialog, cmb1), "Liberation Sans");
  EXPECT_EQ(outside::Text(dialog, cmb3), "8");
  const auto select = [&](int box, const char* text) {
    const HWND combo = GetDlgItem(dialog, box);
    const LRESULT row = SendMessageA(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(text));
    ASSERT_NE(row, CB_ERR) << text;
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(box, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
  };
  select(cmb1, "Liberation Mono");
  select(cmb2, "Bold");
  select(cmb3, "16");
  outside::Click(dialog, IDOK);
  EXPECT_TRUE(program().WaitUntilGone("#32770"));
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
  ChooseFile(form2(), IDC_FORM2_COMMAND10, twelve);
  EXPECT_TRUE(WaitForText(form2(), IDC_FORM2_LABEL8, "12 Icons"));
  ScrollTo(form2(), IDC_FORM2_HSCROLL1, 4);
  SendMessageA(Control(IDC_FORM2_PICTURE1), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  SendMessageA(Control(IDC_FORM2_PICTURE1), WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  outside::Click(form2(), IDC_FORM2_COMMAND12);
  Confirm("Corvalis Edit", kSaved);
  const std::string saved = MenuBytes();
  const std::string picture = PictureIn(saved);
  ASSERT_GT(picture.size(), kHeaders);
  EXPECT_EQ(picture.substr(kHeaders), SavedPicture(colours[4], GetSysColor(COLOR_BACKGROUND)));
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
