#include "icons/icon_browser.h"

#include <shellapi.h>

#include <map>
#include <optional>
#include <set>
#include <utility>

#include "tests/windows/icon_test_base.h"
#include "tests/windows/replaced_import.h"
#include "win32/shell_file.h"

using namespace testing_icons;
using namespace testing_menus;

class IconBrowserTest : public IconTest {
 protected:
  void OpenAppearance() {
    ASSERT_TRUE(Open(UserDefinedMenu({})));
    SelectTab(1);
  }
  HWND bar() { return Control(IDC_FORM2_HSCROLL1); }
  std::string Label() { return Text(IDC_FORM2_LABEL8); }
  std::vector<COLORREF> Preview() { return Painted(IDC_FORM2_PICTURE1); }

  void ExpectShown(const ShownIcons& shown) {
    IconTest::ExpectShown(Control(IDC_FORM2_LABEL8), bar(), Control(IDC_FORM2_PICTURE1), shown);
  }

  // Presses Select Icon File.
  void Choose(const std::string& path) {
    ChooseInDialog(path);
    Press(IDC_FORM2_COMMAND10);
  }

  void ClickPicture() {
    SendMessageA(Control(IDC_FORM2_PICTURE1), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(9, 9));
    SendMessageA(Control(IDC_FORM2_PICTURE1), WM_LBUTTONUP, 0, MAKELPARAM(9, 9));
    RunMessages();
  }

  int Count(const std::string& path) {
    icons::IconBrowser browser;
    browser.SetSource(path);
    const icons::IconBrowser::IconCount count = browser.CountIcons();
    EXPECT_EQ(browser.current(), nullptr) << path;
    EXPECT_TRUE(count.isAll) << path;
    return count.icons;
  }
};

TEST_F(IconBrowserTest, CountsTheIconsOfAnIconFileALibraryAndAProgram) {
  EXPECT_EQ(Count(none), 0);
  EXPECT_EQ(Count(one), 1);
  EXPECT_EQ(Count(two), 2);
  EXPECT_EQ(Count(twelve), 12);
  EXPECT_EQ(Count(Write("two.exe", Library(colours, 2, true))), 2);
  EXPECT_EQ(Count(Write("one.ico", IconFile(colours[0]))), 1);
  EXPECT_EQ(Count(Write("odd name.xyz", Library(colours))), 12);
}

TEST_F(IconBrowserTest, WhatCannotBeReadHasNoIcons) {
  const std::string text = "No icon is in here.\r\n";
  for (const std::string& path :
       Texts{"", PathOf("missing.ico"), "Q:\\missing\\missing.dll", folder(), "C:\\",
             Write("text.txt", text), Write("named.dll", text),
             PathOf(std::string(300, 'x') + ".dll"), std::string(70000, 'x'),
             "\\\\corvalis-no-such-server\\share\\icons.dll"}) {
    EXPECT_EQ(Count(path), 0) << path;
  }
  const std::string locked = Write("locked.dll", Library(colours));
  {
    const LockedFile lock(locked, 0, GENERIC_READ | GENERIC_WRITE);
    EXPECT_EQ(Count(locked), 0);
  }
  EXPECT_EQ(Count(locked), 12);
}

// Extracts the first of `Count` icons of a library. The others are an icon of Windows,
// which takes no time and no handle. After some 32,000 handles, Wine may give a window
// one with the highest bit set, and then loses messages to the window.
template <UINT Count>
class ManyIcons {
 public:
  explicit ManyIcons(const std::string& library) {
    first_ = ExtractIconA(nullptr, library.c_str(), 0);
    extract_.emplace(
        "ExtractIconA", +[](HINSTANCE, const char*, UINT index) -> HICON {
          return index == 0      ? CopyIcon(first_)
                 : index < Count ? LoadIconW(nullptr, MAKEINTRESOURCEW(32512))
                                 : nullptr;
        });
  }
  ~ManyIcons() { DestroyIcon(first_); }

 private:
  static inline HICON first_;
  std::optional<ReplacedImport> extract_;
};

