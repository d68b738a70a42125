#include <windows.h>

#include <commctrl.h>
#include <dlgs.h>
#include <shellapi.h>

#include "tests/windows/handle_count.h"
#include "tests/windows/icon_test_base.h"
#include "tests/windows/replaced_import.h"
#include "wizard/target.h"

using namespace testing_menus;

// Tests that actions which a user repeats leave no handles.
class LeakTest : public IconTest {
 protected:
  void OpenMenu() {
    Texts lines = {ItemLine("The shell's", one, "", "", "", "0")};
    for (int index = 0; index < 12; ++index) {
      lines.push_back(ItemLine("Own", one, "", "", twelve, std::to_string(index)));
    }
    ASSERT_TRUE(Open(UserDefinedMenu(lines)));
  }
  HWND bar() { return Control(IDC_FORM2_HSCROLL1); }
  void ChangeIcon() {
    SelectRow(5);
    Press(IDC_FORM2_COMMAND11);
  }
};

TEST_F(LeakTest, TheCountSeesASingleHandle) {
  const HandleCount before = HandleCount::Now();
  const win32::UniqueIcon icon(ExtractIconW(nullptr, L"shell32.dll", 3));
  const win32::UniqueBitmap bitmap(CreateBitmap(8, 8, 1, 1, nullptr));
  const win32::UniqueKernelHandle event(CreateEventW(nullptr, FALSE, FALSE, nullptr));
  const HandleCount after = HandleCount::Now();
  EXPECT_GT(after.user, before.user);
  EXPECT_GT(after.gdi, before.gdi);
  EXPECT_GT(after.kernel, before.kernel);
}

TEST_F(LeakTest, TheList) {
  OpenMenu();
  ExpectNoHandlesLeft("select", [&] { SelectRow(5); });
  ExpectNoHandlesLeft("select one without an icon of its own", [&] { SelectRow(0); });
  ExpectNoHandlesLeft("move", [&] {
    SelectRow(3);
    Press(IDC_FORM2_COMMAND4);
  });
  ExpectNoHandlesLeft("separator", [&] {
    SelectRow(3);
    Press(IDC_FORM2_COMMAND9);
  });
  ExpectNoHandlesLeft("delete", [&] {
    SelectRow(0);
    Press(IDC_FORM2_COMMAND7);
  });
  ExpectNoHandlesLeft("menu", [&] {
    PostMessageW(form().window(), WM_CANCELMODE, 0, 0);
    SendMessageW(Control(IDC_FORM2_LIST1), WM_CONTEXTMENU, 0, -1);
  });
  ExpectNoHandlesLeft("wizard", [&] {
    SelectRow(12);
    Press(IDC_FORM2_COMMAND3);
    HWND wizard = FindWindowW(L"Form3", nullptr);
    ASSERT_NE(wizard, nullptr);
    SendMessageW(wizard, WM_COMMAND, IDC_FORM3_COMMAND5, 0);
    RunMessages();
  });
}

TEST_F(LeakTest, TheAppearancePage) {
  OpenMenu();
  SelectTab(1);
  const auto choose = [&] {
    ChooseInDialog(twelve);
    Press(IDC_FORM2_COMMAND10);
  };
  // Each file dialog of Wine leaves a kernel handle.
  ExpectNoHandlesLeft("choose a file", choose, HandleCount::kWithoutKernel);
  int position = 0;
  ExpectNoHandlesLeft("page",
                      [&] { Scroll(bar(), SB_THUMBPOSITION, position = (position + 1) % 12); });
  ExpectNoHandlesLeft("preview", [&] {
    SendMessageW(form().window(), WM_COMMAND, MAKEWPARAM(IDC_FORM2_PICTURE1, STN_CLICKED), 0);
  });
  ExpectNoHandlesLeft("paint", [&] { Painted(IDC_FORM2_PICTURE1); });
  ExpectNoHandlesLeft("save", [&] { Press(IDC_FORM2_COMMAND12); });
  ExpectNoHandlesLeft("font", [&] {
    answers.OnDialog([](HWND dialog) {
      SetWindowTextW(GetDlgItem(dialog, cmb3), L"14");
      PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    Press(IDC_FORM2_COMMAND6);
  });
  RECT place{0, 0, 800, 600};
  ExpectNoHandlesLeft("DPI", [&] {
    SendMessageW(form().window(), WM_DPICHANGED, MAKEWPARAM(120, 120),
                 reinterpret_cast<LPARAM>(&place));
  });
  ExpectNoHandlesLeft("colours", [&] { SendMessageW(form().window(), WM_SYSCOLORCHANGE, 0, 0); });
}

TEST_F(LeakTest, TheSelectIconWindow) {
  OpenMenu();
  ExpectNoHandlesLeft("OK", [&] {
    ChangeIcon();
    PressInForm4(IDC_FORM4_COMMAND1);
  });
  ChangeIcon();
  ExpectNoHandlesLeft("activate", [&] { SendMessageW(Form4(), WM_ACTIVATE, WA_ACTIVE, 0); });
}

TEST_F(LeakTest, TheDirectoryPage) {
  Make("a folder");
  ASSERT_TRUE(Open(DirectoryMenu("\"C:\\\",\"*.*\",1,0,0\r\n")));
  ExpectNoHandlesLeft("folders", [&] {
    Type(IDC_FORM2_TEXT7, "C:\\");
    Type(IDC_FORM2_TEXT7, folder());
  });
  ExpectNoHandlesLeft("save", [&] { Press(IDC_FORM2_COMMAND15); });
}

// Under Wine, a search that has found its last file has no handle.
TEST_F(LeakTest, EachSearchInAFolderIsClosed) {
  static int begun, closed;
  static decltype(FindFirstFileW)* begin;
  static decltype(FindClose)* close;
  begun = closed = 0;
  const ReplacedImport first(
      "FindFirstFileW", +[](const wchar_t* pattern, WIN32_FIND_DATAW* found) -> HANDLE {
        const HANDLE search = begin(pattern, found);
        begun += search != INVALID_HANDLE_VALUE;
        return search;
      });
  const ReplacedImport last(
      "FindClose", +[](HANDLE search) -> BOOL {
        ++closed;
        return close(search);
      });
  begin = first.Former<decltype(FindFirstFileW)>();
  close = last.Former<decltype(FindClose)>();
  ASSERT_TRUE(Open(DirectoryMenu("\"C:\\\",\"*.*\",1,0,0\r\n")));
  Type(IDC_FORM2_TEXT7, folder());
  EXPECT_EQ(windowsFiles.FilesThatBeginWith("test").size(), 1U);
  EXPECT_TRUE(wizard::IsAcceptedTarget(L"test.menu"));
  EXPECT_GT(begun, 3);
  EXPECT_EQ(closed, begun);
}
