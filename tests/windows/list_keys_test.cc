

#include "tests/windows/wizard_test_base.h"

using namespace testing_menus;

namespace {

const std::string kA = ItemLine("A", "news:a");
const std::string kB = ItemLine("B", "news:b");
const std::string kC = ItemLine("C", "news:c");

constexpr UINT kMenuOf = 0x01E1;  // MN_GETHMENU, for the window of a menu

struct MenuLine {
  std::wstring text;
  bool isEnabled;
  friend bool operator==(const MenuLine&, const MenuLine&) = default;
};

// Records the open menu of this thread. A menu runs its own message loop, so this uses a
// timer.
struct OpenedMenu {
  std::vector<MenuLine> lines;
  RECT place{};  // the place of its window
  int choose = -1;
  bool wasOpen = false;
};
OpenedMenu* opened = nullptr;

void CALLBACK LookAtMenu(HWND window, UINT, UINT_PTR timer, DWORD) {
  const HWND popup = FindWindowW(L"#32768", nullptr);
  if (popup == nullptr || !IsWindowVisible(popup)) {
    return;
  }
  KillTimer(window, timer);
  opened->wasOpen = true;
  GetWindowRect(popup, &opened->place);
  const HMENU menu = reinterpret_cast<HMENU>(SendMessageW(popup, kMenuOf, 0, 0));
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    wchar_t text[64] = L"";
    GetMenuStringW(menu, static_cast<UINT>(i), text, 64, MF_BYPOSITION);
    const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
    opened->lines.push_back({text, (state & (MF_GRAYED | MF_DISABLED)) == 0});
  }
  for (int i = 0; i <= opened->choose; ++i) {
    PostMessageW(popup, WM_KEYDOWN, VK_DOWN, 1);
  }
  PostMessageW(popup, WM_KEYDOWN, opened->choose < 0 ? VK_ESCAPE : VK_RETURN, 1);
}

}  // namespace

// Tests keys and the mouse in the item list.
class ListKeysTest : public WizardTestBase {
 protected:
  void Show(const Texts& lines) {
    ASSERT_TRUE(OpenLines(lines));
    ShowWindow(form().window(), SW_SHOW);
    SetFocus(List());
    RunMessages();
  }
  HWND List() { return Control(IDC_FORM2_LIST1); }

  // Presses a key in the list; `held` are keys that are held down meanwhile.
  void Press(WPARAM key, std::vector<BYTE> held = {}) {
    WithKeys(held, [&] {
      PostMessageW(List(), WM_KEYDOWN, key, 1);
      RunMessages();
    });
  }

  RECT RectOf(int row) {
    RECT rect{};
    SendMessageW(List(), LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
    return rect;
  }
  LPARAM PointIn(int row) {
    const RECT rect = RectOf(row);
    return MAKELPARAM(rect.left + 5, (rect.top + rect.bottom) / 2);
  }
  LPARAM OnScreen(LPARAM inList) {
    POINT point{static_cast<short>(LOWORD(inList)), static_cast<short>(HIWORD(inList))};
    ClientToScreen(List(), &point);
    return MAKELPARAM(point.x, point.y);
  }
  void DoubleClick(LPARAM point) {
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}) {
      SendMessageW(List(), message, 0, point);
    }
    RunMessages();
  }

  // Opens the menu at a point of the screen, or as by a key (-1). Chooses the command with
  // that place, or none for -1.
  OpenedMenu OpenMenu(LPARAM place = -1, int choose = -1) {
    OpenedMenu menu;
    menu.choose = choose;
    opened = &menu;
    const UINT_PTR timer = SetTimer(form().window(), 0x7E58, 20, LookAtMenu);
    SendMessageW(List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List()), place);
    KillTimer(form().window(), timer);
    RunMessages();
    EXPECT_TRUE(menu.wasOpen);
    return menu;
  }
  static std::vector<bool> Enabled(const OpenedMenu& menu) {
    std::vector<bool> enabled;
    for (const MenuLine& line : menu.lines) {
      enabled.push_back(line.isEnabled);
    }
    return enabled;
  }
};

TEST_F(ListKeysTest, KeysDoWhatTheButtonsDo) {
  Show({kA, kB, kC});
  SelectRow(0);
  Press(VK_DOWN, {VK_CONTROL});
  ExpectSettled({kB, kA, kC}, 1);
  Press(VK_DOWN, {VK_CONTROL});
  Press(VK_DOWN, {VK_CONTROL});
  ExpectSettled({kB, kC, kA}, 2);
  Press(VK_UP, {VK_CONTROL});
  ExpectSettled({kB, kA, kC}, 1);
  Press(VK_DELETE);
  ExpectSettled({kB, kC}, -1);
  // No row is selected now, so no command does anything.
  Press(VK_DELETE);
  Press(VK_UP, {VK_CONTROL});
  Press(VK_RETURN);
  ExpectSettled({kB, kC});
  EXPECT_EQ(Wizard(), nullptr);
}

