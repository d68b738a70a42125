#ifndef CORVALIS_TESTS_WINDOWS_WIZARD_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_WIZARD_TEST_BASE_H_

#include <windows.h>

#include <ole2.h>

#include "tests/windows/list_test_base.h"
#include "tests/windows/related_window.h"

// Opens the wizard from the editor window.
class WizardTestBase : public ListTest {
 protected:
  static constexpr int kNext = IDC_FORM3_COMMAND1, kBack = IDC_FORM3_COMMAND4,
                       kFinish = IDC_FORM3_COMMAND5, kCancel = IDC_FORM3_COMMAND2,
                       kTarget = IDC_FORM3_TEXT1, kArguments = IDC_FORM3_TEXT2,
                       kStartIn = IDC_FORM3_TEXT3, kName = IDC_FORM3_TEXT4;

  void OpenAdd();
  void OpenEdit(int row);
  // Opens the wizard on that row, or to add an entry.
  void OpenWizard(bool edits, int row) { edits ? OpenEdit(row) : OpenAdd(); }
  // The wizard; nullptr if it is not open.
  static HWND Wizard() { return ThreadWindow("Form3"); }
  static HWND WizardControl(int id) { return GetDlgItem(Wizard(), id); }

  void PressWizard(int buttonId);
  void TypeWizard(int editId, const std::string& text);
  // Presses a key in a control, through the message loop.
  void Key(HWND control, int key);

  static std::string WizardText(int id);
  // The texts of its boxes: target, arguments, start-in folder, name.
  static Texts Boxes();
  // Types a target and presses Next.
  void Next(const std::string& target);
  static bool IsWizardEnabled(int id) { return IsWindowEnabled(WizardControl(id)) != FALSE; }
  static int DefaultButton();
  // The buttons that are drawn as the default one.
  static std::vector<int> DrawnAsDefault();

  // Expects that page of the wizard, with its controls, prompt and default button.
  static void ExpectTargetPage(int defaultButton);
  static void ExpectNamePage(int defaultButton = IDC_FORM3_COMMAND5);
  // Expects that the wizard is closed and the editor window is enabled and in front.
  void ExpectClosed();

  static void ExpectFront(HWND window);

  // What the list has registered with OLE: Windows and Wine keep it in this property.
  IDropTarget* Target() {
    return static_cast<IDropTarget*>(GetPropA(Control(IDC_FORM2_LIST1), "OleDropTargetInterface"));
  }
  void Drop(const std::vector<std::wstring>& paths);

  // Fills both pages of a wizard that has just opened and presses Finish.
  void Finish(const std::string& target, const std::string& name, const std::string& arguments = "",
              const std::string& startIn = "");

 private:
  static void ExpectShown(const std::vector<int>& visible);
};

#endif  // CORVALIS_TESTS_WINDOWS_WIZARD_TEST_BASE_H_
