#include "menufile/append.h"

#include <gtest/gtest.h>

#include <string>

#include "menufile/failure.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using namespace std::string_literals;

const MenuItemRecord kItem = {Value::Quoted("New, entry"),
                              Value::Quoted("C:\\new"),
                              Value(),
                              Value(),
                              Value(),
                              Value::Bare("0")};
constexpr const char* kLine = "\"New, entry\",\"C:\\new\",\"\",\"\",\"\",0\r\n";

TEST(MenuAppender, WritesBehindTheLastByte) {
  for (const std::string& old : {UserMenu(3), UserMenu(0), DirectoryMenu(), ""s, "cut \"off"s}) {
    MemoryFiles files;
    files.Put(kMenuPath, old);
    MenuAppender(files, kMenuPath).Append(kItem);
    EXPECT_EQ(old + kLine, files.Get(kMenuPath));
  }
}

TEST(MenuAppender, WritesSeveralInTheirOrder) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(3));
  MenuAppender appender(files, kMenuPath);
  MenuItemRecord second = kItem;
  second.caption = Value::Quoted("Second");
  appender.Append(kItem);
  EXPECT_EQ(UserMenu(3) + kLine, files.AfterPowerCut(Unflushed::Dropped)[kMenuPath]);
  appender.Append(second);
  EXPECT_EQ(UserMenu(3) + kLine + "\"Second\",\"C:\\new\",\"\",\"\",\"\",0\r\n",
            files.AfterPowerCut(Unflushed::Dropped)[kMenuPath]);
}

TEST(MenuAppender, ReadsNothingAndNeedsNoScratchFile) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(3));
  MenuAppender(files, kMenuPath).Append(kItem);
  EXPECT_EQ((std::vector<std::string>{
                "open to change C:\\menus\\a.menu", "seek to the end of C:\\menus\\a.menu",
                "write 34 bytes to C:\\menus\\a.menu", "flush C:\\menus\\a.menu"}),
            files.log());
}

TEST(MenuAppender, DoesNotMakeAMissingFile) {
  MemoryFiles files;
  try {
    MenuAppender appender(files, kMenuPath);
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_STREQ("Cannot open the file:\nC:\\menus\\a.menu\n\nThere is no such file.",
                 failure.what());
  }
  EXPECT_EQ(std::nullopt, files.Get(kMenuPath));
}

TEST(MenuAppender, TakesBackALineThatCouldNotBeWrittenWhole) {
  for (std::size_t operation : {3u, 4u}) {
    for (Fault::Done done : {Fault::Done::Nothing, Fault::Done::Half, Fault::Done::All}) {
      MemoryFiles files;
      files.Put(kMenuPath, UserMenu(3));
      files.SetFault({operation, Fault::Kind::FailsOnce, done});
      MenuAppender appender(files, kMenuPath);
      try {
        appender.Append(kItem);
        ADD_FAILURE() << "no failure";
      } catch (const Failure& failure) {
        EXPECT_STREQ("Cannot use the file:\nC:\\menus\\a.menu\n\nThe disk does not answer.",
                     failure.what());
      }
      EXPECT_EQ(UserMenu(3), files.Get(kMenuPath));
      appender.Append(kItem);
      EXPECT_EQ(UserMenu(3) + kLine, files.Get(kMenuPath));
    }
  }
}

TEST(MenuAppender, TellsTheFirstFailureWhereTheLineCannotBeTakenBack) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(3));
  files.SetFault({3, Fault::Kind::FailsForGood, Fault::Done::Half});
  MenuAppender appender(files, kMenuPath);
  EXPECT_THROW(appender.Append(kItem), Failure);
  EXPECT_EQ(UserMenu(3) + std::string(kLine).substr(0, 17), files.Get(kMenuPath));
}

TEST(MenuAppender, LeavesTheMenuWhenTheDiskIsFull) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(3));
  files.SetCapacity(UserMenu(3).size() + 10);
  MenuAppender appender(files, kMenuPath);
  try {
    appender.Append(kItem);
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_STREQ("Cannot write the file:\nC:\\menus\\a.menu\n\nThe disk is full.", failure.what());
  }
  EXPECT_EQ(UserMenu(3), files.Get(kMenuPath));
}

TEST(MenuAppender, CannotChangeAFileThatAnotherProgramHolds) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(3));
  files.HoldByOther(kMenuPath);
  EXPECT_THROW(MenuAppender(files, kMenuPath), Failure);
  EXPECT_EQ(UserMenu(3), files.Get(kMenuPath));
}

}  // namespace
}  // namespace menufile
