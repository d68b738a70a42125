#ifndef CORVALIS_TESTS_WINDOWS_FORM2_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_FORM2_TEST_BASE_H_

#include <memory>
#include <optional>

#include "editor/form2.h"
#include "editor/windows_files.h"
#include "resources/resource.h"
#include "tests/windows/dialog_answers.h"
#include "tests/windows/locked_file.h"
#include "tests/windows/menu_bytes.h"
#include "tests/windows/related_window.h"

using Texts = std::vector<std::string>;

// Opens the hidden editor window on a menu file in a temporary folder, which is the
// current directory of the test.
class Form2Test : public ::testing::Test {
 protected:
  Form2Test();
  ~Form2Test() override;

  // Writes the menu file and calls Load().
  bool Open(const std::string& menuBytes);
  // Opens a new window on the file at MenuPath(). Returns the result of Form2::StartUp().
  bool Load();
  editor::Form2& form() { return *form_; }
  HWND Control(int id) { return form_->Control(id); }

  // The actions of a user. Each handles the messages that follow.
  void Press(int buttonId);  // a button or check box
  void SelectRow(int row);   // of List1, with its notification
  void SelectTab(int tab);
  void Type(int editId, const std::string& text);
  static void RunMessages();
  // The exit code if WM_QUIT was posted, which is removed from the queue.
  static std::optional<int> ExitCode();
  static bool TakeQuit() { return ExitCode().has_value(); }

  static HWND FileNameBox(HWND dialog);
  // Calls `run` while these keys are held down.
  static void WithKeys(const std::vector<BYTE>& held, const std::function<void()>& run);

  // The state that the user sees.
  Texts Rows();
  int SelectedRow();
  bool IsVisible(int id);  // as if the window were shown
  bool IsEnabled(int id) { return IsWindowEnabled(Control(id)) != FALSE; }
  std::string Text(int id) { return WindowBytes(Control(id)); }
  bool IsChecked(int id);
  // The colour of the pages of the tab control.
  COLORREF PageColour();
  std::vector<editor::HiddenRow> HiddenRows();  // one for each list row

  // Expects that so many message boxes were shown, and that the last one was this.
  void ExpectBoxes(std::size_t count, const std::string& title, const std::string& text,
                   const Texts& buttons = {"OK"});
  // The pixels of a picture of that size, row by row from the top left. A background of
  // CLR_INVALID is not filled.
  static std::vector<COLORREF> Drawn(SIZE size, COLORREF background,
                                     const std::function<void(HDC)>& draw);
  // True if there is an icon with that handle, in the form of a hidden row.
  static bool IsIcon(const std::string& iconText);

  // The folder, without a trailing backslash, and paths of files in it.
  const std::string& folder() const { return folder_; }
  std::string PathOf(const std::string& name) const { return folder_ + "\\" + name; }
  std::wstring WidePathOf(const std::wstring& name) const;
  std::string MenuPath() const { return PathOf("test.menu"); }
  std::string MenuBytes() const { return ReadBytes(MenuPath()); }
  static std::string ReadBytes(const std::string& path);
  static void WriteBytes(const std::string& path, const std::string& bytes);
  static bool Exists(const std::string& path);
  void Make(const std::string& name) {
    ASSERT_TRUE(CreateDirectoryA(PathOf(name).c_str(), nullptr));
  }
  static void MakeReadOnly(const std::string& path);
  static void MakeWritable(const std::string& path);

  // Something that keeps a change from being written, and what removes it.
  struct Obstacle {
    std::string name;
    std::function<void()> make;
    std::function<void()> remove;
    bool stopsAdding = true;
  };
  std::vector<Obstacle> Obstacles();

  DialogAnswers answers;
  editor::WindowsFileSystem windowsFiles;
  menufile::FileSystem* files = &windowsFiles;  // the file system of the next window

 private:
  std::string folder_;
  std::string formerFolder_;
  std::unique_ptr<editor::Form2> form_;
  std::optional<LockedFile> lock_;
};

#endif  // CORVALIS_TESTS_WINDOWS_FORM2_TEST_BASE_H_
