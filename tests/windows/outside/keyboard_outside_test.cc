#include <windows.h>

#include <commctrl.h>

#include <set>

#include "tests/windows/icon_files.h"
#include "tests/windows/outside/keyboard.h"
#include "tests/windows/outside/outside_test_base.h"

using outside::PressKey;
using outside::TypeText;
using outside::WaitUntil;
using testing_icons::Library;
using namespace testing_menus;

// Goes through all windows of the program with keys alone.
class KeyboardOutsideTest : public OutsideTest {
 protected:
  KeyboardOutsideTest() { WriteBytes(library, Library(colours)); }

  // Waits until the window is in front: the keys go to it from here on.
  void Use(HWND window) {
    ASSERT_NE(window, nullptr);
    window_ = window;
    ASSERT_TRUE(outside::WaitForFront(window)) << "not in front: " << outside::Text(window);
    LookAround();
  }
  void UseForm(const char* windowClass) { Use(program().WaitFor(windowClass)); }
  void UseDialog(const std::string& title) {
    HWND dialog = nullptr;
    ASSERT_TRUE(WaitUntil([&] {
      dialog = program().Find("#32770");
      return dialog != nullptr && outside::Text(dialog) == title;
    })) << title;
    Use(dialog);
  }
  void UseForm2Again(const char* closedClass) {
    ASSERT_TRUE(program().WaitUntilGone(closedClass)) << closedClass;
    Use(form2());
  }

  bool HasFocus(int id) {
    return WaitUntil([=, this] { return outside::FocusIn(window_) == GetDlgItem(window_, id); });
  }

  // Presses Tab, or Shift+Tab, until the control has the focus or the round is complete.
  void TabTo(int id, bool back = false) {
    LookAround();
    std::set<HWND> passed;
    HWND focus = outside::FocusIn(window_);
    while (focus != GetDlgItem(window_, id)) {
      ASSERT_TRUE(passed.insert(focus).second) << "no way to " << id;
      PressKey(VK_TAB, back ? std::vector<WORD>{VK_SHIFT} : std::vector<WORD>{});
      const HWND former = focus;
      ASSERT_TRUE(WaitUntil([&] {
        focus = outside::FocusIn(window_);
        return focus != nullptr && focus != former;
      })) << "no way on from "
          << GetDlgCtrlID(former);
      reached_.insert(GetDlgCtrlID(focus));
    }
  }
  void Push(int buttonId) {
    TabTo(buttonId);
    PressKey(VK_SPACE);
  }

  void ExpectMenu(const std::string& bytes) {
    EXPECT_TRUE(WaitUntil([&] { return MenuBytes() == bytes; }, 5000));
    EXPECT_EQ(MenuBytes(), bytes);
  }
  void ExpectText(int id, const std::string& text) {
    EXPECT_TRUE(WaitUntil([&] { return outside::Text(window_, id) == text; }, 5000));
    EXPECT_EQ(outside::Text(window_, id), text);
  }
  void SelectFirstRow() {
    TabTo(IDC_FORM2_LIST1);
    PressKey(VK_HOME);
    // If no row is selected, any key selects the list's current one.
    PressKey(VK_HOME);
    EXPECT_TRUE(WaitUntil([this] { return outside::SelectedRow(List()) == 0; }));
  }
  void ExpectTab(int tab) {
    EXPECT_TRUE(WaitUntil([=, this] {
      return SendMessageA(Control(IDC_FORM2_SSTAB1), TCM_GETCURSEL, 0, 0) == tab;
    })) << tab;
  }

  void AddAnEntry();
  void EditAnEntry();
  void MoveSeparateAndDelete();
  void ChangeAnIcon();
  void ChangeTheAppearance();
  void PointToAFolder();

  // The controls with WS_TABSTOP, and those that Tab has reached.
  std::set<int> stops_;
  std::set<int> reached_;

  const std::vector<COLORREF> colours = testing_icons::Colours(12);
  const std::string library = PathOf("twelve.dll");
  const std::string notepad = "C:\\windows\\notepad.exe";
  const std::string first = ItemLine("First", notepad, "", "", library, "0");
  const std::string second = ItemLine("Second", notepad);

 private:
  void LookAround() {
    if (ClassOf(window_) == "#32770") {
      return;  // a dialog of Windows
    }
    reached_.insert(GetDlgCtrlID(outside::FocusIn(window_)));
    for (const HWND control : ControlsOf(window_)) {
      if (IsWindowVisible(control) && IsWindowEnabled(control) &&
          (GetWindowLongA(control, GWL_STYLE) & WS_TABSTOP) != 0) {
        stops_.insert(GetDlgCtrlID(control));
      }
    }
  }

  HWND window_ = nullptr;
};

