#include <gtest/gtest.h>

#include "menufile/failure.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"
#include "tests/menufile/user_change.h"

namespace menufile {
namespace {

using namespace std::string_literals;
using Writes = std::vector<std::string>;

const std::vector<EntryTexts> kEntries = {{"New, entry", "C:\\new", "", ""},
                                          {"Second", "C:\\2", "/s", "C:\\"}};
const std::string kLines =
    "\"New, "
    "entry\",\"C:\\new\",\"\",\"\",\"\",0\r\n\"Second\",\"C:\\2\",\"/s\",\"C:\\\",\"\",0\r\n";
const std::string kWriteLines =
    "write " + std::to_string(kLines.size()) + " bytes to C:\\menus\\a.menu";
constexpr const char* kScratch = "zoltempfileoktodelete";

ChangeResult Add(MemoryFiles& files, bool deletesScratchFile = true) {
  MenuFile menu(files, kMenuPath);
  return AddEntries(menu, kEntries, deletesScratchFile);
}

TEST(AddEntries, WritesAfterTheLastByte) {
  for (const std::string& old : {UserMenu(3), UserMenu(0), DirectoryMenu(), ""s}) {
    MemoryFiles files(kMenuPath, old);
    EXPECT_EQ(ChangeResult::Made, Add(files));
    EXPECT_EQ(old + kLines, files.Get(kMenuPath));
    EXPECT_EQ(std::nullopt, files.Get(kScratch));
  }
}

// A new entry on the end of an unended line would spoil both.
TEST(AddEntries, EndsALastLineThatHasNoEndFirst) {
  for (const char* end : {"\r\n", "\r", "\n", ""}) {
    const std::string old = UserMenu(1).substr(0, UserMenu(1).size() - 2) + end;
    MemoryFiles files(kMenuPath, old);
    Add(files);
    EXPECT_EQ(old + (*end == '\0' ? "\r\n" : "") + kLines, files.Get(kMenuPath));
    EXPECT_EQ(4u, Load(files).shown.size());
  }
}

TEST(AddEntries, IsOnTheDiskWhenItIsMade) {
  MemoryFiles files(kMenuPath, UserMenu(3));
  Add(files);
  for (PowerCut cut = 0; cut < 40; ++cut) {
    MemoryFiles next(files.AfterPowerCut(cut));
    EXPECT_EQ(UserMenu(3) + kLines, next.Get(kMenuPath));
    EXPECT_FALSE(MenuFile(next, kMenuPath).WasCutShort());
  }
}

TEST(AddEntries, HasItsJournalOnTheDiskBeforeTheMenuIsTouched) {
  MemoryFiles files(kMenuPath, UserMenu(3));
  Add(files);
  const Writes writes = files.Writes();
  ASSERT_EQ(9u, writes.size());
  EXPECT_EQ((Writes{"remove temporaryfile", kWriteLines, "flush C:\\menus\\a.menu",
                    "truncate to 0: zoltempfileoktodelete", "flush zoltempfileoktodelete",
                    "remove zoltempfileoktodelete"}),
            Writes(writes.begin() + 3, writes.end()));
  EXPECT_EQ("flush zoltempfileoktodelete", writes[1]);
}

// Adding dropped files does not delete an old scratch file: the journal goes into a file
// beside it.
TEST(AddEntries, HasItsJournalBesideAnOldScratchFile) {
  MemoryFiles files(kMenuPath, UserMenu(3));
  files.Put(kScratch, "old");
  files.Put(kScratch + "-1"s, "older");
  EndProcessAt(files, "write", kMenuPath, Fault::Done::Half,
               [](MemoryFiles& in) { Add(in, false); });
  MemoryFiles next(files.Everything());
  MenuFile menu(next, kMenuPath);
  ASSERT_TRUE(menu.WasCutShort());
  menu.AnswerYes();
  EXPECT_EQ((MemoryFiles::Disk{{kMenuPath, UserMenu(3) + kLines},
                               {"C:\\current\\zoltempfileoktodelete", "old"},
                               {"C:\\current\\zoltempfileoktodelete-1", "older"}}),
            next.Everything());
}

// A power cut may bring a deleted file back: without its journal, even if that could
// not be cut off at first.
TEST(AddEntries, DoesNotDeleteAJournalThatMayComeBack) {
  for (const char* operation : {"truncate to 0", "flush"}) {
    MemoryFiles clean(kMenuPath, UserMenu(3));
    clean.Put(kScratch, "old");
    Add(clean, false);
    MemoryFiles files(kMenuPath, UserMenu(3));
    files.Put(kScratch, "old");
    files.SetFault({clean.LastOf(operation, "zoltempfileoktodelete-1"), Fault::Kind::FailsOnce,
                    Fault::Done::Nothing});
    Add(files, false);
    files.SetFault({});
    MenuFile other(files, kMenuPath);
    EXPECT_EQ(ChangeResult::Made, Make(other, SampleChange(UserChange::Kind::Delete, 1)));
    for (PowerCut cut = 0; cut < 200; ++cut) {
      MemoryFiles next(files.AfterPowerCut(cut));
      EXPECT_FALSE(MenuFile(next, kMenuPath).WasCutShort()) << operation << cut;
    }
  }
}

TEST(AddEntries, NeedsNoScratchFile) {
  for (const bool folderTakesNone : {true, false}) {
    MemoryFiles files(kMenuPath, UserMenu(3));
    if (folderTakesNone) {
      files.ForbidNewFiles();
    } else {
      files.Put(kScratch, "somebody's");
    }
    EXPECT_EQ(ChangeResult::Made, Add(files, false));
    EXPECT_EQ(UserMenu(3) + kLines, files.Get(kMenuPath));
    EXPECT_EQ(folderTakesNone ? std::nullopt : std::optional("somebody's"s), files.Get(kScratch));
  }
}

TEST(AddEntries, DeletesAnOldScratchFileOnlyWhereItIsToldTo) {
  for (const bool deletes : {true, false}) {
    MemoryFiles files(kMenuPath, UserMenu(3));
    files.Put(kScratch, "old");
    Add(files, deletes);
    EXPECT_EQ(deletes ? std::nullopt : std::optional("old"s), files.Get(kScratch));
  }
}

TEST(AddEntries, DoesNotMakeAMissingFile) {
  MemoryFiles files;
  EXPECT_EQ("Cannot open the file:\nC:\\menus\\a.menu\n\nThere is no such file.",
            FailureOf([&] { Add(files); }));
  EXPECT_EQ(std::nullopt, files.Get(kMenuPath));
}

TEST(AddEntries, CannotChangeAFileThatAnotherProgramHolds) {
  MemoryFiles files(kMenuPath, UserMenu(3));
  files.HoldByOther(kMenuPath);
  EXPECT_THROW(Add(files), Failure);
  EXPECT_EQ(UserMenu(3), files.Get(kMenuPath));
}

TEST(AddEntries, LeavesTheMenuWhenTheDiskIsFull) {
  for (const std::size_t left : {0u, 10u, 60u}) {
    MemoryFiles files(kMenuPath, UserMenu(3));
    files.SetCapacity(UserMenu(3).size() + left);
    EXPECT_THROW(Add(files), Failure);
    EXPECT_EQ(UserMenu(3), files.Get(kMenuPath));
    EXPECT_EQ(std::nullopt, files.Get(kScratch));
  }
}

// If lines written in part could not be cut off, the next change cuts them off, or
// finishes them if there is a journal.
TEST(AddEntries, DoesNotLeaveHalfALineBeforeTheNextChange) {
  for (const bool hasJournal : {true, false}) {
    MemoryFiles files(kMenuPath, UserMenu(3));
    if (!hasJournal) {
      files.ForbidNewFiles();
    }
    Add(files);
    const std::size_t write = files.LastOf(kWriteLines, "");
    files.Put(kMenuPath, UserMenu(3));
    files.SetFault({write, Fault::Kind::FailsForGood, Fault::Done::Half});
    MenuFile menu(files, kMenuPath);
    EXPECT_THROW(AddEntries(menu, kEntries, true), Failure);
    EXPECT_EQ(UserMenu(3) + kLines.substr(0, kLines.size() / 2), files.Get(kMenuPath));
    EXPECT_TRUE(menu.HasUnfinished());
    files.SetFault({});
    EXPECT_EQ(hasJournal ? ChangeResult::EarlierFinished : ChangeResult::Made,
              AddEntries(menu, kEntries, true));
    EXPECT_EQ(UserMenu(3) + kLines, files.Get(kMenuPath));
    EXPECT_FALSE(menu.HasUnfinished());
  }
}

}  // namespace
}  // namespace menufile
