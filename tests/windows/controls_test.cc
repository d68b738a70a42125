#include <windows.h>

#include <commctrl.h>

#include <set>

#include "resources/version.h"
#include "tests/windows/window_tour.h"

using namespace testing_menus;

namespace {

constexpr const char* kAny = nullptr;  // any caption

// The controls of the window, with their captions and tool tips.
struct ExpectedControl {
  int id;
  const char* windowClass;
  LONG type;  // the BS_ type of a button; 0 for other controls
  const char* caption;
  const char* toolTip;
  unsigned pages;
};

constexpr unsigned kItem = editor::kItemPage;
constexpr unsigned kDirectory = editor::kDirectoryPage;
constexpr unsigned kAppearance = editor::kAppearancePage;
constexpr unsigned kAbout = editor::kAboutPage;
constexpr unsigned kAlways = kItem | kDirectory | kAppearance | kAbout;
constexpr unsigned kNever = 0;

constexpr ExpectedControl kExpected[] = {
    {IDC_FORM2_SSTAB1, "SysTabControl32", 0, "", "", kAlways},
    {IDC_FORM2_COMMAND5, "Button", BS_PUSHBUTTON, "Quit", "", kAlways},

    {IDC_FORM2_FRAME3, "Button", BS_GROUPBOX, "", "", kItem},
    {IDC_FORM2_LABEL13, "Static", 0, "Menu Type :", "", kItem},
    {IDC_FORM2_LABEL14, "Static", 0, "User Defined List", "", kItem},
    {IDC_FORM2_IMAGE4, "Static", 0, kAny, "", kItem},
    {IDC_FORM2_LIST1_LABEL, "Static", 0, kAny, "", kItem},
    {IDC_FORM2_LIST1, "ListBox", 0, "", "You can drag and drop stuff to this list", kItem},
    {IDC_FORM2_ICONIC1_LABEL, "Static", 0, kAny, "", kItem},
    {IDC_FORM2_ICONIC1, "Static", 0, "", "", kItem},
    {IDC_FORM2_COMMAND2, "Button", BS_PUSHBUTTON, "Add", "Add new item to menu", kItem},
    {IDC_FORM2_COMMAND3, "Button", BS_PUSHBUTTON, "Edit", "Edit the selected item's properties",
     kItem},
    {IDC_FORM2_COMMAND7, "Button", BS_PUSHBUTTON, "Delete", "Delete Selected item", kItem},
    {IDC_FORM2_COMMAND4, "Button", BS_PUSHBUTTON, "Move Up",
     "Move the current item postition one step up", kItem},
    {IDC_FORM2_COMMAND8, "Button", BS_PUSHBUTTON, "Move Down",
     "Move the current item postition one step down", kItem},
    {IDC_FORM2_COMMAND9, "Button", BS_PUSHBUTTON, "Separator",
     "Add a seperator at the selected point", kItem},
    {IDC_FORM2_COMMAND11, "Button", BS_PUSHBUTTON, "Change Icon", "", kItem},
    {IDC_FORM2_COMMAND13, "Button", BS_PUSHBUTTON, "Change Menu Type", "", kItem},

    {IDC_FORM2_FRAME4, "Button", BS_GROUPBOX, "", "", kDirectory},
    {IDC_FORM2_LABEL15, "Static", 0, "Menu Type : Directory Pointer", "", kDirectory},
    {IDC_FORM2_IMAGE5, "Static", 0, kAny, "", kDirectory},
    {IDC_FORM2_DRIVE1_LABEL, "Static", 0, kAny, "", kDirectory},
    {IDC_FORM2_DRIVE1, "ComboBox", 0, kAny, "", kDirectory},
    {IDC_FORM2_DIR1_LABEL, "Static", 0, kAny, "", kDirectory},
    {IDC_FORM2_DIR1, "ListBox", 0, "", "", kDirectory},
    {IDC_FORM2_LABEL11, "Static", 0, "Current Path :", "", kDirectory},
    {IDC_FORM2_TEXT7, "Edit", 0, kAny,
     "The contents of this location will be displayed by the menu.", kDirectory},
    {IDC_FORM2_LABEL12, "Static", 0, "File Pattern :", "", kDirectory},
    {IDC_FORM2_TEXT8, "Edit", 0, kAny, "The type of files to display (*.* for all files)",
     kDirectory},
    {IDC_FORM2_CHECK2, "Button", BS_AUTOCHECKBOX, "Display Folders", "", kDirectory},
    {IDC_FORM2_CHECK3, "Button", BS_AUTOCHECKBOX, "Display Hidden Files", "", kDirectory},
    {IDC_FORM2_CHECK4, "Button", BS_AUTOCHECKBOX, "Hide file extentions for known file types", "",
     kDirectory},
    {IDC_FORM2_COMMAND15, "Button", BS_PUSHBUTTON, "Save Changes", "", kDirectory},
    {IDC_FORM2_COMMAND14, "Button", BS_PUSHBUTTON, "Change Menu Type", "", kDirectory},

    {IDC_FORM2_FRAME1, "Button", BS_GROUPBOX, "Menu Icon", "", kAppearance},
    {IDC_FORM2_PICTURE1, "Static", 0, "", "", kAppearance},
    {IDC_FORM2_PICTURE2, "Static", 0, "", "", kNever},
    {IDC_FORM2_HSCROLL1, "ScrollBar", 0, kAny, "", kAppearance},
    {IDC_FORM2_LABEL7, "Static", 0, kAny, "", kAppearance},
    {IDC_FORM2_LABEL8, "Static", 0, kAny, "", kAppearance},
    {IDC_FORM2_COMMAND10, "Button", BS_PUSHBUTTON, "Select Icon File", "", kAppearance},
    {IDC_FORM2_FRAME2, "Button", BS_GROUPBOX, "Menu Font", "", kAppearance},
    {IDC_FORM2_TEXT3_LABEL, "Static", 0, kAny, "", kAppearance},
    {IDC_FORM2_TEXT3, "Edit", 0, "Menu Text will look like this.", "", kAppearance},
    {IDC_FORM2_COMMAND6, "Button", BS_PUSHBUTTON, "Change Font", "", kAppearance},
    {IDC_FORM2_CHECK1, "Button", BS_AUTOCHECKBOX, "Show small icons in menu", "", kAppearance},
    {IDC_FORM2_COMMAND12, "Button", BS_PUSHBUTTON, "Save Changes", "", kAppearance},
    {IDC_FORM2_IMAGE3, "Static", 0, kAny, "", kAppearance},

    {IDC_FORM2_IMAGE1, "Static", 0, kAny, "", kAbout},
    {IDC_FORM2_LABEL5, "Static", 0, "Corvalis " CORVALIS_VERSION, "", kAbout},
};

// A page, and how a user opens it.
struct ShownPage {
  const char* name;
  std::string menu;
  int tab;
  unsigned page;
};

const ShownPage kPages[] = {
    {"items", UserDefinedMenu({}), 0, kItem},
    {"directory", DirectoryMenu("\"C:\\windows\\\",\"*.*\",1,0,0\r\n"), 0, kDirectory},
    {"appearance", UserDefinedMenu({}), 1, kAppearance},
    {"about", UserDefinedMenu({}), 2, kAbout},
    {"appearance of a directory pointer", DirectoryMenu("\"C:\\\",\"*.*\",1,0,0\r\n"), 1,
     kAppearance},
    {"about a directory pointer", DirectoryMenu("\"C:\\\",\"*.*\",1,0,0\r\n"), 2, kAbout},
};

class ControlsTest : public WindowTour {
 protected:
  void Show(const ShownPage& page) {
    ASSERT_TRUE(Open(page.menu));
    SelectTab(page.tab);
  }

