#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_OUTSIDE_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_OUTSIDE_TEST_BASE_H_

#include <gtest/gtest.h>

#include <memory>

#include "resources/resource.h"
#include "tests/windows/menu_bytes.h"
#include "tests/windows/outside/program.h"

// Starts the program with a menu file in a temporary folder, which is also its current
// directory.
class OutsideTest : public ::testing::Test {
 protected:
  OutsideTest();
  ~OutsideTest() override;

  // Starts the program with the present menu file, and waits for its window or a question.
  void StartAsItStands() { StartOn(MenuPath(), folder_); }
  void StartOn(const std::string& menuPath, const std::string& currentFolder);
  // Writes the menu file, starts the program and waits for its window.
  void Start(const std::string& menuBytes);
  outside::Program& program() { return *program_; }
  HWND form2() const { return form2_; }
  void WaitForForm2();
  HWND Control(int id) const { return GetDlgItem(form2_, id); }
  HWND List() const { return Control(IDC_FORM2_LIST1); }
  std::vector<std::string> Rows() const { return outside::ListRows(List()); }

  // Presses a button of Form2 and waits until it has done its work. Not for buttons that
  // open a dialog box.
  void Press(int buttonId);

  // Waits for the dialog box with that title. Returns nullptr if none opens.
  HWND WaitForDialog(const std::string& title);
  // Presses a button of a message box.
  void Answer(const std::string& title, const std::string& text, int buttonId);
  void Confirm(const std::string& title, const std::string& text) { Answer(title, text, IDOK); }
  // Presses a button of the window and chooses the file in the dialog that it opens.
  void ChooseFile(HWND window, int buttonId, const std::string& title, const std::string& path);
  static bool WaitForText(HWND window, int id, const std::string& text);
  static void ScrollTo(HWND window, int barId, int position);

  // Presses a button of Form2 that opens the wizard.
  HWND OpenWizard(int buttonId);
  // Presses Next > and waits for the second page.
  void Next(HWND wizard);
  void Finish(HWND wizard);

  void SelectTab(int tab);
  void ShowAppearancePage();
  void ClickPreview();
  HWND OpenFontDialog();
  // Selects rows of the font dialog's lists. The styles are rows, because their texts are
  // in the user's language.
  static constexpr int kBold = 2;
  static constexpr int kBoldItalic = 3;
  void ChooseFont(HWND dialog, const char* name, int styleRow, const char* size);

  // Closes the window. Expects the exit code 0 and no scratch file.
  void ExpectCleanEnd();

  const std::string& folder() const { return folder_; }
  std::string PathOf(const std::string& name) const { return folder_ + "\\" + name; }
  std::string MenuPath() const { return PathOf("test.menu"); }
  std::string MenuBytes() const { return BytesOf(MenuPath()); }
  static bool Exists(const std::string& path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  static std::string BytesOf(const std::string& path);
  static void WriteBytes(const std::string& path, const std::string& bytes);

 private:
  std::string folder_;
  std::unique_ptr<outside::Program> program_;
  HWND form2_ = nullptr;
};

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_OUTSIDE_TEST_BASE_H_