TEST_F(IconBrowserTest, CountsUpToTheLargestIndex) {
  const std::string library = Write("most.dll", Library({colours[0]}, 32767));
  const ManyIcons<32767> icons(library);
  EXPECT_EQ(Count(library), 32767);
}

TEST_F(IconBrowserTest, TooManyIconsAreAnErrorAndShowTheFirstOnes) {
  OpenAppearance();
  const std::string path = Write("more.dll", Library({colours[0]}, 32768));
  const ManyIcons<32768> icons(path);
  Choose(path);
  ExpectBoxes(1, "Error!", "More than 32767 icons are in:\n" + path);
  ExpectShown({.label = "32767 Icons", .last = 32766, .preview = Showing(colours[0])});

  // The Select Icon window says so once.
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("Entry", path)})));
  SelectRow(0);
  Press(IDC_FORM2_COMMAND11);
  for (int activation = 0; activation < 2; ++activation) {
    EXPECT_EQ(answers.Shown().size(), 2U);
    EXPECT_EQ(WindowBytes(Form4Control(IDC_FORM4_LABEL1)), "32767 Icons");
    Scroll(Form4Control(IDC_FORM4_HSCROLL1), SB_LINERIGHT);  // the user goes on
    SendMessageW(Form4(), WM_ACTIVATE, WA_ACTIVE, 0);
  }
  EXPECT_EQ(answers.Shown().size(), 2U);
}

TEST_F(IconBrowserTest, ShowsTheCountAsAWordInOneOrMany) {
  OpenAppearance();
  const HWND label = Control(IDC_FORM2_LABEL8);
  for (const auto& [count, text] : std::vector<std::pair<int, std::string>>{
           {0, "0 Icons"}, {1, "1 Icon"}, {2, "2 Icons"}, {12, "12 Icons"}, {101, "101 Icons"}}) {
    icons::ShowIconCount(label, count);
    EXPECT_EQ(Label(), text);
  }
}

TEST_F(IconBrowserTest, StartsEmptyWithTheScrollBarDisabled) {
  OpenAppearance();
  EXPECT_FALSE(IsEnabled(IDC_FORM2_HSCROLL1));
  EXPECT_EQ(Preview(), Empty());
}