TEST_F(ListKeysTest, EnterEditsAndInsertAdds) {
  Show({kA, kB});
  SelectRow(1);
  Press(VK_RETURN);
  ASSERT_NE(Wizard(), nullptr);
  EXPECT_EQ(WizardText(kName), "B");
  ExpectTargetPage(kNext);  // Enter pressed nothing there
  PressWizard(kCancel);
  Press(VK_INSERT);
  ASSERT_NE(Wizard(), nullptr);
  EXPECT_EQ(WizardText(kName), "");
  PressWizard(kCancel);
  ExpectSettled({kA, kB});
}

TEST_F(ListKeysTest, OtherKeysAreTheLists) {
  Show({kA, kB});
  SelectRow(0);
  for (const auto& [key, held] :
       std::vector<std::pair<WPARAM, std::vector<BYTE>>>{{VK_DELETE, {VK_CONTROL}},
                                                         {VK_DELETE, {VK_SHIFT}},
                                                         {VK_INSERT, {VK_CONTROL}},
                                                         {VK_RETURN, {VK_SHIFT}},
                                                         {VK_DOWN, {VK_CONTROL, VK_SHIFT}}}) {
    Press(key, held);
    ExpectSettled({kA, kB});
    EXPECT_EQ(Wizard(), nullptr);
  }
  SelectRow(0);
  Press(VK_DOWN);
  EXPECT_EQ(SelectedRow(), 1);
  ExpectSettled({kA, kB});
}

TEST_F(ListKeysTest, ADoubleClickEditsItsRow) {
  Show({kA, kB});
  DoubleClick(PointIn(1));
  ASSERT_NE(Wizard(), nullptr);
  EXPECT_EQ(WizardText(kName), "B");
  PressWizard(kCancel);
  // Below the last row there is nothing to edit.
  const RECT last = RectOf(1);
  DoubleClick(MAKELPARAM(last.left + 5, last.bottom + 20));
  EXPECT_EQ(Wizard(), nullptr);
}

TEST_F(ListKeysTest, TheMenuHasTheCommandsWithTheirKeys) {
  Show({kA, kB, kSeparatorLine});
  SelectRow(1);
  EXPECT_EQ(OpenMenu().lines, (std::vector<MenuLine>{{L"Add\tInsert", true},
                                                     {L"Edit\tEnter", true},
                                                     {L"Delete\tDelete", true},
                                                     {L"Move Up\tCtrl+Up", true},
                                                     {L"Move Down\tCtrl+Down", true},
                                                     {L"Separator", true},
                                                     {L"Change Icon", true}}));
  ExpectSettled({kA, kB, kSeparatorLine});
}

TEST_F(ListKeysTest, TheMenuIsGreyedAsTheSelectionHasIt) {
  Show({kA, kB, kSeparatorLine});
  const std::pair<int, std::vector<bool>> cases[] = {
      {-1, {true, false, false, false, false, false, false}},
      {0, {true, true, true, false, true, true, true}},
      {1, {true, true, true, true, true, true, true}},
      {2, {true, true, true, true, false, true, false}},  // a separator has no icon
  };
  for (const auto& [row, enabled] : cases) {
    SelectRow(row);
    EXPECT_EQ(Enabled(OpenMenu()), enabled) << row;
  }
}

TEST_F(ListKeysTest, ARightClickSelectsItsRowAndACommandIsMade) {
  Show({kA, IconLine("B", "C:\\windows"), kC});
  OpenMenu(OnScreen(PointIn(1)));
  EXPECT_EQ(SelectedRow(), 1);
  EXPECT_FALSE(PreviewIsClear());
  Show({kA, kB, kC});
  const OpenedMenu menu = OpenMenu(OnScreen(PointIn(1)), 3);
  EXPECT_EQ(SelectedRow(), 0);
  ExpectSettled({kB, kA, kC});
  const LPARAM point = OnScreen(PointIn(1));
  EXPECT_NEAR(menu.place.left, LOWORD(point), 10);
  EXPECT_NEAR(menu.place.top, HIWORD(point), 10);
  // Below the last row the selection stays.
  const RECT last = RectOf(2);
  OpenMenu(OnScreen(MAKELPARAM(last.left + 5, last.bottom + 20)));
  EXPECT_EQ(SelectedRow(), 0);
}

TEST_F(ListKeysTest, AKeyOpensTheMenuAtTheSelectedRow) {
  Show({kA, kB, kC});
  SelectRow(1);
  const LPARAM point = OnScreen(MAKELPARAM(RectOf(1).left, RectOf(1).bottom));
  const OpenedMenu menu = OpenMenu();
  EXPECT_NEAR(menu.place.top, HIWORD(point), 4);
  EXPECT_GE(menu.place.left, static_cast<LONG>(LOWORD(point)));
  EXPECT_EQ(SelectedRow(), 1);
}
