#ifndef CORVALIS_TESTS_WINDOWS_FOLDER_LIST_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_FOLDER_LIST_TEST_BASE_H_

#include <algorithm>

#include "tests/windows/drives.h"
#include "tests/windows/form2_test_base.h"
#include "win32/folder_list.h"
#include "win32/text.h"
#include "win32/window_text.h"

// A folder list and a drive list in a window of the test.
class FolderListTest : public Form2Test {
 protected:
  FolderListTest() {
    parent_ = CreateWindowExA(0, "Static", "", WS_POPUP, 0, 0, 300, 300, nullptr, nullptr,
                              GetModuleHandleA(nullptr), nullptr);
    list_ = CreateWindowExA(0, "ListBox", "",
                            WS_CHILD | WS_VSCROLL | WS_HSCROLL | LBS_OWNERDRAWFIXED |
                                LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT,
                            0, 0, 200, 120, parent_, nullptr, GetModuleHandleA(nullptr), nullptr);
    combo_ = CreateWindowExA(0, "ComboBox", "", WS_CHILD | CBS_DROPDOWNLIST | CBS_HASSTRINGS, 0,
                             150, 200, 100, parent_, nullptr, GetModuleHandleA(nullptr), nullptr);
    folders.Attach(list_);
    folders.Start();
  }
  ~FolderListTest() override {
    // No test may change the current directory.
    char path[MAX_PATH] = "";
    GetCurrentDirectoryA(MAX_PATH, path);
    EXPECT_EQ(std::string(path), folder());
    DestroyWindow(parent_);
  }

  bool SetPath(const std::string& path) { return folders.SetPath(win32::ToText(path)); }
  std::string Path() const { return win32::ToBytes(folders.Path()).value(); }
  bool SelectDrive(const std::string& path) {
    return win32::SelectDrive(combo_, win32::ToText(path));
  }
  std::string Drive() const { return win32::ToBytes(win32::SelectedDrive(combo_)).value(); }

  Texts ListRows() const {
    Texts rows;
    const int count = static_cast<int>(SendMessageA(list_, LB_GETCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
      rows.push_back(RowBytes(list_, row));
    }
    return rows;
  }
  // The rows of the folders down to `path`: the parts of the path.
  static Texts RowsDownTo(const std::string& path) {
    Texts rows{path.substr(0, 3)};
    const std::wstring text = win32::ToText(path);
    std::size_t from = 3;
    while (from < text.size()) {
      const std::size_t end = std::min(text.find(L'\\', from), text.size());
      rows.push_back(win32::ToBytes(text.substr(from, end - from)).value());
      from = end + 1;
    }
    return rows;
  }
  Texts RowsBelow(const std::string& path) const {
    const Texts rows = ListRows();
    const std::size_t down = RowsDownTo(path).size();
    return Texts(rows.begin() + static_cast<std::ptrdiff_t>(std::min(down, rows.size())),
                 rows.end());
  }
  int Selected() const { return static_cast<int>(SendMessageA(list_, LB_GETCURSEL, 0, 0)); }
  void Select(const std::string& name) {
    const Texts rows = ListRows();
    const auto row = std::find(rows.rbegin(), rows.rend(), name);
    ASSERT_NE(row, rows.rend()) << name;
    SendMessageA(list_, LB_SETCURSEL, static_cast<WPARAM>(rows.rend() - row - 1), 0);
  }

  Texts Drives() const {
    Texts drives;
    const int count = static_cast<int>(SendMessageA(combo_, CB_GETCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
      char text[64] = "";
      SendMessageA(combo_, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
      drives.push_back(text);
    }
    return drives;
  }

  win32::FolderList folders;
  HWND parent_;
  HWND list_;
  HWND combo_;
};

#endif  // CORVALIS_TESTS_WINDOWS_FOLDER_LIST_TEST_BASE_H_
