#include "menufile/upgrade.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "menufile/failure.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using namespace std::string_literals;
using Log = std::vector<std::string>;

std::string DefaultPicture() {
  std::ifstream file(CORVALIS_DEFAULT_PICTURE, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

int WordAt(const std::string& bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes.at(at)) | static_cast<unsigned char>(bytes.at(at + 1))
                                                        << 8;
}

TEST(DefaultPicture, IsOneIcon32By32With256Colours) {
  const std::string icon = DefaultPicture();
  ASSERT_EQ(2238u, icon.size());
  EXPECT_EQ("\0\0\1\0\1\0\x20\x20"s, icon.substr(0, 8));  // icon file, one image, 32x32
  EXPECT_EQ(22, WordAt(icon, 18));                        // where the image begins
  EXPECT_EQ(8, WordAt(icon, 22 + 14));                    // bits per pixel
}

TEST(DefaultPicture, HoldsNoMarker) {
  EXPECT_EQ(std::string::npos, DefaultPicture().find("<START ZOL>"));
}

TEST(UpgradeMenuFile, PutsPictureMarkerAndTypeLineInFront) {
  for (const std::string& old :
       {PreviousVersionMenu(5), ""s, "x"s, "<"s, "\r\n"s, "\0\xff<START ZOL>\n"s}) {
    MemoryFiles files;
    files.Put(kMenuPath, old);
    EXPECT_TRUE(UpgradeMenuFile(files, kMenuPath, DefaultPicture()));
    EXPECT_EQ(DefaultPicture() + "\r\n<START ZOL>\r\n\"USERDEF\"\r\n" + old, files.Get(kMenuPath));
    EXPECT_EQ(std::nullopt, files.Get("temporaryfile"));
  }
}

TEST(UpgradeMenuFile, LeavesAFileThatHasAMarkerLineByNow) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(2));
  EXPECT_FALSE(UpgradeMenuFile(files, kMenuPath, "ico"));
  EXPECT_EQ(UserMenu(2), files.Get(kMenuPath));
}

TEST(UpgradeMenuFile, DeletesAnOldScratchFileFirst) {
  MemoryFiles files;
  files.Put(kMenuPath, "old");
  files.Put("temporaryfile", "longer than the menu");
  EXPECT_TRUE(UpgradeMenuFile(files, kMenuPath, "ico"));
  EXPECT_EQ("ico\r\n<START ZOL>\r\n\"USERDEF\"\r\nold", files.Get(kMenuPath));
  EXPECT_EQ(std::nullopt, files.Get("temporaryfile"));
}

TEST(UpgradeMenuFile, TheTailOfAScratchFileThatCannotBeDeletedComesAlong) {
  MemoryFiles files;
  files.Put(kMenuPath, "old");
  files.Put("temporaryfile", "longer");
  files.ForbidRemove("temporaryfile");
  EXPECT_TRUE(UpgradeMenuFile(files, kMenuPath, "ico"));
  EXPECT_EQ("ico\r\n<START ZOL>\r\n\"USERDEF\"\r\noldger", files.Get(kMenuPath));
  EXPECT_EQ("oldger", files.Get("temporaryfile"));
}

TEST(UpgradeMenuFile, WritesTheMenuOnlyOnceTheScratchFileIsFlushed) {
  MemoryFiles files;
  files.Put(kMenuPath, "old");
  EXPECT_TRUE(UpgradeMenuFile(files, kMenuPath, "ico"));
  EXPECT_EQ((Log{"remove temporaryfile", "open to change C:\\menus\\a.menu",
                 "read from 0: C:\\menus\\a.menu",  // is there a marker line?
                 "open or make temporaryfile", "read from 0: C:\\menus\\a.menu",
                 "write 3 bytes to temporaryfile", "flush temporaryfile",
                 "truncate to 0: C:\\menus\\a.menu", "write 29 bytes to C:\\menus\\a.menu",
                 "read from 0: temporaryfile", "write 3 bytes to C:\\menus\\a.menu",
                 "flush C:\\menus\\a.menu", "remove temporaryfile"}),
            files.log());
}

TEST(UpgradeMenuFile, WithoutACompleteScratchFileTheMenuStays) {
  for (std::size_t operation = 2; operation <= 7; ++operation) {
    MemoryFiles files;
    files.Put(kMenuPath, PreviousVersionMenu(3));
    files.SetFault({operation, Fault::Kind::FailsOnce, Fault::Done::Nothing});
    EXPECT_FALSE(UpgradeMenuFile(files, kMenuPath, "ico"));
    EXPECT_EQ(PreviousVersionMenu(3), files.Get(kMenuPath));
    EXPECT_EQ(operation, files.operations());
  }
}

TEST(UpgradeMenuFile, AMissingMenuFileIsNotMade) {
  MemoryFiles files;
  EXPECT_FALSE(UpgradeMenuFile(files, kMenuPath, "ico"));
  EXPECT_EQ(std::nullopt, files.Get(kMenuPath));
}

TEST(UpgradeMenuFile, AMenuNamedLikeTheScratchFileStays) {
  MemoryFiles files;
  files.Put("temporaryfile", "old");
  EXPECT_FALSE(UpgradeMenuFile(files, "temporaryfile", DefaultPicture()));
  EXPECT_EQ("old", files.Get("temporaryfile"));
}

TEST(UpgradeMenuFile, AScratchFileInUseLeavesTheMenu) {
  MemoryFiles files;
  files.Put(kMenuPath, "old");
  files.Put("temporaryfile", "of another editor");
  files.HoldByOther("temporaryfile");
  EXPECT_FALSE(UpgradeMenuFile(files, kMenuPath, "ico"));
  EXPECT_EQ("old", files.Get(kMenuPath));
  EXPECT_EQ("of another editor", files.Get("temporaryfile"));
}

TEST(UpgradeMenuFile, PutsTheOldBytesBackWhenTheMenuCannotBeWritten) {
  for (std::size_t operation = 8; operation <= 12; ++operation) {
    for (Fault::Done done : {Fault::Done::Nothing, Fault::Done::Half, Fault::Done::All}) {
      MemoryFiles files;
      files.Put(kMenuPath, PreviousVersionMenu(3));
      files.SetFault({operation, Fault::Kind::FailsOnce, done});
      EXPECT_FALSE(UpgradeMenuFile(files, kMenuPath, "ico"));
      EXPECT_EQ(PreviousVersionMenu(3), files.Get(kMenuPath)) << operation;
      EXPECT_EQ(std::nullopt, files.Get("temporaryfile"));
    }
  }
}

TEST(UpgradeMenuFile, SaysWhereTheOldBytesAreWhenTheyCannotBePutBack) {
  for (std::size_t operation = 8; operation <= 12; ++operation) {
    MemoryFiles files;
    files.Put(kMenuPath, PreviousVersionMenu(3));
    files.SetFault({operation, Fault::Kind::FailsForGood, Fault::Done::Half});
    try {
      UpgradeMenuFile(files, kMenuPath, "ico");
      ADD_FAILURE() << "no failure at operation " << operation;
    } catch (const Failure& failure) {
      EXPECT_STREQ(
          "Cannot convert the file:\nC:\\menus\\a.menu\n\n"
          "The disk does not answer. What the file held is complete in the file "
          "\"temporaryfile\" in the current folder.",
          failure.what());
    }
    EXPECT_EQ(PreviousVersionMenu(3), files.Get("temporaryfile"));
  }
}

}  // namespace
}  // namespace menufile
