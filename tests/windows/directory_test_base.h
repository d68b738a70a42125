#ifndef CORVALIS_TESTS_WINDOWS_DIRECTORY_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_DIRECTORY_TEST_BASE_H_

#include <utility>

#include "tests/windows/drives.h"
#include "tests/windows/form2_test_base.h"
#include "win32/folder_list.h"
#include "win32/text.h"

// The editor window on directory-pointer menus.
class DirectoryTest : public Form2Test {
 protected:
  static constexpr const char* kQuestion =
      "Changing menu type will lose existing data.\rDo you wish to continue?";

  // The line of a directory record.
  static std::string Line(const std::string& path, const std::string& pattern = "*.*",
                          const std::string& flags = "1,0,1") {
    return "\"" + path + "\",\"" + pattern + "\"," + flags + "\r\n";
  }

  std::string Path() { return Text(IDC_FORM2_TEXT7); }
  std::string Pattern() { return Text(IDC_FORM2_TEXT8); }
  std::string Drive() {
    return win32::ToBytes(win32::SelectedDrive(Control(IDC_FORM2_DRIVE1))).value();
  }
  // "1" or "0" for each check box: Display Folders, Display Hidden Files, Hide file
  // extentions.
  std::string Checks() {
    std::string checks;
    for (const int id : {IDC_FORM2_CHECK2, IDC_FORM2_CHECK3, IDC_FORM2_CHECK4}) {
      checks += IsChecked(id) ? "1" : "0";
    }
    return checks;
  }
  bool ShowsDirectoryPage() {
    const bool directory = IsVisible(IDC_FORM2_FRAME4);
    EXPECT_NE(directory, IsVisible(IDC_FORM2_FRAME3));
    return directory;
  }

  // Expects this on the page. What is not given may be anything.
  struct ShownPage {
    std::optional<std::string> drive = {}, list = {}, path = {}, pattern = {}, checks = {};
  };
  void ExpectPage(const ShownPage& page) {
    EXPECT_EQ(Drive(), page.drive.value_or(Drive()));
    EXPECT_EQ(ListPath(), page.list.value_or(ListPath()));
    EXPECT_EQ(Path(), page.path.value_or(Path()));
    EXPECT_EQ(Pattern(), page.pattern.value_or(Pattern()));
    EXPECT_EQ(Checks(), page.checks.value_or(Checks()));
  }

  // The path of the rows of the folder list down to the selected one.
  std::string ListPath() {
    const HWND list = Control(IDC_FORM2_DIR1);
    const int selected = static_cast<int>(SendMessageA(list, LB_GETCURSEL, 0, 0));
    std::string path;
    for (int row = 0; row <= selected; ++row) {
      path += (row > 1 ? "\\" : "") + RowBytes(list, row);
    }
    return path;
  }
  int RowOf(const std::string& name) {
    return static_cast<int>(SendMessageA(Control(IDC_FORM2_DIR1), LB_FINDSTRINGEXACT,
                                         static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(name.c_str())));
  }

  // The actions of a user.
  void ChooseDrive(const std::string& drive) {
    const HWND combo = Control(IDC_FORM2_DRIVE1);
    ASSERT_TRUE(win32::SelectDrive(combo, win32::ToText(drive)));
    Notify(IDC_FORM2_DRIVE1, CBN_SELCHANGE);
  }
  void Notify(int id, int code) {
    SendMessageA(form().window(), WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, code)),
                 reinterpret_cast<LPARAM>(Control(id)));
    RunMessages();
  }
  void ClickFolder(const std::string& name) { ClickFolder(name, WM_LBUTTONDOWN); }
  void DoubleClickFolder(const std::string& name) {
    ClickFolder(name, WM_LBUTTONDOWN);
    ClickFolder(name, WM_LBUTTONDBLCLK);
  }
  void ClickFolder(const std::string& name, UINT down) {
    const HWND list = Control(IDC_FORM2_DIR1);
    const int row = RowOf(name);
    ASSERT_GE(row, 0) << name;
    RECT rect{};
    SendMessageA(list, LB_SETTOPINDEX, static_cast<WPARAM>(row), 0);
    SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
    const LPARAM point = MAKELPARAM(rect.left + 30, (rect.top + rect.bottom) / 2);
    SendMessageA(list, down, MK_LBUTTON, point);
    SendMessageA(list, WM_LBUTTONUP, 0, point);
    RunMessages();
  }
  // Sends keys through the message queue, like a keyboard.
  void PressKey(int id, WPARAM key) {
    PostMessageA(Control(id), WM_KEYDOWN, key, 1);
    PostMessageA(Control(id), WM_KEYUP, key, 1);
    RunMessages();
  }
  void TypeKeys(int id, const std::string& text) {
    for (const char c : text) {
      SendMessageA(Control(id), WM_CHAR, static_cast<unsigned char>(c), 1);
    }
    RunMessages();
  }

  // The start and the end of the selection in an edit box.
  std::pair<DWORD, DWORD> Caret(int id) {
    DWORD first = 0;
    DWORD last = 0;
    SendMessageA(Control(id), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&last));
    return {first, last};
  }
  void SetCaret(int id, int first, int last) {
    SendMessageA(Control(id), EM_SETSEL, static_cast<WPARAM>(first), last);
  }
};

#endif  // CORVALIS_TESTS_WINDOWS_DIRECTORY_TEST_BASE_H_