TEST_F(IconBrowserTest, ChoosingAFileShowsItsFirstIcon) {
  OpenAppearance();
  Choose(one);
  ExpectShown({.label = "1 Icon", .last = 0});
  EXPECT_TRUE(IsEnabled(IDC_FORM2_HSCROLL1));
  EXPECT_EQ(Preview(), Showing(colours[0]));
  Choose(two);
  ExpectShown({.label = "2 Icons", .last = 1, .preview = Showing(colours[0])});
  Scroll(bar(), SB_LINERIGHT);
  EXPECT_EQ(Preview(), Showing(colours[1]));
  Choose(twelve);
  ExpectShown({.label = "12 Icons", .last = 11, .position = 0, .preview = Showing(colours[0])});
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(IconBrowserTest, TheDialogSaysWhatItIsForAndStartsWithTheCurrentFile) {
  OpenAppearance();
  Choose(two);
  Choose(one);
  ASSERT_EQ(FileDialogs().size(), 2U);
  EXPECT_EQ(FileDialogs()[0].title, "Select a DLL or EXE which includes Icons");
  EXPECT_EQ(FileDialogs()[0].name, "");
  EXPECT_EQ(FileDialogs()[0].filter, "Icon Files (*.ico;*.exe;*.dll)");
  EXPECT_NE(FileDialogs()[1].name.find("two.dll"), std::string::npos) << FileDialogs()[1].name;
}

TEST_F(IconBrowserTest, CancellingTheDialogChangesNothing) {
  OpenAppearance();
  CancelDialog();
  Press(IDC_FORM2_COMMAND10);
  EXPECT_FALSE(IsEnabled(IDC_FORM2_HSCROLL1));
  EXPECT_EQ(Preview(), Empty());
  Choose(twelve);
  Scroll(bar(), SB_THUMBPOSITION, 7);
  CancelDialog();
  Press(IDC_FORM2_COMMAND10);
  EXPECT_EQ(FileDialogs().size(), 3U);
  ExpectShown({.label = "12 Icons", .position = 7, .preview = Showing(colours[7])});
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(IconBrowserTest, PagesThroughAllIconsAndStopsAtBothEnds) {
  OpenAppearance();
  Choose(twelve);
  Scroll(bar(), SB_LINELEFT);
  EXPECT_EQ(Position(bar()), 0);
  for (int index = 1; index < 12; ++index) {
    Scroll(bar(), index % 2 == 0 ? SB_LINERIGHT : SB_PAGERIGHT);
    EXPECT_EQ(Position(bar()), index);
    EXPECT_EQ(Preview(), Showing(colours[static_cast<std::size_t>(index)])) << index;
  }
  Scroll(bar(), SB_LINERIGHT);
  EXPECT_EQ(Position(bar()), 11);
  Scroll(bar(), SB_LEFT);
  EXPECT_EQ(Preview(), Showing(colours[0]));
  Scroll(bar(), SB_THUMBTRACK, 5);
  EXPECT_EQ(Preview(), Showing(colours[5]));
  Scroll(bar(), SB_RIGHT);
  EXPECT_EQ(Preview(), Showing(colours[11]));
}

TEST_F(IconBrowserTest, ShowsTheIconAtABarThatWasMovedFirst) {
  OpenAppearance();
  Choose(twelve);
  SendMessageA(bar(), SBM_SETPOS, 7, TRUE);
  Scroll(bar(), SB_THUMBPOSITION, 7);
  EXPECT_EQ(Preview(), Showing(colours[7]));
  SendMessageA(bar(), SBM_SETPOS, 2, TRUE);
  Scroll(bar(), SB_ENDSCROLL);
  EXPECT_EQ(Preview(), Showing(colours[2]));
}

TEST_F(IconBrowserTest, AStepExtractsOneIcon) {
  static int extractions = 0;
  OpenAppearance();
  Choose(twelve);
  const ReplacedImport extract(
      "ExtractIconA", +[](HINSTANCE, const char*, UINT) -> HICON {
        ++extractions;
        return nullptr;
      });
  Scroll(bar(), SB_LINERIGHT);
  Scroll(bar(), SB_ENDSCROLL);
  EXPECT_EQ(extractions, 1);
  Scroll(bar(), SB_THUMBTRACK, 5);
  Scroll(bar(), SB_THUMBPOSITION, 5);
  Scroll(bar(), SB_ENDSCROLL);
  EXPECT_EQ(extractions, 2);
}

TEST_F(IconBrowserTest, TheMouseWheelTurnsOneIconANotch) {
  OpenAppearance();
  ShowWindow(form().window(), SW_SHOWNA);
  const auto turn = [&](int id, int delta, POINT pointer = {}) {
    SendMessageW(Control(id), WM_MOUSEWHEEL, MAKEWPARAM(0, delta),
                 MAKELPARAM(pointer.x, pointer.y));
    return Position(bar());
  };
  EXPECT_EQ(turn(IDC_FORM2_HSCROLL1, -WHEEL_DELTA), 0) << "while the bar is disabled";
  Choose(twelve);
  EXPECT_EQ(turn(IDC_FORM2_HSCROLL1, -WHEEL_DELTA), 1);
  EXPECT_EQ(turn(IDC_FORM2_PICTURE1, -3 * WHEEL_DELTA), 4);
  EXPECT_EQ(Preview(), Showing(colours[4]));
  EXPECT_EQ(turn(IDC_FORM2_HSCROLL1, -WHEEL_DELTA / 3), 4);
  EXPECT_EQ(turn(IDC_FORM2_HSCROLL1, -2 * WHEEL_DELTA / 3), 5);
  // Windows may send the message to the focused control; then the pointer's place decides.
  RECT frame{};
  GetWindowRect(Control(IDC_FORM2_FRAME1), &frame);
  EXPECT_EQ(turn(IDC_FORM2_COMMAND10, WHEEL_DELTA, {frame.left + 3, frame.bottom - 3}), 4);
  EXPECT_EQ(turn(IDC_FORM2_COMMAND10, WHEEL_DELTA, {frame.left + 3, frame.bottom + 3}), 4);
}

TEST_F(IconBrowserTest, AFileWithoutIconsBecomesTheSourceAfterAMessage) {
  OpenAppearance();
  Choose(twelve);
  Scroll(bar(), SB_THUMBPOSITION, 3);
  Choose(none);
  ExpectBoxes(1, "Error!", "No Icons found in this file!");
  ExpectShown({.label = "0 Icons", .preview = Empty()});
  EXPECT_TRUE(IsEnabled(IDC_FORM2_HSCROLL1));
  EXPECT_EQ(LastPosition(bar()), 0);
  EXPECT_EQ(Position(bar()), 0);
  Scroll(bar(), SB_LINERIGHT);
  EXPECT_EQ(Position(bar()), 0);
  CancelDialog();
  Press(IDC_FORM2_COMMAND10);
  EXPECT_NE(FileDialogs().back().name.find("none.dll"), std::string::npos);
}

TEST_F(IconBrowserTest, AnIconThatIsGoneShowsNothing) {
  OpenAppearance();
  Choose(twelve);
  WriteBytes(twelve, Library({colours[4]}));
  Scroll(bar(), SB_THUMBPOSITION, 3);
  EXPECT_EQ(Preview(), Empty());
  Scroll(bar(), SB_LEFT);
  EXPECT_EQ(Preview(), Showing(colours[4]));
}

TEST_F(IconBrowserTest, AClickOnThePictureSetsTheColourOfTheDesktopForGood) {
  ASSERT_NE(GetSysColor(COLOR_BACKGROUND), GetSysColor(COLOR_BTNFACE));
  OpenAppearance();
  Choose(two);
  ClickPicture();
  const COLORREF desktop = GetSysColor(COLOR_BACKGROUND);
  EXPECT_EQ(Preview(), testing_icons::PixelsOf(colours[0], desktop));
  Scroll(bar(), SB_LINERIGHT);
  EXPECT_EQ(Preview(), testing_icons::PixelsOf(colours[1], desktop));
  Choose(one);
  EXPECT_EQ(Preview(), testing_icons::PixelsOf(colours[0], desktop));
  Choose(none);
  EXPECT_EQ(Preview(), Empty(COLOR_BACKGROUND));
}

TEST_F(IconBrowserTest, AClickOnAnEmptyPictureFillsIt) {
  OpenAppearance();
  ClickPicture();
  EXPECT_EQ(Preview(), Empty(COLOR_BACKGROUND));
}

TEST_F(IconBrowserTest, ARowWithAnIconShowsItAndOneWithoutShowsTheShells) {
  const std::string program = Write("shown.exe", Library(colours, 2, true));
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("Own", program, "", "", twelve, "5"),
                                    ItemLine("The shell's", program, "", "", "", "0")})));
  SelectRow(0);
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), ShowingOnPage(colours[5]));
  // A row's own icon is drawn even if the shell has one for the target.
  form().items().Hidden(0).tag = "Q:\\missing.exe";
  SelectRow(0);
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), ShowingOnPage(colours[5]));

  SelectRow(1);
  const win32::ShellFile shell(program);
  ASSERT_NE(shell.images, nullptr);
  win32::PictureBox expected;
  expected.SetParentsBackground();
  expected.Attach(Control(IDC_FORM2_ICONIC1));
  expected.Draw(shell.images, shell.imageIndex);
  EXPECT_EQ(form().iconic1().BitmapFile(), expected.BitmapFile());
  EXPECT_NE(Painted(IDC_FORM2_ICONIC1), Empty());
}

