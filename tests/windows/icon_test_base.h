#ifndef CORVALIS_TESTS_WINDOWS_ICON_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_ICON_TEST_BASE_H_

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/windows/form2_test_base.h"
#include "tests/windows/icon_files.h"

// What the tests of both windows that show icons need besides the editor
// window.
class IconTest : public Form2Test {
 protected:
  IconTest();

  // Writes a file into the folder and returns its path.
  std::string Write(const std::string& name, const std::string& bytes);

  // The Select Icon window; nullptr when there is none.
  HWND Form4();
  HWND Form4Control(int id) { return GetDlgItem(Form4(), id); }
  void PressInForm4(int buttonId);

  // What the open dialog was like when it came up.
  struct FileDialog {
    std::string title;
    std::string name;
    std::string filter;
  };
  // The next file dialog is given that name and OK, or is cancelled.
  void ChooseInDialog(const std::string& path);
  void CancelDialog();
  const std::vector<FileDialog>& FileDialogs() const { return fileDialogs_; }

  // Moves a scroll bar as the user does: SB_LINERIGHT, for one.
  static void Scroll(HWND bar, int request, int position = 0);
  static int Position(HWND bar);
  static int LastPosition(HWND bar);

  // What a picture box (of the window that holds it) paints, row by row.
  static std::vector<COLORREF> Painted(HWND pictureBox);
  std::vector<COLORREF> Painted(int id) { return Painted(Control(id)); }

  // A box with such an icon, and an empty one.
  std::vector<COLORREF> Showing(COLORREF icon) const;
  std::vector<COLORREF> ShowingOnPage(COLORREF icon);
  static std::vector<COLORREF> Empty(int systemColour = COLOR_BTNFACE);

  // The exit code once the program was asked to end.
  static std::optional<int> ExitCode();

  const std::vector<COLORREF> colours = testing_icons::Colours(12);
  std::string one;     // a library with one icon,
  std::string two;     // with two,
  std::string twelve;  // and with twelve
  std::string none;    // and with none

 private:
  void DriveFileDialog(HWND dialog, const std::optional<std::string>& path);

  std::vector<FileDialog> fileDialogs_;
};

#endif  // CORVALIS_TESTS_WINDOWS_ICON_TEST_BASE_H_
