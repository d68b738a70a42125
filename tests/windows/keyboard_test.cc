

#include <algorithm>

#include "tests/windows/form2_test_base.h"
#include "tests/windows/message_watch.h"
#include "tests/windows/related_window.h"
#include "tests/windows/replaced_import.h"

using namespace testing_menus;

namespace {

const std::string kDirectoryPointer = DirectoryMenu("\"C:\\windows\\\",\"*.*\",1,0,0\r\n");

// Tests keys in the visible window.
class KeyboardTest : public Form2Test {
 protected:
  void OpenShown(const std::string& menu) {
    ASSERT_TRUE(Open(menu));
    ShowWindow(form().window(), SW_SHOW);
    RunMessages();
  }
  static void Key(WPARAM key) {
    PostMessageA(GetFocus(), WM_KEYDOWN, key, 1);
    PostMessageA(GetFocus(), WM_KEYUP, key, 1);
    RunMessages();
  }
  static void KeyWith(const std::vector<BYTE>& held, WPARAM key) {
    WithKeys(held, [key] { Key(key); });
  }

  int Tab() {
    return static_cast<int>(SendMessageA(Control(IDC_FORM2_SSTAB1), TCM_GETCURSEL, 0, 0));
  }
  // The tab order, from the tabs once around.
  std::vector<int> Round() {
    SetFocus(Control(IDC_FORM2_SSTAB1));
    std::vector<int> ids;
    for (int id = IDC_FORM2_SSTAB1; std::find(ids.begin(), ids.end(), id) == ids.end();
         id = GetDlgCtrlID(GetFocus())) {
      ids.push_back(id);
      Key(VK_TAB);
    }
    EXPECT_EQ(GetFocus(), Control(IDC_FORM2_SSTAB1)) << "the round leaves out its beginning";
    return ids;
  }
};

TEST_F(KeyboardTest, TabGoesThroughTheItemPage) {
  OpenShown(UserDefinedMenu({ItemLine("One", "C:\\one.exe")}));
  EXPECT_EQ(Round(), (std::vector<int>{IDC_FORM2_SSTAB1, IDC_FORM2_COMMAND13, IDC_FORM2_LIST1,
                                       IDC_FORM2_COMMAND2, IDC_FORM2_COMMAND3, IDC_FORM2_COMMAND7,
                                       IDC_FORM2_COMMAND4, IDC_FORM2_COMMAND8, IDC_FORM2_COMMAND9,
                                       IDC_FORM2_COMMAND11, IDC_FORM2_COMMAND5}));
}

TEST_F(KeyboardTest, TabGoesThroughTheDirectoryPage) {
  OpenShown(kDirectoryPointer);
  EXPECT_EQ(Round(), (std::vector<int>{IDC_FORM2_SSTAB1, IDC_FORM2_COMMAND14, IDC_FORM2_DRIVE1,
                                       IDC_FORM2_DIR1, IDC_FORM2_TEXT7, IDC_FORM2_TEXT8,
                                       IDC_FORM2_CHECK2, IDC_FORM2_CHECK3, IDC_FORM2_CHECK4,
                                       IDC_FORM2_COMMAND15, IDC_FORM2_COMMAND5}));
}

TEST_F(KeyboardTest, TabGoesThroughTheAppearancePage) {
  OpenShown(UserDefinedMenu({}));
  SelectTab(1);
  EXPECT_EQ(Round(), (std::vector<int>{IDC_FORM2_SSTAB1, IDC_FORM2_TEXT3, IDC_FORM2_COMMAND6,
                                       IDC_FORM2_PICTURE1, IDC_FORM2_COMMAND10, IDC_FORM2_CHECK1,
                                       IDC_FORM2_COMMAND12, IDC_FORM2_COMMAND5}));
}

TEST_F(KeyboardTest, SpaceAndEnterClickTheMenusIcon) {
  for (const WPARAM key : {VK_SPACE, VK_RETURN}) {
    OpenShown(UserDefinedMenu({}));
    SelectTab(1);
    SetFocus(Control(IDC_FORM2_PICTURE1));
    Key('A');
    Press(IDC_FORM2_COMMAND12);
    const std::string before = MenuBytes();
    SetFocus(Control(IDC_FORM2_PICTURE1));
    Key(key);
    Press(IDC_FORM2_COMMAND12);
    const std::string after = MenuBytes();
    ASSERT_GT(after.size(), 57U);
    // The first pixel after the headers of the saved bitmap.
    const COLORREF desktop = GetSysColor(COLOR_BACKGROUND);
    EXPECT_NE(before.substr(54, 3), after.substr(54, 3));
    EXPECT_EQ(static_cast<BYTE>(after[54]), GetBValue(desktop));
    EXPECT_EQ(static_cast<BYTE>(after[55]), GetGValue(desktop));
    EXPECT_EQ(static_cast<BYTE>(after[56]), GetRValue(desktop));
  }
}

TEST_F(KeyboardTest, AKeyThatIsHeldDownClicksTheMenusIconOnce) {
  int clicks = 0;
  OpenShown(UserDefinedMenu({}));
  SelectTab(1);
  const HWND box = Control(IDC_FORM2_PICTURE1);
  const MessageWatch watch(form().window(), [&](UINT message, WPARAM wide) {
    clicks += message == WM_COMMAND && wide == MAKEWPARAM(IDC_FORM2_PICTURE1, STN_CLICKED);
  });
  constexpr LPARAM kRepeated = 1 << 30;
  for (const WPARAM key : {VK_SPACE, VK_RETURN}) {
    clicks = 0;
    SendMessageW(box, WM_KEYDOWN, key, 1);
    SendMessageW(box, WM_KEYDOWN, key, 1 | kRepeated);
    SendMessageW(box, WM_KEYDOWN, key, 1 | kRepeated);
    EXPECT_EQ(clicks, 1) << key;
  }
}

TEST_F(KeyboardTest, TheMenusIconShowsThatItHasTheFocusOnceKeysAreUsed) {
  OpenShown(UserDefinedMenu({}));
  SelectTab(1);
  const HWND box = Control(IDC_FORM2_PICTURE1);
  // True if the box draws the focus rectangle.
  const auto frames = [&] {
    static int drawn = 0;
    drawn = 0;
    const ReplacedImport focus(
        "DrawFocusRect", +[](HDC, const RECT* frame) -> BOOL {
          EXPECT_EQ(frame->left, 0);
          EXPECT_EQ(frame->right, win32::PictureBox::Size().cx);
          ++drawn;
          return TRUE;
        });
    const win32::WindowDc dc(box);
    DRAWITEMSTRUCT item{};
    item.CtlID = IDC_FORM2_PICTURE1;
    item.hwndItem = box;
    item.hDC = dc.get();
    GetClientRect(box, &item.rcItem);
    SendMessageW(form().window(), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    return drawn;
  };
  // Windows hides the focus until a key moves it; Wine never does.
  static bool hides;
  SetWindowSubclass(
      box,
      [](HWND window, UINT message, WPARAM wide, LPARAM data, UINT_PTR, DWORD_PTR) -> LRESULT {
        return message == WM_QUERYUISTATE ? (hides ? UISF_HIDEFOCUS : 0)
                                          : DefSubclassProc(window, message, wide, data);
      },
      9, 0);
  SetFocus(box);
  hides = true;
  EXPECT_EQ(frames(), 0);
  hides = false;
  EXPECT_EQ(frames(), 1);
  SetFocus(Control(IDC_FORM2_COMMAND12));
  EXPECT_EQ(frames(), 0);
}

TEST_F(KeyboardTest, TabGoesThroughTheAboutPage) {
  OpenShown(UserDefinedMenu({}));
  SelectTab(2);
  EXPECT_EQ(Round(), (std::vector<int>{IDC_FORM2_SSTAB1, IDC_FORM2_COMMAND5}));
}

TEST_F(KeyboardTest, ControlTabGoesThroughTheTabs) {
  OpenShown(UserDefinedMenu({}));
  for (const int tab : {1, 2, 0}) {
    KeyWith({VK_CONTROL}, VK_TAB);
    EXPECT_EQ(Tab(), tab);
  }
  for (const int tab : {2, 1, 0}) {
    KeyWith({VK_CONTROL, VK_SHIFT}, VK_TAB);
    EXPECT_EQ(Tab(), tab);
  }
  KeyWith({VK_CONTROL}, VK_NEXT);
  EXPECT_EQ(Tab(), 1);
  EXPECT_TRUE(IsVisible(IDC_FORM2_FRAME1));
  KeyWith({VK_CONTROL}, VK_PRIOR);
  EXPECT_EQ(Tab(), 0);
}

TEST_F(KeyboardTest, AChangeOfTabsLeavesNoFocusOnAHiddenControl) {
  OpenShown(UserDefinedMenu({ItemLine("One", "C:\\windows")}));
  // A click moves the focus to the tab control. Another program may change the page
  // without that.
  const int focused[] = {IDC_FORM2_LIST1, IDC_FORM2_TEXT3, IDC_FORM2_COMMAND2};
  const editor::Page next[] = {editor::kAppearancePage, editor::kAboutPage, editor::kAboutPage};
  for (int i = 0; i < 3; ++i) {
    form().ShowPages(i == 1 ? editor::kAppearancePage : editor::kItemPage);
    SetFocus(Control(focused[i]));
    ASSERT_EQ(GetFocus(), Control(focused[i]));
    form().ShowPages(next[i]);
    EXPECT_EQ(GetFocus(), Control(IDC_FORM2_SSTAB1)) << i;
  }
}

TEST_F(KeyboardTest, ArrowsGoThroughTheTabs) {
  OpenShown(UserDefinedMenu({}));
  SetFocus(Control(IDC_FORM2_SSTAB1));
  Key(VK_RIGHT);
  EXPECT_EQ(Tab(), 1);
  EXPECT_TRUE(IsVisible(IDC_FORM2_FRAME1));
  Key(VK_LEFT);
  EXPECT_EQ(Tab(), 0);
}

TEST_F(KeyboardTest, ArrowsSelectAndShowAnEntry) {
  OpenShown(UserDefinedMenu({ItemLine("One", "C:\\windows"), ItemLine("Two", "C:\\two.exe")}));
  const std::string before = form().iconic1().BitmapFile();
  SetFocus(Control(IDC_FORM2_LIST1));
  Key(VK_DOWN);
  Key(VK_HOME);
  EXPECT_EQ(SelectedRow(), 0);
  EXPECT_NE(form().iconic1().BitmapFile(), before);
}

TEST_F(KeyboardTest, EscapeDoesNothingAnywhere) {
  for (const std::string& menu :
       {UserDefinedMenu({ItemLine("One", "C:\\windows")}), kDirectoryPointer}) {
    OpenShown(menu);
    for (const HWND control : ControlsOf(form().window())) {
      if (IsWindowVisible(control) && (GetWindowLongA(control, GWL_STYLE) & WS_TABSTOP) != 0) {
        SetFocus(control);
        Key(VK_ESCAPE);
        ASSERT_NE(form().window(), nullptr) << GetDlgCtrlID(control);
        EXPECT_TRUE(IsWindowVisible(form().window()));
      }
    }
    EXPECT_EQ(MenuBytes(), menu);
  }
}

TEST_F(KeyboardTest, QuitAndTheCloseBoxEndTheProgram) {
  for (const bool quits : {true, false}) {
    OpenShown(UserDefinedMenu({}));
    const HWND window = form().window();
    SendMessageA(quits ? Control(IDC_FORM2_COMMAND5) : window, quits ? BM_CLICK : WM_SYSCOMMAND,
                 quits ? 0 : SC_CLOSE, 0);
    EXPECT_EQ(ExitCode(), 0);
    EXPECT_FALSE(IsWindow(window));
  }
}

}  // namespace