void KeyboardOutsideTest::AddAnEntry() {
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND2));
  ASSERT_NO_FATAL_FAILURE(UseForm("Form3"));
  ASSERT_TRUE(HasFocus(IDC_FORM3_TEXT1));
  TypeText(notepad);
  ExpectText(IDC_FORM3_TEXT1, notepad);
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM3_TEXT2));
  TypeText("/p");
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM3_TEXT3));
  TypeText("C:\\");
  PressKey(VK_RETURN);  // Next, the default button
  ASSERT_TRUE(HasFocus(IDC_FORM3_TEXT4));
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM3_COMMAND4));
  ASSERT_TRUE(HasFocus(IDC_FORM3_TEXT1));
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM3_COMMAND1));
  ASSERT_TRUE(HasFocus(IDC_FORM3_TEXT4));
  TypeText("Third");  // replaces the proposed name, which is selected
  ExpectText(IDC_FORM3_TEXT4, "Third");
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM3_COMMAND5));
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM3_TEXT4, true));
  PressKey(VK_RETURN);  // Finish
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("Form3"));
  ExpectMenu(UserDefinedMenu({first, second, ItemLine("Third", notepad, "/p", "C:\\")}));
}

void KeyboardOutsideTest::EditAnEntry() {
  const std::string before = MenuBytes();
  ASSERT_NO_FATAL_FAILURE(SelectFirstRow());
  PressKey(VK_END);
  EXPECT_TRUE(WaitUntil([this] { return outside::SelectedRow(List()) == 2; }));
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND3));
  ASSERT_NO_FATAL_FAILURE(UseForm("Form3"));
  ExpectText(IDC_FORM3_TEXT4, "Third");
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM3_COMMAND3));
  ASSERT_NO_FATAL_FAILURE(UseDialog("Select Program"));
  PressKey(VK_ESCAPE);
  ASSERT_TRUE(program().WaitUntilGone("#32770"));
  ASSERT_NO_FATAL_FAILURE(UseForm("Form3"));
  ExpectText(IDC_FORM3_TEXT1, "");
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM3_COMMAND2));
  PressKey(VK_ESCAPE);
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("Form3"));
  ExpectMenu(before);

  PressKey(VK_SPACE);  // the focus is still on Edit
  ASSERT_NO_FATAL_FAILURE(UseForm("Form3"));
  PressKey(VK_RETURN);
  ASSERT_TRUE(HasFocus(IDC_FORM3_TEXT4));
  TypeText("Last");
  PressKey(VK_RETURN);
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("Form3"));
  ExpectMenu(UserDefinedMenu({first, second, ItemLine("Last", notepad, "/p", "C:\\")}));
}

void KeyboardOutsideTest::MoveSeparateAndDelete() {
  const std::string last = ItemLine("Last", notepad, "/p", "C:\\");
  ASSERT_NO_FATAL_FAILURE(SelectFirstRow());
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND8));
  ExpectMenu(UserDefinedMenu({second, first, last}));
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND4));
  ExpectMenu(UserDefinedMenu({first, second, last}));
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND9));
  ExpectMenu(UserDefinedMenu({kSeparatorLine, first, second, last}));
  ASSERT_NO_FATAL_FAILURE(SelectFirstRow());
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND7));
  ExpectMenu(UserDefinedMenu({first, second, last}));
  ASSERT_NO_FATAL_FAILURE(SelectFirstRow());
  PressKey(VK_DOWN);
  PressKey(VK_DOWN);
  EXPECT_TRUE(WaitUntil([this] { return outside::SelectedRow(List()) == 2; }));
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND7));
  ExpectMenu(UserDefinedMenu({first, second}));
}

void KeyboardOutsideTest::ChangeAnIcon() {
  ASSERT_NO_FATAL_FAILURE(SelectFirstRow());
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND11));
  ASSERT_NO_FATAL_FAILURE(UseForm("Form4"));
  ExpectText(IDC_FORM4_LABEL1, "12 Icons");
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM4_COMMAND3));
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("Form4"));

  PressKey(VK_SPACE);
  ASSERT_NO_FATAL_FAILURE(UseForm("Form4"));
  ExpectText(IDC_FORM4_LABEL1, "12 Icons");
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM4_COMMAND2));
  ASSERT_NO_FATAL_FAILURE(UseDialog("Select a DLL or EXE which includes Icons"));
  PressKey(VK_RETURN);  // the same file again
  ASSERT_TRUE(program().WaitUntilGone("#32770"));
  ASSERT_NO_FATAL_FAILURE(UseForm("Form4"));
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM4_COMMAND1));
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM4_HSCROLL1));
  PressKey(VK_RIGHT);
  PressKey(VK_RIGHT);
  PressKey(VK_RETURN);  // OK
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("Form4"));
  ExpectMenu(UserDefinedMenu({ItemLine("First", notepad, "", "", library, "2"), second}));
}

