#include "menufile/restore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "menufile/failure.h"
#include "menufile/rewrite.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/memory_files.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using namespace std::string_literals;

constexpr std::string_view kPicture = "default picture";

// What start-up makes of the menu file, or nothing.
std::optional<std::string> Intended(std::string_view menu, std::string_view scratch,
                                    const char* scratchFile = "temporaryfile") {
  MemoryFiles files;
  files.Put(kMenuPath, menu);
  files.Put(scratchFile, scratch);
  const auto change = FindInterruptedChange(files, kMenuPath, kPicture);
  if (!change) {
    return std::nullopt;
  }
  EXPECT_EQ(scratchFile, change->scratchFile);
  FinishInterruptedChange(files, kMenuPath, *change);
  EXPECT_EQ(std::nullopt, files.Get(scratchFile));
  return files.Get(kMenuPath);
}

TEST(FindInterruptedChange, SeesEveryStrictBeginningOfACompleteScratchFile) {
  for (const std::string& whole : {UserMenu(3), DirectoryMenu()}) {
    for (std::size_t size = 0; size < whole.size(); ++size) {
      const std::string menu = whole.substr(0, size);
      EXPECT_EQ(whole, Intended(menu, whole)) << size;
      EXPECT_EQ(whole, Intended(menu, whole, "zoltempfileoktodelete")) << size;
      EXPECT_EQ(whole, Intended(menu + std::string(whole.size() - size, '\0'), whole)) << size;
    }
    EXPECT_EQ(std::nullopt, Intended(whole, whole));
    EXPECT_EQ(std::nullopt, Intended(whole + '\0', whole));
  }
}

TEST(FindInterruptedChange, SeesNoneInAnIncompleteScratchFile) {
  const std::string whole = UserMenu(1, "picture");
  for (std::size_t cut = 1; cut < 10; ++cut) {
    EXPECT_EQ(std::nullopt, Intended("pic", whole.substr(0, whole.size() - cut))) << cut;
  }
  EXPECT_EQ(std::nullopt, Intended("pic", whole + "\r\n"));
  EXPECT_EQ(std::nullopt, Intended("pic", whole + "x\r\n"));
  EXPECT_EQ(std::nullopt, Intended("pic", DirectoryMenu() + "x\r\n"));
  EXPECT_EQ(std::nullopt, Intended("", "\r\n<START ZOL>\r\n\"OTHER\"\r\n0,\"f\",8,0,0\r\n"));
}

TEST(FindInterruptedChange, SeesNoneWhereTheMenuIsAnother) {
  const std::string whole = UserMenu(2);
  EXPECT_EQ(std::nullopt, Intended("x", whole));
  EXPECT_EQ(std::nullopt, Intended(whole.substr(0, 9) + "x", whole));
}

TEST(FindInterruptedChange, SeesANewBitmapBeforeACutDescription) {
  const std::string bitmap = "BM\x0B\0\0\0<\r\n<x"s;
  const std::string description = "\r\n<START ZOL>\r\n\"USERDEF\"\r\n0,\"f\",8,0,0\r\n";
  for (std::size_t size = 0; size < description.size(); ++size) {
    EXPECT_EQ(bitmap + description, Intended(bitmap + description.substr(0, size), description));
  }
  EXPECT_EQ(std::nullopt, Intended(bitmap + description, description));
  EXPECT_EQ(std::nullopt, Intended(bitmap.substr(0, 10), description));
  EXPECT_EQ(std::nullopt, Intended("BM", description));
  EXPECT_EQ(std::nullopt, Intended("another picture", description));
  EXPECT_EQ(std::nullopt, Intended(bitmap, "picture" + description));
}

