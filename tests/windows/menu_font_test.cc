#include <windows.h>

#include <commdlg.h>
#include <dlgs.h>

#include <cstring>

#include "tests/windows/appearance_test_base.h"
#include "tests/windows/code_pages.h"
#include "tests/windows/replaced_import.h"

namespace {

// The boxes of the font dialog.
constexpr int kFace = cmb1;
constexpr int kStyle = cmb2;
constexpr int kSize = cmb3;

// The rows of the box of styles, whose texts are in the user's language.
constexpr LRESULT kBold = 2;
constexpr LRESULT kBoldItalic = 3;

}  // namespace

// Tests the menu's font, which the Appearance page shows and the font dialog changes.
class MenuFontTest : public AppearanceTestBase {
 protected:
  // Presses Change Font, calls `drive` with the dialog, and presses its button.
  void ChangeFont(
      int button, const std::function<void(HWND)>& drive = [](HWND) {}) {
    int opened = 0;
    answers.OnDialog([this, button, drive, &opened](HWND dialog) {
      ++opened;
      title = WindowBytes(dialog);
      size = WindowBytes(GetDlgItem(dialog, kSize));
      face = WindowBytes(GetDlgItem(dialog, kFace));
      style = SendMessageA(GetDlgItem(dialog, kStyle), CB_GETCURSEL, 0, 0);
      drive(dialog);
      PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
    });
    Press(IDC_FORM2_COMMAND6);
    ASSERT_EQ(opened, 1) << "the dialog";
  }
  // Selects a row of one of its boxes, like a user.
  static void Select(HWND dialog, int box, LRESULT row) {
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
    Select(dialog, box, row);
  }

  // Change Font with a dialog that takes any face and size, as Wine's does not.
  // Windows gives the size in tenths of a point, too.
  void TypeInFontDialog(const std::wstring& typedFace, const std::wstring& typedSize, int tenths) {
    static std::function<void(CHOOSEFONTW&)> choose;
    static decltype(GetProcAddress)* find;
    static constexpr auto chooseFont = +[](CHOOSEFONTW* font) -> BOOL {
      choose(*font);
      return TRUE;
    };
    choose = [&](CHOOSEFONTW& font) {
      const HWND dialog =
          CreateWindowW(L"Static", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
      for (const int box : {kFace, kStyle, kSize}) {
        CreateWindowW(L"Edit", L"box", WS_CHILD, 0, 0, 9, 9, dialog,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(box)), nullptr, nullptr);
      }
      font.lpfnHook(dialog, WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(&font));
      SetWindowTextW(GetDlgItem(dialog, kFace), typedFace.c_str());
      SetWindowTextW(GetDlgItem(dialog, kSize), typedSize.c_str());
      SendMessageW(dialog, WM_COMMAND, IDOK, 0);
      DestroyWindow(dialog);
      lstrcpynW(font.lpLogFont->lfFaceName, typedFace.c_str(), LF_FACESIZE);
      font.iPointSize = tenths;
    };
    const ReplacedImport import(
        "GetProcAddress", +[](HMODULE library, const char* name) -> FARPROC {
          return std::strcmp(name, "ChooseFontW") == 0
                     ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(chooseFont))
                     : find(library, name);
        });
    find = import.Former<decltype(GetProcAddress)>();
    Press(IDC_FORM2_COMMAND6);
  }

  LOGFONTA SampleFont() {
    LOGFONTA font{};
    GetObjectA(reinterpret_cast<HGDIOBJ>(SendMessageA(Control(IDC_FORM2_TEXT3), WM_GETFONT, 0, 0)),
               sizeof font, &font);
    return font;
  }

  // The texts of the font dialog when it opened.
  std::string title, size, face;
  LRESULT style = CB_ERR;
};