// A damaged file is read as far as Windows can read it, and does no harm.
TEST_F(IconBrowserTest, FilesCutShortDoNoHarm) {
  const std::string library = Library(colours);
  const std::string icon = IconFile(colours[0]);
  for (std::size_t size = 0; size < icon.size(); size += size < 64 ? 1 : 97) {
    EXPECT_EQ(Count(Write("cut.ico", icon.substr(0, size))), 0) << size;
  }
  for (std::size_t size = 0; size < library.size(); size += size < 600 ? 61 : 1021) {
    EXPECT_EQ(Count(Write("cut.dll", library.substr(0, size))), 0) << size;
  }
}

TEST_F(IconBrowserTest, LiesInAnIconFileDoNoHarm) {
  const std::string icon = IconFile(colours[0]);
  for (std::size_t at = 0; at + 4 <= 62; at += 2) {
    std::string lying = icon;
    lying.replace(at, 4, "\xFF\xFF\xFF\x7F");
    // The icon needs these bytes: the type and the count; the offset of the image, and its
    // header up to the compression; and the number of colours.
    const bool isNeeded = at <= 4 || (at >= 16 && at <= 40) || (at >= 52 && at <= 56);
    EXPECT_EQ(Count(Write("lying.ico", lying)), isNeeded ? 0 : 1) << at;
  }
}

