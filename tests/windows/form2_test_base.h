#ifndef CORVALIS_TESTS_WINDOWS_FORM2_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_FORM2_TEST_BASE_H_

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "editor/form2.h"
#include "editor/windows_files.h"
#include "resources/resource.h"
#include "tests/windows/dialog_answers.h"
#include "tests/windows/menu_bytes.h"
#include "tests/windows/window_bytes.h"

// Opens the editor window, hidden, on a menu file in a temporary folder, which
// is the current directory of the test.
class Form2Test : public ::testing::Test {
 protected:
  Form2Test();
  ~Form2Test() override;

  // Writes the bytes and loads them; false as for Form2::StartUp().
  bool Open(const std::string& menuBytes);
  // Loads the file at MenuPath() as it is.
  bool Load();
  editor::Form2& form() { return *form_; }
  HWND Control(int id) { return form_->Control(id); }

  // What the user does. Each runs the messages that follow.
  void Press(int buttonId);  // a button or check box
  void SelectRow(int row);   // of List1, with its notification
  void SelectTab(int tab);
  void Type(int editId, const std::string& text);
  static void RunMessages();
  // True if the program was told to end. It is not any more.
  static bool TakeQuit();

  // What the user sees.
  std::vector<std::string> Rows();
  int SelectedRow();
  bool IsVisible(int id);  // as if the window were shown
  bool IsEnabled(int id) { return IsWindowEnabled(Control(id)) != FALSE; }
  std::string Text(int id) { return WindowBytes(Control(id)); }
  bool IsChecked(int id);
  // Of what the tabs have their controls on.
  COLORREF PageColour();

  std::vector<editor::HiddenRow> HiddenRows();  // as many as there are rows
  // Whether the icon of that number, as a hidden row has it, is there.
  static bool IsIcon(const std::string& iconText);

  // The folder, without a trailing backslash, and files in it.
  const std::string& folder() const { return folder_; }
  std::string PathOf(const std::string& name) const { return folder_ + "\\" + name; }
  std::wstring WidePathOf(const std::wstring& name) const;
  std::string MenuPath() const { return PathOf("test.menu"); }
  std::string MenuBytes() const { return ReadBytes(MenuPath()); }
  static std::string ReadBytes(const std::string& path);
  static void WriteBytes(const std::string& path, const std::string& bytes);
  static bool Exists(const std::string& path);
  // Makes the file read-only, or no longer so.
  static void MakeReadOnly(const std::string& path);
  static void MakeWritable(const std::string& path);

  DialogAnswers answers;
  editor::WindowsFileSystem windowsFiles;
  menufile::FileSystem* files = &windowsFiles;  // what Open() gives the window

 private:
  std::string folder_;
  std::string formerFolder_;
  std::unique_ptr<editor::Form2> form_;
};

#endif  // CORVALIS_TESTS_WINDOWS_FORM2_TEST_BASE_H_