TEST(FindInterruptedChange, SeesAConversion) {
  const std::string old = PreviousVersionMenu(2);
  const std::string converted = std::string(kPicture) + "\r\n<START ZOL>\r\n\"USERDEF\"\r\n" + old;
  for (std::size_t size = 0; size < converted.size(); ++size) {
    EXPECT_EQ(converted, Intended(converted.substr(0, size), old)) << size;
  }
  for (std::size_t size = 0; size < old.size(); ++size) {
    EXPECT_EQ(converted, Intended(old.substr(0, size), old)) << size;
  }
  EXPECT_EQ(std::nullopt, Intended(converted, old));
  EXPECT_EQ(std::nullopt, Intended(old, old));
  // Of an old file that makes no menu only the new picture tells.
  EXPECT_EQ(std::nullopt, Intended("", "anything"));
  EXPECT_EQ(std::nullopt, Intended("any", "anything"));
  EXPECT_EQ(std::string(kPicture) + "\r\n<START ZOL>\r\n\"USERDEF\"\r\nanything",
            Intended("def", "anything"));
  EXPECT_EQ(std::nullopt, Intended("def", ""));
}

// The older one was left by a change that ended before it touched the menu file,
// and would bring back the menu as it was then.
TEST(FindInterruptedChange, TakesTheScratchFileThatWasWrittenLast) {
  const char* const lists = "temporaryfile";
  const char* const dialogs = "zoltempfileoktodelete";
  for (const auto& [older, newer] : {std::pair(lists, dialogs), std::pair(dialogs, lists)}) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{5}}) {
      MemoryFiles files;
      files.Put(kMenuPath, UserMenu(3).substr(0, size));
      files.Put(older, UserMenu(2));
      files.Put(newer, UserMenu(3));
      const auto change = FindInterruptedChange(files, kMenuPath, kPicture);
      ASSERT_TRUE(change.has_value());
      EXPECT_EQ(newer, change->scratchFile);
      FinishInterruptedChange(files, kMenuPath, *change);
      EXPECT_EQ(UserMenu(3), files.Get(kMenuPath));
    }
  }
}

TEST(FindInterruptedChange, SeesNoneWithoutBothFiles) {
  MemoryFiles files;
  EXPECT_FALSE(FindInterruptedChange(files, kMenuPath, kPicture).has_value());
  files.Put("temporaryfile", UserMenu(2));
  EXPECT_FALSE(FindInterruptedChange(files, kMenuPath, kPicture).has_value());
}

// A fault, for good or once, at each file operation of two changes in a row:
// the second must not delete what the first one left in the scratch file.
TEST(MakeMenuWhole, LetsNoSecondChangeLoseWhatTheFirstOneLeft) {
  MenuChange change;
  change.errorMode = ErrorMode::Ignores;
  change.recordRule = KeepRecord;
  const std::string menu = UserMenu(3);
  std::size_t mended = 0;
  for (std::size_t operation = 1; operation <= 30; ++operation) {
    for (Fault::Kind kind : {Fault::Kind::FailsOnce, Fault::Kind::FailsForGood}) {
      for (Fault::Done done : {Fault::Done::Nothing, Fault::Done::Half, Fault::Done::All}) {
        MemoryFiles files;
        files.Put(kMenuPath, menu);
        files.SetFault({operation, kind, done});
        bool mayBeCut = false;
        for (int i = 0; i < 3; ++i) {
          try {
            if (mayBeCut) {
              MakeMenuWhole(files, kMenuPath, kPicture);
              ++mended;
            }
            mayBeCut = RewriteMenuFile(files, kMenuPath, change) == RewriteResult::MenuMayBeCut;
          } catch (const Failure&) {
            EXPECT_TRUE(mayBeCut);
          }
          EXPECT_TRUE(files.Get(kMenuPath) == menu || files.Get("temporaryfile") == menu)
              << operation;
        }
      }
    }
  }
  EXPECT_GT(mended, 0U);
}

TEST(MakeMenuWhole, DoesNothingToAWholeMenu) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(3));
  files.Put("temporaryfile", UserMenu(2));
  MakeMenuWhole(files, kMenuPath, kPicture);
  EXPECT_EQ(UserMenu(3), files.Get(kMenuPath));
  EXPECT_EQ(UserMenu(2), files.Get("temporaryfile"));
}

