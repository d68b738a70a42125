#ifndef CORVALIS_TESTS_WINDOWS_FORM4_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_FORM4_TEST_BASE_H_

#include "menufile/rewrite.h"
#include "tests/windows/icon_test_base.h"

// Opens the Select Icon window for an entry of a menu.
class Form4TestBase : public IconTest {
 protected:
  void OpenFor(const std::string& menu, int row) {
    ASSERT_TRUE(Open(menu));
    ChangeIcon(row);
    ASSERT_NE(Form4(), nullptr);
  }
  void ChangeIcon(int row) {
    SelectRow(row);
    Press(IDC_FORM2_COMMAND11);
  }

  // A menu whose second entry is `itemLine`.
  std::string Menu(const std::string& itemLine) const {
    return testing_menus::UserDefinedMenu(
        {testing_menus::ItemLine("First", "C:\\first.exe", "/a", "C:\\", two, "1"), itemLine,
         testing_menus::kSeparatorLine,
         testing_menus::ItemLine("Last", "C:\\last", "", "", "", "")},
        "1,\"MS Sans Serif\",9.75,-1,0\r\n");
  }
  std::string Item(const std::string& iconFile, const std::string& iconIndex) const {
    return testing_menus::ItemLine("Item", one, "/x, \x80", "C:\\in", iconFile, iconIndex);
  }
  void OpenForItem(const std::string& iconFile, const std::string& iconIndex) {
    OpenFor(Menu(Item(iconFile, iconIndex)), 1);
  }

  HWND bar() { return Form4Control(IDC_FORM4_HSCROLL1); }
  std::string Label() { return WindowBytes(Form4Control(IDC_FORM4_LABEL1)); }
  std::vector<COLORREF> Preview() { return Painted(Form4Control(IDC_FORM4_PICTURE1)); }
  void ExpectShown(const ShownIcons& shown) {
    IconTest::ExpectShown(Form4Control(IDC_FORM4_LABEL1), bar(), Form4Control(IDC_FORM4_PICTURE1),
                          shown);
  }
  bool IsEditorEnabled() { return IsWindowEnabled(form().window()) != FALSE; }

  void Activate(WORD state) {
    SendMessageA(Form4(), WM_ACTIVATE, state, 0);
    RunMessages();
  }
  void Choose(const std::string& path) {
    ChooseInDialog(path);
    PressInForm4(IDC_FORM4_COMMAND2);
  }
  void PressOk() { PressInForm4(IDC_FORM4_COMMAND1); }

  const std::string scratch = menufile::kDialogScratchFile;
};

#endif  // CORVALIS_TESTS_WINDOWS_FORM4_TEST_BASE_H_
