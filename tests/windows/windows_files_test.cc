
#include <algorithm>
#include <array>
#include <string_view>

#include "menufile/changes.h"
#include "menufile/failure.h"
#include "tests/windows/form2_test_base.h"

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
  const auto nameOf = [this](const std::string& path) {
    return windowsFiles.Open(path, OpenMode::Read)->FullName();
  };
  const auto held = windowsFiles.Open("one", OpenMode::Change);
  EXPECT_EQ(held->FullName(), nameOf(PathOf("one")));
  EXPECT_EQ(held->FullName(), nameOf("ONE"));
  EXPECT_EQ(held->FullName(), nameOf(".\\one"));
  EXPECT_NE(held->FullName(), nameOf("two"));
}

TEST_F(WindowsFilesTest, AMenuNamedLikeAScratchFileStays) {
  const std::string menu = testing_menus::UserDefinedMenu(
      {testing_menus::ItemLine("One", "C:\\1"), testing_menus::ItemLine("Two", "C:\\2")});
  WriteBytes(PathOf("zoltempfileoktodelete"), menu);
  menufile::MenuFile file(windowsFiles, PathOf("zoltempfileoktodelete"));
  EXPECT_THROW(menufile::RewriteMenuFile(file, menufile::EditEntry(0, {})), menufile::Failure);
  EXPECT_EQ(menu, ReadBytes(PathOf("zoltempfileoktodelete")));
}

TEST_F(WindowsFilesTest, OpensWhatIsThere) {
  EXPECT_EQ(nullptr, windowsFiles.OpenIfThere("none"));
  EXPECT_EQ(nullptr, windowsFiles.OpenIfThere("no\\folder\\none"));
  Make("a folder");
  EXPECT_EQ(nullptr, windowsFiles.OpenIfThere("a folder"));
  RemoveDirectoryA(PathOf("a folder").c_str());
  WriteBytes(PathOf("one"), "123");
  EXPECT_EQ("123", windowsFiles.OpenIfThere("one")->ReadAll());
  EXPECT_EQ(3U, windowsFiles.OpenIfThere("one")->Size());
}

TEST_F(WindowsFilesTest, ListsTheFilesThatBeginWithAName) {
  for (const char* name : {"scratch", "Scratch-1", "scratch-declined-1", "other", "scratc"}) {
    WriteBytes(PathOf(name), "");
  }
  for (const std::string& prefix : {std::string("scratch"), PathOf("scratch")}) {
    Texts paths = windowsFiles.FilesThatBeginWith(prefix);
    std::sort(paths.begin(), paths.end());
    EXPECT_EQ((Texts{prefix, prefix + "-1", prefix + "-declined-1"}), paths);
  }
  EXPECT_TRUE(windowsFiles.FilesThatBeginWith("none").empty());
  EXPECT_TRUE(windowsFiles.FilesThatBeginWith("no\\folder\\none").empty());
}

TEST_F(WindowsFilesTest, DeletesAFileThatNobodyCanWriteMeanwhile) {
  WriteBytes(PathOf("one"), "1");
  const auto holds = [this](const std::string& bytes) {
    return [this, bytes](menufile::File& file) {
      EXPECT_THROW(windowsFiles.Open("one", menufile::OpenMode::Change), menufile::Failure);
      return file.ReadAll() == bytes;
    };
  };
  windowsFiles.Remove("one", holds("2"));
  EXPECT_EQ("1", ReadBytes(PathOf("one")));
  windowsFiles.Remove("one", holds("1"));
  EXPECT_FALSE(Exists(PathOf("one")));
  EXPECT_THROW(windowsFiles.Remove("one", holds("1")), menufile::Failure);
}

TEST_F(WindowsFilesTest, KnowsTheFolderOfAFileAndItsRoom) {
  EXPECT_EQ("C:\\menus\\x", windowsFiles.Beside("C:\\menus\\a.menu", "x"));
  EXPECT_EQ("x", windowsFiles.Beside("a.menu", "x"));
  EXPECT_GT(windowsFiles.FreeBytes(MenuPath()), 1000U);
  EXPECT_GT(windowsFiles.FreeBytes("a.menu"), 1000U);
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
  menufile::MenuFile file(windowsFiles, MenuPath());
  EXPECT_EQ(menufile::ChangeResult::Made,
            menufile::RewriteMenuFile(file, menufile::Delete(kDeleted)));
  EXPECT_TRUE(expected == MenuBytes());
  EXPECT_FALSE(Exists(PathOf("temporaryfile")));
}

}  // namespace