TEST(MakeMenuWhole, SaysWhereTheMenuIsWhenItCannotBeRead) {
  for (const char* menu : {"", "\r\n", "cut\r\n<START ZOL>\r\n\"USERDEF\"\r\n"}) {
    MemoryFiles files;
    files.Put(kMenuPath, menu);
    try {
      MakeMenuWhole(files, kMenuPath, kPicture);
      ADD_FAILURE() << "no failure";
    } catch (const Failure& failure) {
      EXPECT_STREQ(
          "Cannot change the file:\nC:\\menus\\a.menu\n\n"
          "Its last change was interrupted and cannot be finished. The whole menu is in a file in "
          "the current folder, \"temporaryfile\" or \"zoltempfileoktodelete\".",
          failure.what());
    }
  }
}

// A fault at each file operation of finishing, with each kind of change that is
// finished: the start after that finishes it all the same.
TEST(FinishInterruptedChange, CanBeInterruptedItself) {
  const std::string bitmap = "BM\x0B\0\0\0<\r\n<x"s;
  const std::string description = UserMenu(2, "");
  const std::string old = PreviousVersionMenu(2);
  const std::string converted = std::string(kPicture) + "\r\n<START ZOL>\r\n\"USERDEF\"\r\n" + old;
  const struct {
    std::string menu;
    std::string scratch;
    std::string whole;
  } kChanges[] = {
      {UserMenu(3).substr(0, 200), UserMenu(3), UserMenu(3)},
      {bitmap + description.substr(0, 20), description, bitmap + description},
      {converted.substr(0, 99), old, converted},
  };
  std::size_t finishedAgain = 0;
  for (const auto& change : kChanges) {
    const auto finish = [](MemoryFiles& files) {
      files.SetBlockSize(50);
      const auto found = FindInterruptedChange(files, kMenuPath, kPicture);
      if (found) {
        FinishInterruptedChange(files, kMenuPath, *found);
      }
      return found.has_value();
    };
    std::size_t operations = 1;
    for (std::size_t operation = 1; operation <= operations; ++operation) {
      for (Fault::Kind kind :
           {Fault::Kind::FailsOnce, Fault::Kind::FailsForGood, Fault::Kind::EndsProcess}) {
        for (Fault::Done done : {Fault::Done::Nothing, Fault::Done::Half, Fault::Done::All}) {
          MemoryFiles files;
          files.Put(kMenuPath, change.menu);
          files.Put("temporaryfile", change.scratch);
          files.SetFault({operation, kind, done});
          try {
            finish(files);
          } catch (const Failure&) {
          } catch (const ProcessEnded&) {
          }
          operations = std::max(operations, files.operations());
          for (Unflushed unflushed : kEveryUnflushed) {
            MemoryFiles next;
            for (const auto& [path, bytes] : files.AfterPowerCut(unflushed)) {
              next.Put(path, bytes);
            }
            finishedAgain += finish(next) ? 1 : 0;
            EXPECT_EQ(change.whole, next.Get(kMenuPath)) << "behind operation " << operation;
          }
        }
      }
    }
    EXPECT_GT(operations, 10U);
  }
  EXPECT_GT(finishedAgain, 100U);
}

TEST(FinishInterruptedChange, LeavesTheScratchFileWhereTheMenuCannotBeWritten) {
  const std::string whole = UserMenu(3);
  for (std::size_t operation = 1; operation <= 4; ++operation) {
    MemoryFiles files;
    files.Put(kMenuPath, "");
    files.Put("temporaryfile", whole);
    files.SetFault({operation, Fault::Kind::FailsForGood, Fault::Done::Half});
    EXPECT_THROW(FinishInterruptedChange(files, kMenuPath, {0, {}, "temporaryfile"}), Failure);
    EXPECT_EQ(whole, files.Get("temporaryfile"));
  }
}

}  // namespace
}  // namespace menufile
