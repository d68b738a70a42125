#ifndef CORVALIS_TESTS_WINDOWS_ICON_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_ICON_TEST_BASE_H_

#include "tests/windows/form2_test_base.h"
#include "tests/windows/icon_files.h"
#include "tests/windows/related_window.h"

// The base of the tests of both windows that show icons.
class IconTest : public Form2Test {
 protected:
  IconTest();

  // Writes a file into the folder and returns its path.
  std::string Write(const std::string& name, const std::string& bytes);

  // The Select Icon window; nullptr if it is not open.
  static HWND Form4() { return ThreadWindow("Form4"); }
  HWND Form4Control(int id) { return GetDlgItem(Form4(), id); }
  void PressInForm4(int buttonId);

  // The texts of a file dialog when it opened.
  struct FileDialog {
    std::string title;
    std::string name;
    std::string filter;
  };
  // Answers the next file dialog with that name and OK, or with Cancel.
  void ChooseInDialog(const std::string& path);
  void CancelDialog();
  const std::vector<FileDialog>& FileDialogs() const { return fileDialogs_; }

  // Moves a scroll bar like a user. `request` is that of WM_HSCROLL.
  static void Scroll(HWND bar, int request, int position = 0);
  static int Position(HWND bar);
  static int LastPosition(HWND bar);

  // What a window shows of a file with icons.
  struct ShownIcons {
    std::optional<std::string> label = {};
    std::optional<int> last = {};
    std::optional<int> position = {};
    std::optional<std::vector<COLORREF>> preview = {};
  };
  // Expects this in such controls. What is not given may be anything.
  static void ExpectShown(HWND label, HWND bar, HWND preview, const ShownIcons& shown);

  // The pixels that a picture box paints, row by row from the top left.
  static std::vector<COLORREF> Painted(HWND pictureBox);
  std::vector<COLORREF> Painted(int id) { return Painted(Control(id)); }

  // The pixels of a box with such an icon, and of an empty one.
  std::vector<COLORREF> Showing(COLORREF icon) const;
  std::vector<COLORREF> ShowingOnPage(COLORREF icon);
  static std::vector<COLORREF> Empty(int systemColour = COLOR_BTNFACE);

  const std::vector<COLORREF> colours = testing_icons::Colours(12);
  std::string one;     // the path of a library with one icon
  std::string two;     // the path of one with two icons
  std::string twelve;  // the path of one with twelve icons
  std::string none;    // the path of one without icons

 private:
  void DriveFileDialog(HWND dialog, const std::optional<std::string>& path);

  std::vector<FileDialog> fileDialogs_;
};

#endif  // CORVALIS_TESTS_WINDOWS_ICON_TEST_BASE_H_
