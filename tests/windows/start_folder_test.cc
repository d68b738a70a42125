#include "editor/start_folder.h"

#include <windows.h>

#include "tests/windows/list_test_base.h"
#include "win32/current_folder.h"

namespace {

// A folder that takes no file, whoever the user is: the one in which Linux shows
// its processes, on Wine's drive for the files around it.
constexpr const char* kTakesNoFile = "Z:\\proc";

std::wstring Wide(const std::string& text) { return {text.begin(), text.end()}; }

}  // namespace

class StartFolderTest : public ListTest {
 protected:
  // The current folder once a program that was started in `current` has begun on
  // the menu at `menuPath`.
  std::wstring FolderFor(const std::string& current, const std::string& menuPath) {
    EXPECT_TRUE(SetCurrentDirectoryA(current.c_str()));
    editor::LeaveFolderThatTakesNoFile(Wide(menuPath));
    const std::wstring folder = win32::CurrentFolder();
    SetCurrentDirectoryA(StartFolderTest::folder().c_str());
    return folder;
  }
};

TEST_F(StartFolderTest, IsLeftOnlyWhereItTakesNoFile) {
  ASSERT_TRUE(CreateDirectoryA(PathOf("other").c_str(), nullptr));
  wchar_t temporary[MAX_PATH + 1] = L"";
  GetTempPathW(MAX_PATH + 1, temporary);
  const std::wstring temporaryFolder(temporary, std::wcslen(temporary) - 1);
  const struct {
    std::string current;
    std::string menu;
    std::wstring folder;
  } cases[] = {
      {folder(), PathOf("other\\a.menu"), Wide(folder())},
      {kTakesNoFile, PathOf("other\\a.menu"), Wide(PathOf("other"))},
      {kTakesNoFile, PathOf("other/a.menu"), Wide(PathOf("other"))},
      {kTakesNoFile, "Z:\\proc\\version", temporaryFolder},
      {kTakesNoFile, PathOf("none\\a.menu"), temporaryFolder},
      // These would be other files from there.
      {kTakesNoFile, "a.menu", Wide(kTakesNoFile)},
      {kTakesNoFile, "C:a.menu", Wide(kTakesNoFile)},
      {kTakesNoFile, "\\proc\\version", Wide(kTakesNoFile)},
      {kTakesNoFile, "", Wide(kTakesNoFile)},
  };
  for (const auto& [current, menu, expected] : cases) {
    EXPECT_EQ(FolderFor(current, menu), expected) << current << ", " << menu;
  }
  // What tried them out has gone.
  WIN32_FIND_DATAA found{};
  const HANDLE search = FindFirstFileA(PathOf("*.tmp").c_str(), &found);
  EXPECT_EQ(search, INVALID_HANDLE_VALUE) << found.cFileName;
}
