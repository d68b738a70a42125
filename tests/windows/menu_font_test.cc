#include <windows.h>

#include <dlgs.h>

#include <functional>
#include <string>

#include "tests/windows/appearance_test_base.h"
#include "tests/windows/handle_count.h"

namespace {

// The boxes of the font dialog.
constexpr int kFace = cmb1;
constexpr int kStyle = cmb2;
constexpr int kSize = cmb3;

}  // namespace

// The font of the menu, which the Appearance page shows and the font dialog
// changes.
class MenuFontTest : public AppearanceTestBase {
 protected:
  // Change Font; the dialog is driven before its button is pressed.
  void ChangeFont(
      int button, const std::function<void(HWND)>& drive = [](HWND) {}) {
    answers.OnDialog([this, button, drive](HWND dialog) {
      title = WindowBytes(dialog);
      size = WindowBytes(GetDlgItem(dialog, kSize));
      face = WindowBytes(GetDlgItem(dialog, kFace));
      style = WindowBytes(GetDlgItem(dialog, kStyle));
      drive(dialog);
      PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
    });
    Press(IDC_FORM2_COMMAND6);
  }
  // Selects a row of one of its boxes as the user does.
  static void Select(HWND dialog, int box, int row) {
    const HWND combo = GetDlgItem(dialog, box);
    SetFocus(combo);
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(box, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
  }
  static void Select(HWND dialog, int box, const std::string& text) {
    const LRESULT row =
        SendMessageA(GetDlgItem(dialog, box), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                     reinterpret_cast<LPARAM>(text.c_str()));
    ASSERT_NE(row, CB_ERR) << text;
    Select(dialog, box, static_cast<int>(row));
  }

  LOGFONTA SampleFont() {
    LOGFONTA font{};
    GetObjectA(reinterpret_cast<HGDIOBJ>(SendMessageA(Control(IDC_FORM2_TEXT3), WM_GETFONT, 0, 0)),
               sizeof font, &font);
    return font;
  }

  // What the font dialog showed when it came up.
  std::string title, size, face, style;
};

TEST_F(MenuFontTest, TheFontDialogStartsWithTheSample) {
  OpenPage(Menu("0,\"Liberation Sans\",12,-1,-1\r\n"));
  ChangeFont(IDCANCEL);
  EXPECT_EQ(title, "Select Font");
  EXPECT_EQ(size, "12");
  EXPECT_EQ(face, "Liberation Sans");
  EXPECT_EQ(style, "Bold Italic");
  EXPECT_EQ(SavedLine(), "0,\"Liberation Sans\",12,-1,-1\r\n");
}

TEST_F(MenuFontTest, WhatWasNotTouchedInTheFontDialogStays) {
  for (const char* line :
       {"0,\"Liberation Sans\",8.25,0,0\r\n", "0,\"Liberation Sans\",10,-1,0\r\n",
        "0,\"Liberation Sans\",9.75,0,-1\r\n", "0,\"Liberation Sans\",8.3333,0,0\r\n",
        "0,\"Liberation Sans\",72,-1,-1\r\n", "0,\"Liberation Sans\",300,0,0\r\n",
        "0,\"Liberation Sans\",1,0,0\r\n"}) {
    for (const int button : {IDOK, IDCANCEL}) {
      OpenPage(Menu(line));
      ChangeFont(button);
      EXPECT_EQ(SavedLine(), line) << button;
    }
  }
}

TEST_F(MenuFontTest, EverySizeFromOneToSixtyStaysInTheFontDialog) {
  for (int points = 1; points <= 60; ++points) {
    const std::string line = "0,\"Liberation Sans\"," + std::to_string(points) + ",0,0\r\n";
    OpenPage(Menu(line));
    ChangeFont(IDOK);
    EXPECT_EQ(SavedLine(), line);
  }
}

TEST_F(MenuFontTest, AFaceThatThisMachineLacksKeepsItsName) {
  const std::string line = "0,\"No Such Font At All\",8.25,-1,0\r\n";
  OpenPage(Menu(line));
  ChangeFont(IDOK);
  EXPECT_EQ(SavedLine(), line);
  ChangeFont(IDOK, [](HWND dialog) { Select(dialog, kSize, "14"); });
  EXPECT_EQ(SavedLine(), "0,\"No Such Font At All\",14,-1,0\r\n");
  ChangeFont(IDOK, [](HWND dialog) { Select(dialog, kFace, "Liberation Sans"); });
  EXPECT_EQ(SavedLine(), "0,\"Liberation Sans\",14,-1,0\r\n");
}

TEST_F(MenuFontTest, TheFirstFaceOfTheListCanBeChosenForOneThatIsLacking) {
  OpenPage(Menu("0,\"No Such Font At All\",8.25,0,0\r\n"));
  std::string first;
  ChangeFont(IDOK, [&](HWND dialog) {
    Select(dialog, kFace, 0);
    first = WindowBytes(GetDlgItem(dialog, kFace));
  });
  ASSERT_FALSE(first.empty());
  EXPECT_EQ(SavedLine(), "0,\"" + first + "\",8.25,0,0\r\n");
}

TEST_F(MenuFontTest, AFaceNameLongerThanAnyFontsStays) {
  const std::string line = "0,\"" + std::string(60, 'x') + "\",8.25,0,0\r\n";
  OpenPage(Menu(line));
  ChangeFont(IDOK);
  EXPECT_EQ(SavedLine(), line);
}

TEST_F(MenuFontTest, TheFontDialogsChoiceIsShownAndSaved) {
  OpenPage(Menu("0,\"Tahoma\",8.25,0,0\r\n"));
  const std::string menu = MenuBytes();
  ChangeFont(IDOK, [](HWND dialog) {
    Select(dialog, kFace, "Liberation Sans");
    Select(dialog, kStyle, "Bold Italic");
    Select(dialog, kSize, "20");
  });
  const LOGFONTA font = SampleFont();
  EXPECT_STREQ(font.lfFaceName, "Liberation Sans");
  EXPECT_EQ(font.lfWeight, FW_BOLD);
  EXPECT_NE(font.lfItalic, 0);
  EXPECT_EQ(font.lfHeight, -27);  // 20 points at 96 DPI
  EXPECT_EQ(MenuBytes(), menu) << "written before Save Changes";
  EXPECT_EQ(SavedLine(), "0,\"Liberation Sans\",20,-1,-1\r\n");
}

TEST_F(MenuFontTest, TheSizeThatTheDialogShowsCanBeChosen) {
  OpenPage(Menu("0,\"Liberation Sans\",8.25,0,0\r\n"));
  ChangeFont(IDOK, [](HWND dialog) { Select(dialog, kSize, "8"); });
  EXPECT_EQ(SavedLine(), "0,\"Liberation Sans\",8,0,0\r\n");
}

TEST_F(MenuFontTest, CancellingTheFontDialogForgetsWhatWasChosen) {
  OpenPage(Menu("0,\"Tahoma\",8.25,0,0\r\n"));
  ChangeFont(IDCANCEL, [](HWND dialog) {
    Select(dialog, kFace, "Liberation Sans");
    Select(dialog, kSize, "20");
  });
  EXPECT_STREQ(SampleFont().lfFaceName, "Tahoma");
  EXPECT_EQ(SavedLine(), "0,\"Tahoma\",8.25,0,0\r\n");
}

TEST_F(MenuFontTest, FontChoicesLeaveNoHandlesBehind) {
  OpenPage(Menu("0,\"Tahoma\",8.25,0,0\r\n"));
  ChangeFont(IDOK);
  ChangeFont(IDOK);
  const HandleCount before = HandleCount::Now();
  for (int i = 0; i < 20; ++i) {
    ChangeFont(IDOK);
  }
  ExpectNothingLeft(before, 20);
}
