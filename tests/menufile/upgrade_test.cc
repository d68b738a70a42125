#include "menufile/upgrade.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "menufile/failure.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using namespace std::string_literals;

std::string DefaultPicture() {
  std::ifstream file(CORVALIS_DEFAULT_PICTURE, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

void Upgrade(MemoryFiles& files, std::string_view picture = "ico") {
  MenuFile menu(files, kMenuPath);
  UpgradeMenuFile(menu, picture);
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

TEST(UpgradeMenuFile, PutsPictureMarkerAndTypeLineBeforeTheOldBytes) {
  for (const std::string& old :
       {PreviousVersionMenu(5), ""s, "x"s, "<"s, "\r\n"s, "\0\xff<START ZOL>\n"s}) {
    MemoryFiles files(kMenuPath, old);
    Upgrade(files, DefaultPicture());
    EXPECT_EQ(DefaultPicture() + "\r\n<START ZOL>\r\n\"USERDEF\"\r\n" + old, files.Get(kMenuPath));
    EXPECT_EQ(std::nullopt, files.Get("temporaryfile"));
  }
}

TEST(UpgradeMenuFile, LeavesAFileThatHasAMarkerLineByNow) {
  MemoryFiles files(kMenuPath, UserMenu(2));
  Upgrade(files);
  EXPECT_EQ(UserMenu(2), files.Get(kMenuPath));
  EXPECT_FALSE(files.Get("temporaryfile"));
}

TEST(UpgradeMenuFile, TheTailOfAnOldScratchFileComesAlongWhereItCannotBeDeleted) {
  for (const bool canBeDeleted : {true, false}) {
    MemoryFiles files(kMenuPath, "old");
    files.Put("temporaryfile", "longer");
    if (!canBeDeleted) {
      files.ForbidRemove("temporaryfile");
    }
    Upgrade(files);
    EXPECT_EQ("ico\r\n<START ZOL>\r\n\"USERDEF\"\r\nold"s + (canBeDeleted ? "" : "ger"),
              files.Get(kMenuPath));
    EXPECT_EQ(canBeDeleted ? std::nullopt : std::optional("oldger"s), files.Get("temporaryfile"));
  }
}

TEST(UpgradeMenuFile, AMissingMenuFileIsNotMade) {
  MemoryFiles files;
  Upgrade(files);
  EXPECT_EQ(std::nullopt, files.Get(kMenuPath));
}

TEST(UpgradeMenuFile, AMenuNamedLikeTheScratchFileStays) {
  MemoryFiles files("temporaryfile", "old");
  MenuFile menu(files, "temporaryfile");
  UpgradeMenuFile(menu, DefaultPicture());
  EXPECT_EQ("old", files.Get("temporaryfile"));
}

TEST(UpgradeMenuFile, AScratchFileInUseLeavesTheMenu) {
  MemoryFiles files(kMenuPath, "old");
  files.Put("temporaryfile", "of another editor");
  files.HoldByOther("temporaryfile");
  Upgrade(files);
  EXPECT_EQ("old", files.Get(kMenuPath));
  EXPECT_EQ("of another editor", files.Get("temporaryfile"));
}

// A failure at each operation leaves the file unchanged or converted, or throws; then the
// next start finishes the conversion.
TEST(UpgradeMenuFile, ThatFailsIsNotMadeOrFinishedLater) {
  const std::string old = PreviousVersionMenu(3);
  MemoryFiles whole(kMenuPath, old);
  Upgrade(whole);
  const std::string converted = whole.Get(kMenuPath).value();
  int cutShort = 0;
  for (std::size_t operation = 1; operation <= whole.operations(); ++operation) {
    for (const Fault::Kind kind : {Fault::Kind::FailsOnce, Fault::Kind::FailsForGood}) {
      MemoryFiles files(kMenuPath, old);
      files.SetFault({operation, kind, Fault::Done::Half});
      MenuFile menu(files, kMenuPath);
      try {
        UpgradeMenuFile(menu, "ico");
        EXPECT_TRUE(files.Get(kMenuPath) == old || files.Get(kMenuPath) == converted)
            << whole.log()[operation - 1];
      } catch (const Failure&) {
        EXPECT_TRUE(menu.HasUnfinished());
        ++cutShort;
        files.SetFault({});
        EXPECT_TRUE(menu.FinishEarlier());
        EXPECT_EQ(converted, files.Get(kMenuPath));
        EXPECT_EQ(std::nullopt, files.Get("temporaryfile"));
      }
    }
  }
  EXPECT_GT(cutShort, 4);
}

}  // namespace
}  // namespace menufile