TEST_F(MenuFontTest, TheFontDialogStartsWithTheSample) {
  OpenPage(Menu("0,\"Liberation Sans\",12,-1,-1\r\n"));
  ChangeFont(IDCANCEL);
  EXPECT_EQ(title, "Select Font");
  EXPECT_EQ(size, "12");
  EXPECT_EQ(face, "Liberation Sans");
  EXPECT_EQ(style, kBoldItalic);
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

TEST_F(MenuFontTest, OnceTouchedTheDialogGivesAllThatItShows) {
  OpenPage(Menu("0,\"Liberation Sans\",8.25,0,-1\r\n"));
  ChangeFont(IDOK, [](HWND dialog) { Select(dialog, kStyle, kBold); });
  EXPECT_EQ(size, "8");
  EXPECT_EQ(SavedLine(), "0,\"Liberation Sans\",8,-1,0\r\n");
  OpenPage(Menu("0,\"Liberation Sans\",9.75,-1,0\r\n"));
  ChangeFont(IDOK, [](HWND dialog) { Select(dialog, kFace, "Liberation Mono"); });
  EXPECT_EQ(SavedLine(), "0,\"Liberation Mono\"," + size + ",-1,0\r\n");
}

TEST_F(MenuFontTest, ASizeBetweenTwoPointsCanBeTyped) {
  OpenPage(Menu("0,\"Liberation Sans\",8.25,-1,0\r\n"));
  TypeInFontDialog(L"Liberation Sans", L"10.5", 105);
  EXPECT_EQ(SavedLine(), "0,\"Liberation Sans\",10.5,-1,0\r\n");
}

TEST_F(MenuFontTest, AFaceWhoseNameTheCodePageCannotHoldIsRefused) {
  const testing_pages::Page& page = testing_pages::ThisPage();
  const std::string line = "0,\"Liberation Sans\",8.25,-1,0\r\n";
  OpenPage(Menu(line));
  TypeInFontDialog(page.held + page.other, L"20", 200);
  ASSERT_EQ(answers.Shown().size(), 1U);
  EXPECT_EQ(answers.Shown()[0].title, "Error!");
  EXPECT_EQ(answers.Shown()[0].wideText,
            L"Font " + page.held + page.other +
                L" cannot be used. Its name has characters that a menu file cannot hold.");
  EXPECT_STREQ(SampleFont().lfFaceName, "Liberation Sans");
  EXPECT_EQ(SavedLine(), line);
  TypeInFontDialog(page.held, L"20", 200);
  EXPECT_EQ(SavedLine(), "0,\"" + page.bytes + "\",20,-1,0\r\n");
}

TEST_F(MenuFontTest, TheDialogStartsWithNoMorePointsThanTheSampleShows) {
  for (const char* points : {"1000", "2000", "123456789012", "99999999999999"}) {
    OpenPage(Menu("0,\"Liberation Sans\"," + std::string(points) + ",0,0\r\n"));
    ChangeFont(IDCANCEL);
    EXPECT_EQ(size, "1000") << points;
    EXPECT_EQ(SampleFont().lfHeight, -1333);
  }
}

TEST_F(MenuFontTest, AFaceThatThisMachineLacksStaysUntilTheDialogIsTouched) {
  const std::string line = "0,\"No Such Font At All\",8.25,-1,0\r\n";
  OpenPage(Menu(line));
  ChangeFont(IDOK);
  EXPECT_EQ(SavedLine(), line);
  // Then the font becomes what the dialog shows.
  std::string shown;
  ChangeFont(IDOK, [&](HWND dialog) {
    Select(dialog, kSize, "14");
    shown = WindowBytes(GetDlgItem(dialog, kFace));
  });
  const std::string name = shown.empty() ? "No Such Font At All" : shown;
  const std::string bold = style >= kBold ? "-1" : "0";
  EXPECT_EQ(SavedLine(), "0,\"" + name + "\",14," + bold + ",0\r\n");
  ChangeFont(IDOK, [](HWND dialog) { Select(dialog, kFace, "Liberation Sans"); });
  EXPECT_EQ(SavedLine(), "0,\"Liberation Sans\",14," + bold + ",0\r\n");
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
    Select(dialog, kStyle, kBoldItalic);
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
