#ifndef CORVALIS_TESTS_WINDOWS_WIZARD_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_WIZARD_TEST_BASE_H_

#include <windows.h>

#include <string>
#include <vector>

#include "tests/windows/list_test_base.h"

// Opens the wizard from the editor window and uses it.
class WizardTestBase : public ListTest {
 protected:
  void OpenAdd();
  void OpenEdit(int row);
  // nullptr when it is not open.
  static HWND Wizard();
  static HWND WizardControl(int id) { return GetDlgItem(Wizard(), id); }

  void PressWizard(int buttonId);
  void TypeWizard(int editId, const std::string& text);
  // A key that is pressed in a control and goes through the message loop.
  void Key(HWND control, int key);

  static std::string WizardText(int id);
  static bool IsWizardEnabled(int id) { return IsWindowEnabled(WizardControl(id)) != FALSE; }
  static int DefaultButton();
  // The buttons that are drawn as the default one.
  static std::vector<int> DrawnAsDefault();

  // The wizard is on that page, with all that belongs to it.
  static void ExpectTargetPage(int defaultButton);
  static void ExpectNamePage(int defaultButton = IDC_FORM3_COMMAND5);
  // It has gone, and the editor window is back.
  void ExpectClosed();

  // The window is in front, or comes there.
  static void ExpectFront(HWND window);

  // Goes from the opening to the second page and presses Finish.
  void Finish(const std::string& target, const std::string& name, const std::string& arguments = "",
              const std::string& startIn = "");

 private:
  static void ExpectShown(const std::vector<int>& visible);
};

#endif  // CORVALIS_TESTS_WINDOWS_WIZARD_TEST_BASE_H_