  HWND ToolTips() {
    const HWND found = ThreadWindow(TOOLTIPS_CLASSA, [this](HWND window) {
      return RelatedWindow(window, GW_OWNER) == form().window();
    });
    EXPECT_NE(found, nullptr);
    return found;
  }

  std::string ToolTip(int id) {
    char text[256] = "";
    TTTOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = form().window();
    tool.uId = reinterpret_cast<UINT_PTR>(Control(id));
    tool.lpszText = text;
    SendMessageA(ToolTips(), TTM_GETTEXTA, sizeof text, reinterpret_cast<LPARAM>(&tool));
    return text;
  }

  // The ids of all controls of a window, even of hidden ones.
  static std::multiset<int> Ids(HWND window) {
    std::multiset<int> ids;
    for (const HWND control : ControlsOf(window)) {
      ids.insert(GetDlgCtrlID(control));
    }
    return ids;
  }
};

TEST_F(ControlsTest, MatchTheTable) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  for (const ExpectedControl& expected : kExpected) {
    SCOPED_TRACE(expected.id);
    const HWND control = Control(expected.id);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(ClassOf(control), expected.windowClass);
    if (std::string(expected.windowClass) == "Button") {
      EXPECT_EQ(GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK, expected.type);
    }
    if (expected.caption != kAny) {
      EXPECT_EQ(WindowBytes(control), expected.caption);
    }
    EXPECT_EQ(ToolTip(expected.id), expected.toolTip);
  }
}