void KeyboardOutsideTest::ChangeTheAppearance() {
  PressKey(VK_TAB, {VK_CONTROL});
  ExpectTab(1);
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM2_TEXT3));
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND6));
  ASSERT_NO_FATAL_FAILURE(UseDialog("Select Font"));
  PressKey(VK_ESCAPE);
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("#32770"));
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND10));
  ASSERT_NO_FATAL_FAILURE(UseDialog("Select a DLL or EXE which includes Icons"));
  TypeText(library);
  PressKey(VK_RETURN);
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("#32770"));
  ExpectText(IDC_FORM2_LABEL8, "12 Icons");
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM2_HSCROLL1, true));
  PressKey(VK_END);
  PressKey(VK_LEFT);
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM2_PICTURE1, true));
  PressKey(VK_SPACE);  // the icon on the colour of the desktop
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_CHECK1));
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND12));
  ASSERT_NO_FATAL_FAILURE(UseDialog("Corvalis Edit"));
  PressKey(VK_RETURN);
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("#32770"));

  const std::string menu = MenuBytes();
  const std::size_t marker = menu.find("\r\n<START ZOL>\r\n");
  EXPECT_EQ(menu.substr(marker),
            UserDefinedMenu({ItemLine("First", notepad, "", "", library, "2"), second},
                            "1,\"Tahoma\",8.25,0,0\r\n", ""));
  EXPECT_TRUE(menu.substr(0, marker) == testing_icons::BitmapFile(testing_icons::PixelsOf(
                                            colours[10], GetSysColor(COLOR_BACKGROUND))));
  PressKey(VK_NEXT, {VK_CONTROL});
  ExpectTab(2);
  PressKey(VK_TAB, {VK_CONTROL, VK_SHIFT});
  ExpectTab(1);
  PressKey(VK_PRIOR, {VK_CONTROL});
  ExpectTab(0);
}

void KeyboardOutsideTest::PointToAFolder() {
  const std::string before = MenuBytes();
  const std::string picture = before.substr(0, before.find("\r\n<START ZOL>\r\n"));
  const auto menu = [&](const std::string& line) {
    return DirectoryMenu(line, "1,\"Tahoma\",8.25,0,0\r\n", picture);
  };
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND13));
  ASSERT_NO_FATAL_FAILURE(UseDialog("Query?"));
  PressKey(VK_RETURN);  // Yes
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("#32770"));
  ExpectMenu(menu("\"C:\\\",\"*.*\",1,0,0\r\n"));
  // The pressed button is hidden, and the one in its place has the focus.
  ASSERT_TRUE(HasFocus(IDC_FORM2_COMMAND14));

  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM2_DRIVE1));
  PressKey('Z');
  EXPECT_TRUE(WaitUntil([this] { return outside::Text(form2(), IDC_FORM2_TEXT7)[0] == 'Z'; }));
  PressKey('C');
  EXPECT_TRUE(WaitUntil([this] { return outside::Text(form2(), IDC_FORM2_TEXT7)[0] == 'C'; }));
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM2_DIR1));
  PressKey(VK_HOME);
  PressKey(VK_RETURN);
  ExpectText(IDC_FORM2_TEXT7, "C:\\");
  PressKey('W');  // windows
  PressKey(VK_RETURN);
  ExpectText(IDC_FORM2_TEXT7, "C:\\windows\\");
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM2_TEXT7));
  PressKey(VK_END);
  TypeText("temp");
  ExpectText(IDC_FORM2_TEXT7, "C:\\windows\\temp\\");
  ASSERT_NO_FATAL_FAILURE(TabTo(IDC_FORM2_TEXT8));
  TypeText("*.exe");
  for (const int check : {IDC_FORM2_CHECK2, IDC_FORM2_CHECK3, IDC_FORM2_CHECK4}) {
    ASSERT_NO_FATAL_FAILURE(Push(check));
  }
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND15));
  ExpectMenu(menu("\"C:\\windows\\temp\\\",\"*.exe\",1,1,1\r\n"));

  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND14));
  ASSERT_NO_FATAL_FAILURE(UseDialog("Query?"));
  PressKey(VK_TAB);
  PressKey(VK_RETURN);  // No
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("#32770"));
  PressKey(VK_SPACE);
  ASSERT_NO_FATAL_FAILURE(UseDialog("Query?"));
  PressKey(VK_RETURN);
  ASSERT_NO_FATAL_FAILURE(UseForm2Again("#32770"));
  ExpectMenu(UserDefinedMenu({}, "1,\"Tahoma\",8.25,0,0\r\n", picture));
  ASSERT_TRUE(HasFocus(IDC_FORM2_COMMAND13));
}

TEST_F(KeyboardOutsideTest, EverythingIsDoneWithKeysAlone) {
  Start(UserDefinedMenu({first, second}));
  ASSERT_NO_FATAL_FAILURE(Use(form2()));
  ASSERT_TRUE(HasFocus(IDC_FORM2_SSTAB1));
  ASSERT_NO_FATAL_FAILURE(AddAnEntry());
  ASSERT_NO_FATAL_FAILURE(EditAnEntry());
  ASSERT_NO_FATAL_FAILURE(MoveSeparateAndDelete());
  ASSERT_NO_FATAL_FAILURE(ChangeAnIcon());
  ASSERT_NO_FATAL_FAILURE(ChangeTheAppearance());
  ASSERT_NO_FATAL_FAILURE(PointToAFolder());
  for (const int id : stops_) {
    EXPECT_EQ(reached_.count(id), 1U) << id;
  }
  EXPECT_GE(stops_.size(), 40U) << "not all windows were gone through";
  ASSERT_NO_FATAL_FAILURE(Push(IDC_FORM2_COMMAND5));
  EXPECT_EQ(program().WaitForExit(), 0U);
}
