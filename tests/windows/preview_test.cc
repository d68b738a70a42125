#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include "tests/windows/form2_test_base.h"
#include "tests/windows/icon_files.h"
#include "tests/windows/message_watch.h"
#include "win32/shell_file.h"

using namespace testing_menus;

namespace {

const std::string kSystem = "C:\\windows\\system32\\";

class PreviewTest : public Form2Test {
 protected:
  std::string Shown() { return form().iconic1().BitmapFile(); }

  // The same for what a call draws at (0, 0) on the colour of the page.
  std::string Drawn(const std::function<void(HDC)>& draw) {
    return testing_icons::BitmapFile(
        Form2Test::Drawn({testing_icons::kIconSize, testing_icons::kIconSize}, PageColour(), draw));
  }
  std::string NothingDrawn() {
    return Drawn([](HDC) {});
  }
  std::string ShellsIcon(const std::string& target) {
    const win32::ShellFile shell(target);
    return Drawn([&](HDC dc) {
      if (shell.images != nullptr) {
        ImageList_Draw(shell.images, shell.imageIndex, dc, 0, 0, ILD_TRANSPARENT);
      }
    });
  }
  std::string IconOf(const std::string& file, int index) {
    HICON large = nullptr;
    EXPECT_EQ(ExtractIconExA(file.c_str(), index, &large, nullptr, 1), 1U);
    const win32::UniqueIcon icon(large);
    return Drawn([&](HDC dc) { DrawIcon(dc, 0, 0, icon.get()); });
  }
};

TEST_F(PreviewTest, ShowsNothingAtFirst) {
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("Folder", "C:\\windows")})));
  EXPECT_EQ(Shown(), NothingDrawn());
}

TEST_F(PreviewTest, ShowsTheEntrysOwnIcon) {
  const std::string file = kSystem + "shell32.dll";
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("File", "C:\\windows", "", "", file, "8"),
                                    ItemLine("Index", file, "", "", "", "3")})));
  SelectRow(0);
  EXPECT_EQ(Shown(), IconOf(file, 8));
  EXPECT_NE(Shown(), ShellsIcon("C:\\windows"));
  EXPECT_NE(Shown(), NothingDrawn());
  // The box is cleared before the next one is drawn.
  SelectRow(1);
  EXPECT_EQ(Shown(), IconOf(file, 3));
}

TEST_F(PreviewTest, ShowsTheShellsIconOfATargetWithoutOne) {
  ASSERT_TRUE(Open(UserDefinedMenu(
      {ItemLine("Folder", "C:\\windows"), ItemLine("Program", "C:\\windows\\notepad.exe")})));
  SelectRow(0);
  const std::string folder = Shown();
  EXPECT_EQ(folder, ShellsIcon("C:\\windows"));
  EXPECT_NE(folder, NothingDrawn());
  SelectRow(1);
  EXPECT_EQ(Shown(), ShellsIcon("C:\\windows\\notepad.exe"));
  EXPECT_NE(Shown(), folder);
}

TEST_F(PreviewTest, IsClearedByASwitchOfTheMenuType) {
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("Folder", "C:\\windows")})));
  const std::string clear = form().iconic1().BitmapFile();
  SelectRow(0);
  ASSERT_NE(form().iconic1().BitmapFile(), clear);
  answers.Answer({IDYES});
  Press(IDC_FORM2_COMMAND13);
  EXPECT_EQ(form().iconic1().BitmapFile(), clear);
}

TEST_F(PreviewTest, IsDrawnAnewOnTheColoursThatTheUserChooses) {
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("Folder", "C:\\windows")})));
  SelectRow(0);
  const std::string before = Shown();
  form().iconic1().Draw(LoadIconW(nullptr, reinterpret_cast<const wchar_t*>(32513)));
  ASSERT_NE(Shown(), before);
  SendMessageW(form().window(), WM_SYSCOLORCHANGE, 0, 0);
  EXPECT_EQ(Shown(), before);
}

// A themed tab control asks its parent for the background of the page. Its parent takes
// the colour from what the tab control paints.
TEST_F(PreviewTest, TheTabControlPaintsOnceForTheColourOfItsPage) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  int painted = 0;
  const MessageWatch watch(Control(IDC_FORM2_SSTAB1), [&](UINT message, WPARAM) {
    painted += message == WM_PRINTCLIENT ? 1 : 0;
  });
  SendMessageW(form().window(), WM_THEMECHANGED, 0, 0);
  EXPECT_EQ(painted, 1);
}

TEST_F(PreviewTest, AsksTheShellAboutAnEmptyPathForASeparator) {
  ASSERT_TRUE(Open(UserDefinedMenu({kSeparatorLine, ItemLine("Folder", "C:\\windows")})));
  SelectRow(1);
  SelectRow(0);
  EXPECT_EQ(Shown(), ShellsIcon(""));
}

TEST_F(PreviewTest, ASelectionEnablesAndDisablesNothing) {
  ASSERT_TRUE(Open(UserDefinedMenu(
      {ItemLine("Folder", "C:\\windows"), kSeparatorLine, ItemLine("None", "C:\\none")})));
  const auto enabled = [this] {
    std::string states;
    for (int id = IDC_FORM2_SSTAB1; id <= IDC_FORM2_ICONIC1_LABEL; ++id) {
      states += IsEnabled(id) ? "1" : "0";
    }
    return states;
  };
  const std::string before = enabled();
  for (const int row : {0, 1, 2}) {
    SelectRow(row);
    EXPECT_EQ(enabled(), before) << row;
  }
}

}  // namespace
