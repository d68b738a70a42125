#include "menufile/file_window.h"

#include <gtest/gtest.h>

#include "menufile/block_writer.h"
#include "menufile/failure.h"
#include "menufile/reader.h"
#include "tests/menufile/memory_files.h"

namespace menufile {
namespace {

using Log = std::vector<std::string>;

class FileWindowTest : public testing::Test {
 protected:
  std::unique_ptr<File> OpenWith(std::string_view bytes) {
    files_.Put("f", bytes);
    return files_.Open("f", OpenMode::Change);
  }

  MemoryFiles files_;
};

TEST_F(FileWindowTest, ShowsTheFileBlockByBlock) {
  const auto file = OpenWith("abcdefgh");
  FileWindow window(*file, 3);
  EXPECT_EQ("", window.bytes());
  EXPECT_TRUE(window.Advance(0));
  EXPECT_EQ("abc", window.bytes());
  EXPECT_TRUE(window.Advance(2));
  EXPECT_EQ("cdef", window.bytes());
  EXPECT_EQ(2u, window.position());
  EXPECT_TRUE(window.MoreFollows());
  EXPECT_TRUE(window.Advance(4));
  EXPECT_EQ("gh", window.bytes());
  EXPECT_FALSE(window.MoreFollows());
  EXPECT_FALSE(window.Advance(1));
  EXPECT_EQ("h", window.bytes());
  EXPECT_EQ(7u, window.position());
  EXPECT_EQ((Log{"open to change f", "read from 0: f", "read from 3: f", "read from 6: f",
                 "ask the size of f"}),
            files_.log());
}

// A short read must not count as the end of the file.
TEST_F(FileWindowTest, FailsWhereAReadGivesTooLittle) {
  const auto file = OpenWith("abcdefgh");
  files_.SetFault({1, Fault::Kind::EndsEarly, Fault::Done::All});
  FileWindow window(*file, 8);
  EXPECT_THROW(window.Advance(0), Failure);
}

TEST_F(FileWindowTest, ShowsAHeadBeforeThePlaceWhereItBegins) {
  const auto file = OpenWith("abcdefgh");
  FileWindow window(*file, 3, "12345", 6);
  EXPECT_EQ("12345", window.bytes());
  EXPECT_TRUE(window.Advance(4));
  EXPECT_EQ("5gh", window.bytes());
  EXPECT_EQ(4u, window.position());
}

TEST_F(FileWindowTest, KeepsWhatWasDroppedUntilMoreIsDropped) {
  const auto file = OpenWith("abcdefghijklmnopqrstuvwxyz");
  FileWindow window(*file, 3);
  window.Advance(0);
  const std::string_view first = window.bytes();
  window.Advance(2);
  for (int i = 0; i < 4; ++i) {
    window.Advance(0);
    EXPECT_EQ("abc", first);
  }
  EXPECT_EQ("cdefghijklmnopqrstuvwxyz", window.bytes());
}

TEST_F(FileWindowTest, ReadsSomethingLongInFewSteps) {
  const std::string text(100'000, 'x');
  const auto file = OpenWith('"' + text + "\"\r\n");
  FileWindow window(*file, 10);
  MenuReader reader(window, "f");
  EXPECT_EQ(text, reader.ReadTypeLine().Text());
  EXPECT_TRUE(reader.AtEnd());
  EXPECT_LT(files_.operations(), 20u);
}

TEST_F(FileWindowTest, AReaderKeepsTheRecordBeforeTheOneReadLast) {
  std::string menu;
  for (char c = 'a'; c <= 'z'; ++c) {
    menu += std::string(static_cast<std::size_t>(c - 'a'), c) + ",2,3,4,5,6\r\n";
  }
  const auto file = OpenWith(menu);
  for (std::size_t blockSize = 1; blockSize < 90; ++blockSize) {
    FileWindow window(*file, blockSize);
    MenuReader reader(window, "f");
    MenuItemRecord before = reader.ReadItem();
    for (char c = 'b'; c <= 'z'; ++c) {
      const MenuItemRecord record = reader.ReadItem();
      EXPECT_EQ(std::string(static_cast<std::size_t>(c - 'a' - 1), static_cast<char>(c - 1)),
                before.caption.Text());
      EXPECT_EQ("6", before.iconIndex.Text());
      before = record;
    }
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_EQ(menu.size(), reader.offset());
  }
}

TEST_F(FileWindowTest, AReaderTellsWhereTheFileEnds) {
  const auto file = OpenWith("1,2,3,4,5,6\r\n1,2,\"3,4");
  FileWindow window(*file, 4);
  MenuReader reader(window, "f");
  reader.ReadItem();
  EXPECT_EQ(
      "Cannot read entry 2, field arguments, of the file:\nf\n\n"
      "The file ends too early (at byte offset 21).",
      FailureOf([&] { reader.ReadItem(); }));
}

TEST_F(FileWindowTest, AppendFileCopiesAnyNumberOfBlocks) {
  for (std::size_t size : {0u, 1u, 9u, 10u, 11u, 30u}) {
    const std::string bytes(size, 'x');
    const auto file = OpenWith(bytes);
    files_.Put("to", "");
    AppendFile(*file, *files_.Open("to", OpenMode::Change), 10);
    EXPECT_EQ(bytes, files_.Get("to"));
  }
}

class BlockWriterTest : public FileWindowTest {};

TEST_F(BlockWriterTest, WritesWholeBlocksAndThenTheRest) {
  const auto file = OpenWith("");
  BlockWriter writer(*file, 10);
  for (std::size_t size : {9u, 5u, 30u, 0u}) {
    writer.text() += std::string(size, 'x');
    writer.WriteBlocks();
  }
  EXPECT_EQ(40u, writer.size());
  writer.WriteRest();
  EXPECT_EQ(44u, writer.size());
  writer.WriteRest();
  EXPECT_EQ(
      (Log{"open to change f", "write 10 bytes to f", "write 30 bytes to f", "write 4 bytes to f"}),
      files_.log());
  EXPECT_EQ(std::string(44, 'x'), files_.Get("f"));
}

TEST_F(BlockWriterTest, DoesNotTryTwice) {
  const auto file = OpenWith("");
  files_.SetFault({1, Fault::Kind::FailsOnce, Fault::Done::Half});
  BlockWriter writer(*file, 10);
  writer.text() += "0123456789abc";
  EXPECT_THROW(writer.WriteBlocks(), Failure);
  writer.WriteRest();
  EXPECT_EQ("01234", files_.Get("f"));
}

}  // namespace
}  // namespace menufile