TEST_F(ControlsTest, NoWindowHasOthers) {
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("Entry", "C:\\windows\\notepad.exe")})));
  SelectRow(0);
  std::multiset<int> expected;
  for (const ExpectedControl& control : kExpected) {
    expected.insert(control.id);
  }
  EXPECT_EQ(Ids(form().window()), expected);
  const auto child = [this](const char* windowClass, int button) {
    Press(button);
    const HWND window = ThreadWindow(windowClass);
    std::multiset<int> ids = Ids(window);
    SendMessageW(window, WM_CLOSE, 0, 0);
    RunMessages();
    return ids;
  };
  EXPECT_EQ(
      child("Form3", IDC_FORM2_COMMAND2),
      (std::multiset<int>{IDC_FORM3_PICTURE1, IDC_FORM3_LABEL1, IDC_FORM3_TEXT1, IDC_FORM3_COMMAND3,
                          IDC_FORM3_LABEL2, IDC_FORM3_TEXT2, IDC_FORM3_LABEL3, IDC_FORM3_TEXT3,
                          IDC_FORM3_TEXT4, IDC_FORM3_LINE, IDC_FORM3_COMMAND4, IDC_FORM3_COMMAND1,
                          IDC_FORM3_COMMAND5, IDC_FORM3_COMMAND2}));
  EXPECT_EQ(child("Form4", IDC_FORM2_COMMAND11),
            (std::multiset<int>{IDC_FORM4_PICTURE1, IDC_FORM4_HSCROLL1_LABEL, IDC_FORM4_HSCROLL1,
                                IDC_FORM4_LABEL1, IDC_FORM4_COMMAND2, IDC_FORM4_COMMAND1,
                                IDC_FORM4_COMMAND3}));
}

TEST_F(ControlsTest, ShowTheirToolTipUnderTheMouse) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  ShowWindow(form().window(), SW_SHOW);
  SetForegroundWindow(form().window());
  SetWindowPos(form().window(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  for (const int id : {IDC_FORM2_LIST1, IDC_FORM2_COMMAND9}) {
    SCOPED_TRACE(id);
    RECT place{};
    GetWindowRect(Control(id), &place);
    SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    mouse_event(MOUSEEVENTF_MOVE, 0, 0, 0, 0);
    TTTOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    const ULONGLONG end = GetTickCount64() + 5000;
    while (GetTickCount64() < end && tool.uId != reinterpret_cast<UINT_PTR>(Control(id))) {
      RunMessages();
      Sleep(10);
      if (IsWindowVisible(ToolTips())) {
        SendMessageA(ToolTips(), TTM_GETCURRENTTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
      }
    }
    EXPECT_EQ(tool.uId, reinterpret_cast<UINT_PTR>(Control(id)));
  }
}

TEST_F(ControlsTest, AreVisibleOnTheirPageOnly) {
  for (const ShownPage& page : kPages) {
    Show(page);
    for (const ExpectedControl& expected : kExpected) {
      EXPECT_EQ(IsVisible(expected.id), (expected.pages & page.page) != 0)
          << expected.id << " on " << page.name;
    }
  }
}

TEST_F(ControlsTest, TheFirstPageComesBackWithItsTab) {
  for (const ShownPage& page : kPages) {
    Show(page);
    SelectTab(0);
    const bool isDirectory = page.menu.find("DIRPOINT") != std::string::npos;
    EXPECT_EQ(IsVisible(IDC_FORM2_FRAME4), isDirectory) << page.name;
    EXPECT_EQ(IsVisible(IDC_FORM2_FRAME3), !isDirectory) << page.name;
  }
}

TEST_F(ControlsTest, BothFramesAreInOnePlace) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  const RECT items = Place(Control(IDC_FORM2_FRAME3));
  const RECT directory = Place(Control(IDC_FORM2_FRAME4));
  EXPECT_TRUE(EqualRect(&items, &directory));
}

TEST_F(ControlsTest, TheWindowHasALeastSize) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  RECT before{};
  GetWindowRect(form().window(), &before);
  Enlarge(form().window(), -200, -200);
  MINMAXINFO info{};
  SendMessageA(form().window(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
  EXPECT_EQ(info.ptMinTrackSize.x, before.right - before.left);
  EXPECT_EQ(info.ptMinTrackSize.y, before.bottom - before.top);
}

}  // namespace
