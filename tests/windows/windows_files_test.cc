// Files of Windows as the rewrite reads and writes them: block by block.
#include "editor/windows_files.h"

#include <array>
#include <string>
#include <string_view>

#include "menufile/rewrite.h"
#include "tests/windows/form2_test_base.h"
#include "tests/windows/menu_bytes.h"

namespace {

using menufile::OpenMode;

class WindowsFilesTest : public Form2Test {};

TEST_F(WindowsFilesTest, ReadsWhatFitsOrWhatThereIs) {
  WriteBytes(MenuPath(), "0123456789");
  const auto file = windowsFiles.Open(MenuPath(), OpenMode::Read);
  std::array<char, 4> bytes{};
  const auto readFrom = [&](std::uint64_t offset) {
    return std::string(bytes.data(), file->Read(offset, bytes));
  };
  EXPECT_EQ("0123", readFrom(0));
  EXPECT_EQ("6789", readFrom(6));
  EXPECT_EQ("789", readFrom(7));
  EXPECT_EQ("", readFrom(10));
  EXPECT_EQ("", readFrom(100));
  EXPECT_EQ("1234", readFrom(1));
}

TEST_F(WindowsFilesTest, ReadingDoesNotMoveWhereWritingGoesOn) {
  WriteBytes(MenuPath(), "0123456789");
  {
    const auto file = windowsFiles.Open(MenuPath(), OpenMode::Change);
    std::array<char, 4> bytes{};
    file->Write("ab");
    EXPECT_EQ(4U, file->Read(5, bytes));
    file->Write("cd");
  }
  EXPECT_EQ("abcd456789", MenuBytes());
}

TEST_F(WindowsFilesTest, KnowsAFileByAnotherPath) {
  WriteBytes(PathOf("one"), "1");
  WriteBytes(PathOf("two"), "1");
  EXPECT_TRUE(windowsFiles.IsSameFile(PathOf("one"), "ONE"));
  EXPECT_TRUE(windowsFiles.IsSameFile("one", ".\\one"));
  EXPECT_FALSE(windowsFiles.IsSameFile("one", "two"));
  EXPECT_FALSE(windowsFiles.IsSameFile("one", "none"));
  EXPECT_FALSE(windowsFiles.IsSameFile("none", "none"));
  const auto held = windowsFiles.Open("one", OpenMode::Change);
  EXPECT_TRUE(windowsFiles.IsSameFile(PathOf("one"), "one"));
}

TEST_F(WindowsFilesTest, AMenuNamedLikeAScratchFileStays) {
  const std::string menu = testing_menus::UserDefinedMenu(
      {testing_menus::ItemLine("One", "C:\\1"), testing_menus::ItemLine("Two", "C:\\2")});
  for (const char* name : {"temporaryfile", "zoltempfileoktodelete"}) {
    WriteBytes(PathOf(name), menu);
    menufile::MenuChange change;
    change.scratchFile = name;
    change.recordRule = menufile::KeepRecord;
    EXPECT_THROW(menufile::RewriteMenuFile(windowsFiles, PathOf(name), change), menufile::Failure);
    EXPECT_EQ(menu, ReadBytes(PathOf(name)));
  }
}

TEST_F(WindowsFilesTest, RewritesAMenuOfSeveralBlocks) {
  constexpr std::size_t kEntries = 20'000;
  constexpr std::size_t kDeleted = 9'999;
  std::string menu = "picture\r\n<START ZOL>\r\n\"USERDEF\"\r\n0,\"Tahoma\",8.25,0,0\r\n";
  std::string expected = menu;
  for (std::size_t i = 0; i < kEntries; ++i) {
    const std::string line = "\"Entry " + std::to_string(i) +
                             "\",\"C:\\x.exe\",\"\",\"C:\\\",\"\"," + std::to_string(i % 9) +
                             "\r\n";
    menu += line;
    expected += i == kDeleted ? "" : line;
  }
  ASSERT_GT(menu.size(), 3 * windowsFiles.BlockSize());
  WriteBytes(MenuPath(), menu);
  menufile::MenuChange change;
  change.recordRule = [](std::size_t counter, const menufile::MenuItemRecord& record,
                         menufile::RecordStream& records) {
    if (counter != kDeleted) {
      records.Write(record);
    }
  };
  EXPECT_EQ(menufile::RewriteResult::Done,
            menufile::RewriteMenuFile(windowsFiles, MenuPath(), change));
  EXPECT_TRUE(expected == MenuBytes());
  EXPECT_FALSE(Exists(PathOf(change.scratchFile)));
}

}  // namespace
