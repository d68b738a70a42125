#include "editor/start_folder.h"

#include "tests/windows/list_test_base.h"
#include "win32/current_folder.h"
#include "win32/text.h"

namespace {

// A folder that takes no file, not even from root: /proc, on Wine's drive for the files
// of Linux.
constexpr const char* kTakesNoFile = "Z:\\proc";

}  // namespace

class StartFolderTest : public ListTest {
 protected:
  // The current folder of a program after it was started in `current` with the menu at
  // `menuPath`.
  std::wstring FolderFor(const std::string& current, const std::string& menuPath) {
    EXPECT_TRUE(SetCurrentDirectoryA(current.c_str()));
    editor::LeaveFolderThatTakesNoFile(win32::ToText(menuPath));
    const std::wstring folder = win32::CurrentFolder();
    SetCurrentDirectoryA(StartFolderTest::folder().c_str());
    return folder;
  }
};

TEST_F(StartFolderTest, IsLeftOnlyWhereItTakesNoFile) {
  Make("other");
  wchar_t temporary[MAX_PATH + 1] = L"";
  GetTempPathW(MAX_PATH + 1, temporary);
  const std::wstring temporaryFolder(temporary, std::wcslen(temporary) - 1);
  const struct {
    std::string current;
    std::string menu;
    std::wstring folder;
  } cases[] = {
      {folder(), PathOf("other\\a.menu"), win32::ToText(folder())},
      {kTakesNoFile, PathOf("other\\a.menu"), win32::ToText(PathOf("other"))},
      {kTakesNoFile, PathOf("other/a.menu"), win32::ToText(PathOf("other"))},
      {kTakesNoFile, "Z:\\proc\\version", temporaryFolder},
      {kTakesNoFile, PathOf("none\\a.menu"), temporaryFolder},
      // From there, these paths would mean other files.
      {kTakesNoFile, "a.menu", win32::ToText(kTakesNoFile)},
      {kTakesNoFile, "C:a.menu", win32::ToText(kTakesNoFile)},
      {kTakesNoFile, "\\proc\\version", win32::ToText(kTakesNoFile)},
      {kTakesNoFile, "", win32::ToText(kTakesNoFile)},
  };
  for (const auto& [current, menu, expected] : cases) {
    EXPECT_EQ(FolderFor(current, menu), expected) << current << ", " << menu;
  }
  // No probe file is left.
  WIN32_FIND_DATAA found{};
  const HANDLE search = FindFirstFileA(PathOf("*.tmp").c_str(), &found);
  EXPECT_EQ(search, INVALID_HANDLE_VALUE) << found.cFileName;
}