TEST_F(IconBrowserTest, LiesInALibraryDoNoHarm) {
  // For each offset of a number: how many of two icons remain if the number is wrong.
  // Counting ends at the first missing icon. All other bytes before the first image do not
  // matter.
  const std::map<std::size_t, int> counts = {
      {0x00, 0},  {0x3C, 0},  {0x40, 0},               // "MZ", where "PE" is, "PE"
      {0x54, 0},  {0x58, 0},  {0xD8, 0},               // the optional header, the resources
      {0x154, 0}, {0x15C, 0},                          // where their section is
      {0x20C, 0}, {0x210, 0}, {0x214, 0},              // the kinds, the first: images
      {0x218, 0}, {0x21C, 0},                          // the second: icons
      {0x22C, 0}, {0x230, 0}, {0x234, 0},              // the images, the first
      {0x238, 1}, {0x23C, 1},                          // the second
      {0x254, 0}, {0x25C, 1},                          // the icons
      {0x274, 0}, {0x28C, 1}, {0x2A4, 0}, {0x2BC, 1},  // the language of each of the four
      {0x2C0, 0}, {0x2D0, 1}, {0x2E0, 0}, {0x2F0, 1},  // the place of each of the four
      {0x300, 0}, {0x304, 0}, {0x30C, 0}, {0x310, 0},  // the first image
      {0x320, 0},
  };
  // For these, some of the values below do no harm: the number of sections, and sizes.
  const std::set<std::size_t> uncertain = {0x44, 0x94, 0x158, 0x308};
  const std::string library = Library({colours[0], colours[1]});
  for (std::size_t at = 0; at + 4 <= 0x400; at += 4) {
    const auto known = counts.find(at);
    for (const char* value : {"\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\x7F", "\xF0\x0F\x00\x00"}) {
      std::string lying = library;
      lying.replace(at, 4, std::string(value, 4));
      const int count = Count(Write("lying.dll", lying));
      if (uncertain.count(at) == 0) {
        EXPECT_EQ(count, known == counts.end() ? 2 : known->second) << at;
      }
    }
  }
}

TEST_F(IconBrowserTest, AMenuThatNamesADamagedLibraryLoads) {
  const std::string cut = Write("cut.dll", Library(colours).substr(0, 5000));
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("Cut", one, "", "", cut, "3")})));
  EXPECT_EQ(HiddenRows()[0].text, "0");
}

TEST_F(IconBrowserTest, AHugeFileHasNoIcons) {
  const std::string path = PathOf("huge.dll");
  const HANDLE file =
      CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  DWORD done = 0;
  DeviceIoControl(file, 0x000900C4 /* FSCTL_SET_SPARSE */, nullptr, 0, nullptr, 0, &done, nullptr);
  LARGE_INTEGER size{};
  size.QuadPart = 0x100000000LL;
  ASSERT_TRUE(SetFilePointerEx(file, size, nullptr, FILE_BEGIN) && SetEndOfFile(file));
  CloseHandle(file);
  EXPECT_EQ(Count(path), 0);
}
