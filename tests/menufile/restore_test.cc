// Tests how interrupted changes are finished. Each test has one damage.
#include <gtest/gtest.h>

#include <algorithm>

#include "menufile/failure.h"
#include "menufile/upgrade.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"
#include "tests/menufile/user_change.h"

namespace menufile {
namespace {

using namespace std::string_literals;
using Kind = UserChange::Kind;

constexpr const char* kOther = "C:\\menus\\b.menu";

bool IsAsked(FileSystem& files, const std::string& path = kMenuPath) {
  return MenuFile(files, path).WasCutShort();
}

std::optional<std::string> FinishedByTheNextStart(MemoryFiles& files,
                                                  const std::string& path = kMenuPath) {
  MenuFile menu(files, path);
  if (!menu.WasCutShort()) {
    return std::nullopt;
  }
  menu.AnswerYes();
  EXPECT_FALSE(IsAsked(files, path));
  return files.Get(path);
}

// A change that was interrupted after it had emptied the menu file.
struct Cut {
  explicit Cut(Kind kind = Kind::Edit, std::string oldMenu = UserMenu(4))
      : old(std::move(oldMenu)) {
    MemoryFiles files(kMenuPath, old);
    finished =
        EndProcessAt(files, "truncate to 0:", kMenuPath, Fault::Done::All, [kind](MemoryFiles& in) {
          Make(in, kMenuPath, SampleChange(kind, 1));
        }).at(kMenuPath);
    const MemoryFiles::Disk disk = files.Everything();
    EXPECT_EQ("", disk.at(kMenuPath));
    scratch = disk.at("C:\\current\\"s + ScratchFileOf(kind));
    next = std::make_unique<MemoryFiles>(disk);
  }

  std::string old;
  std::string finished;
  std::string scratch;  // with its journal
  std::unique_ptr<MemoryFiles> next;
};

TEST(CutShort, EveryChangeIsFinishedByTheNextStart) {
  for (const Kind kind : kEditorKinds) {
    Cut cut(kind, MenuFor(kind));
    EXPECT_EQ(cut.finished, FinishedByTheNextStart(*cut.next)) << NameOf(kind);
    EXPECT_EQ((MemoryFiles::Disk{{kMenuPath, cut.finished}}), cut.next->Everything());
  }
}

// A power cut may leave any of these in the menu file.
TEST(CutShort, IsSeenWhateverTheMenuFileHolds) {
  Cut cut;
  const std::string& finished = cut.finished;
  const std::string half = finished.substr(0, finished.size() / 2);
  const std::string zeros(finished.size() - half.size(), '\0');
  for (const std::string& menu :
       {""s, half, half + zeros, std::string(finished.size(), '\0'), zeros + half,
        half + cut.old.substr(half.size()), cut.old.substr(0, half.size()) + half, cut.old,
        finished + "x", "garbage"s, finished.substr(0, finished.size() - 1)}) {
    cut.next->Put(kMenuPath, menu);
    cut.next->Put("zoltempfileoktodelete", cut.scratch);
    EXPECT_EQ(finished, FinishedByTheNextStart(*cut.next)) << testing::PrintToString(menu);
  }
}

TEST(CutShort, IsNotSeenWhereTheMenuIsFinished) {
  Cut cut;
  cut.next->Put(kMenuPath, cut.finished);
  EXPECT_FALSE(IsAsked(*cut.next));
  EXPECT_EQ((MemoryFiles::Disk{{kMenuPath, cut.finished}}), cut.next->Everything());
}

TEST(CutShort, IsNotSeenByATornJournal) {
  Cut cut;
  for (std::size_t at = 0; at < cut.scratch.size(); ++at) {
    std::string torn = cut.scratch;
    torn[at] = static_cast<char>(torn[at] ^ 0x10);
    cut.next->Put("zoltempfileoktodelete", torn);
    EXPECT_FALSE(IsAsked(*cut.next)) << at;
    cut.next->Put("zoltempfileoktodelete", cut.scratch.substr(0, at));
    EXPECT_FALSE(IsAsked(*cut.next)) << at;
  }
}

// A scratch file without a journal is no interrupted change, even if it begins like the
// menu or is an older copy of it.
TEST(CutShort, IsNotSeenByContentsAlone) {
  for (const std::string& menu : {UserMenu(2), ""s, "picture"s, UserMenu(3).substr(0, 100)}) {
    for (const std::string& leftover : {UserMenu(3), UserMenu(2), ""s, menu + "x"}) {
      MemoryFiles files(kMenuPath, menu);
      files.Put("temporaryfile", leftover);
      files.Put("zoltempfileoktodelete", leftover);
      EXPECT_FALSE(IsAsked(files));
      EXPECT_EQ(leftover, files.Get("temporaryfile"));
    }
  }
}

TEST(CutShort, IsSeenBesideTheMenuToo) {
  Cut cut;
  MemoryFiles files(kMenuPath, "");
  files.Put("C:\\menus\\zoltempfileoktodelete", cut.scratch);
  EXPECT_EQ(cut.finished, FinishedByTheNextStart(files));
}

TEST(CutShort, BelongsToItsMenuOnly) {
  Cut cut;
  cut.next->Put(kOther, "");
  EXPECT_FALSE(IsAsked(*cut.next, kOther));
  EXPECT_EQ(cut.finished, FinishedByTheNextStart(*cut.next));
}

// If the menu is in the current folder, two paths lead to its scratch file.
TEST(CutShort, IsFinishedOnceInTheCurrentFolder) {
  const std::string path = "C:\\current\\a.menu";
  MemoryFiles files(path, UserMenu(4));
  const MemoryFiles::Disk whole =
      EndProcessAt(files, "truncate to 0:", path, Fault::Done::All,
                   [&path](MemoryFiles& in) { Make(in, path, SampleChange(Kind::Edit, 1)); });
  // The copy that PutAside() leaves if it is interrupted.
  MemoryFiles next(files.Everything());
  next.Put("zoltempfileoktodelete-1", files.Get("zoltempfileoktodelete").value());
  EXPECT_EQ(whole.at(path), FinishedByTheNextStart(next, path));
  EXPECT_EQ(whole, next.Everything());
}

// Another menu may make any change in the same folder.
TEST(CutShort, SurvivesEveryChangeOfAnotherMenu) {
  for (const Kind cutBy : {Kind::Edit, Kind::MoveUp}) {
    for (int kind = 0; kind <= kUserChanges + 1; ++kind) {
      Cut cut(cutBy);
      cut.next->Put(kOther, kind == kUserChanges ? PreviousVersionMenu(2) : UserMenu(3));
      MenuFile other(*cut.next, kOther);
      EXPECT_FALSE(other.WasCutShort());
      try {
        if (kind == kUserChanges) {
          UpgradeMenuFile(other, "ico");
        } else if (kind > kUserChanges) {
          AddEntries(other, {{"New", "C:\\", "", ""}}, true);
        } else {
          Make(other, SampleChange(static_cast<Kind>(kind), 1));
        }
      } catch (const Failure&) {
      }
      EXPECT_NE(UserMenu(3), cut.next->Get(kOther).value() + (kind == 0 ? "x" : "")) << kind;
      EXPECT_EQ(cut.finished, FinishedByTheNextStart(*cut.next)) << kind;
    }
  }
}

TEST(CutShort, SurvivesNoAndAConversion) {
  Cut cut(Kind::MoveUp);
  MenuFile menu(*cut.next, kMenuPath);
  ASSERT_TRUE(menu.WasCutShort());
  menu.AnswerNo();
  RecordingView view(1);
  EXPECT_THROW(LoadMenuFile(menu, "ico", view), Failure);  // nothing to convert
  EXPECT_EQ("ico\r\n<START ZOL>\r\n\"USERDEF\"\r\n", cut.next->Get(kMenuPath));
  EXPECT_EQ(cut.scratch, cut.next->Get("temporaryfile-declined-1"));
  EXPECT_FALSE(IsAsked(*cut.next));
}

TEST(CutShort, IsAskedAgainAfterANoWithoutAChange) {
  Cut cut;
  MenuFile menu(*cut.next, kMenuPath);
  ASSERT_TRUE(menu.WasCutShort());
  menu.AnswerNo();
  EXPECT_EQ(cut.finished, FinishedByTheNextStart(*cut.next));
}

TEST(CutShort, SurvivesAYesThatFails) {
  Cut cut(Kind::MoveUp);
  MenuFile menu(*cut.next, kMenuPath);
  ASSERT_TRUE(menu.WasCutShort());
  cut.next->SetCapacity(0, false);
  EXPECT_THROW(menu.AnswerYes(), Failure);
  UpgradeMenuFile(menu, "ico");
  EXPECT_EQ(cut.scratch, cut.next->Get("temporaryfile"));
  cut.next->SetCapacity(100000);
  EXPECT_EQ(cut.finished, FinishedByTheNextStart(*cut.next));
}

// A second window with an old list makes any change.
TEST(CutShort, IsFinishedFirstByASecondWindow) {
  for (const Kind kind : kEditorKinds) {
    for (const Kind cutBy : {Kind::Delete, Kind::Edit}) {
      for (const std::size_t missing : {1u, 50u, 300u}) {
        Cut cut(cutBy);
        const std::size_t size = cut.finished.size();
        cut.next->Put(kMenuPath,
                      cut.finished.substr(0, size - std::min<std::size_t>(size, missing)));
        MenuFile second(*cut.next, kMenuPath);
        EXPECT_EQ(ChangeResult::EarlierFinished, Make(second, SampleChange(kind, 1)));
        EXPECT_EQ((MemoryFiles::Disk{{kMenuPath, cut.finished}}), cut.next->Everything());
      }
    }
  }
}

// If a start cannot read the scratch file, it must not be lost.
TEST(CutShort, SurvivesALookThatFails) {
  Cut cut(Kind::MoveUp);
  for (std::size_t operation = 1; operation <= 12; ++operation) {
    MemoryFiles files(cut.next->Everything());
    files.SetFault({operation, Fault::Kind::FailsOnce, Fault::Done::Nothing});
    MenuFile menu(files, kMenuPath);
    if (!menu.WasCutShort()) {
      UpgradeMenuFile(menu, "ico");
    }
    menu.FinishEarlier();
    EXPECT_EQ(cut.finished, files.Get(kMenuPath)) << operation;
  }
}

// Another program writes a complete menu before the second window's change.
TEST(CutShort, IsPutAsideWhereTheMenuIsAnotherByNow) {
  Cut cut;
  cut.next->Put(kMenuPath, UserMenu(6));
  MenuFile second(*cut.next, kMenuPath);
  EXPECT_EQ(ChangeResult::Made, Make(second, SampleChange(Kind::Keep)));
  EXPECT_EQ(UserMenu(6), cut.next->Get(kMenuPath));
  EXPECT_EQ(cut.scratch, cut.next->Get("zoltempfileoktodelete-overtaken-1"));
  // No later change finishes it, even if the menu is a prefix of it by then.
  cut.next->Put(kMenuPath, cut.finished.substr(0, cut.finished.size() - ItemLine(3).size()));
  EXPECT_EQ(ChangeResult::Made, Make(second, SampleChange(Kind::Keep)));
  EXPECT_EQ(cut.finished, FinishedByTheNextStart(*cut.next));
}

// A change fails, and its journal stays. A start finishes it, and the menu file is mapped
// by another program: it is not cut but written over, and that ends early.
TEST(CutShort, IsOfferedWhereTheMenuIsHalfWrittenOver) {
  const UserChange move = SampleChange(Kind::MoveUp, 1);
  const auto disk = [](const MemoryFiles::Disk& from) {
    auto files = std::make_unique<MemoryFiles>(from);
    files->SetBlockSize(60);
    files->ForbidTruncate(kMenuPath);
    return files;
  };
  const auto whole = disk({{kMenuPath, UserMenu(3)}});
  Make(*whole, kMenuPath, move);
  const auto files = disk({{kMenuPath, UserMenu(3)}});
  MenuFile first(*files, kMenuPath);
  files->SetFault(
      {whole->LastOf("flush", "temporaryfile"), Fault::Kind::FailsForGood, Fault::Done::All});
  EXPECT_EQ(ChangeResult::Failed, Make(first, move));
  files->SetFault({});
  MenuFile second(*files, kMenuPath);
  ASSERT_TRUE(second.WasCutShort());
  const auto copy = disk(files->Everything());
  MenuFile inCopy(*copy, kMenuPath);
  ASSERT_TRUE(inCopy.WasCutShort());
  copy->SetFault({});
  inCopy.AnswerYes();
  files->SetFault(
      {copy->LastOf("write", kMenuPath), Fault::Kind::EndsProcess, Fault::Done::Nothing});
  EXPECT_THROW(second.AnswerYes(), ProcessEnded);
  files->SetFault({});
  Make(first, SampleChange(Kind::Separator, 0));
  MemoryFiles next(files->Everything());
  EXPECT_EQ(whole->Get(kMenuPath), FinishedByTheNextStart(next));
}

// A power cut has left zeros in the menu file, and no start has looked for journals.
TEST(CutShort, IsFinishedFirstWhereThereAreZerosInTheMenu) {
  Cut cut;
  std::string torn = cut.finished;
  torn.replace(torn.find("Caption 0"), 5, 5, '\0');
  cut.next->Put(kMenuPath, torn);
  MenuFile menu(*cut.next, kMenuPath);
  EXPECT_EQ(ChangeResult::EarlierFinished, Make(menu, SampleChange(Kind::Delete, 2)));
  EXPECT_EQ(cut.finished, cut.next->Get(kMenuPath));
}

// The folder is called like what is put aside.
TEST(CutShort, IsFinishedInAnyFolder) {
  for (const std::string folder : {"C:\\x-overtaken-y\\", "C:\\x-declined-1\\"}) {
    const std::string path = folder + "a.menu";
    MemoryFiles files(path, UserMenu(4));
    const std::string finished =
        EndProcessAt(files, "truncate to 0:", path, Fault::Done::All, [&path](MemoryFiles& in) {
          Make(in, path, SampleChange(Kind::MoveUp, 1));
        }).at(path);
    MemoryFiles next(path, "");
    next.Put(folder + "temporaryfile", files.Get("temporaryfile").value_or(""));
    MenuFile menu(next, path);
    EXPECT_EQ(ChangeResult::EarlierFinished, Make(menu, SampleChange(Kind::Delete, 1)));
    EXPECT_EQ(finished, next.Get(path));
  }
}

// Another program writes a complete menu between the question and the answer.
TEST(CutShort, IsNotFinishedOverAMenuThatCameAfterTheQuestion) {
  Cut cut;
  MenuFile menu(*cut.next, kMenuPath);
  ASSERT_TRUE(menu.WasCutShort());
  const std::string another = UserMenu(2);
  cut.next->Put(kMenuPath, another);
  menu.AnswerYes();
  EXPECT_EQ(another, cut.next->Get(kMenuPath));
  EXPECT_TRUE(IsAsked(*cut.next)) << "about that menu";
}

// Another program reads the scratch file, so that it cannot be deleted.
TEST(CutShort, IsCopiedAsideWhereItCannotBeDeleted) {
  Cut cut;
  cut.next->ForbidRemove("zoltempfileoktodelete");
  cut.next->Put(kOther, UserMenu(3));
  Make(*cut.next, kOther, SampleChange(Kind::Edit, 1));
  EXPECT_EQ(cut.scratch, cut.next->Get("zoltempfileoktodelete-1"));
  MemoryFiles clean(kOther, UserMenu(3));
  Make(clean, kOther, SampleChange(Kind::Edit, 1));
  EXPECT_EQ(clean.Get(kOther), cut.next->Get(kOther));
  EXPECT_EQ(cut.finished, FinishedByTheNextStart(*cut.next));
}

TEST(CutShort, StaysWhereNobodyCanWriteIt) {
  Cut cut;
  cut.next->HoldByOther("zoltempfileoktodelete");
  cut.next->Put(kOther, UserMenu(3));
  EXPECT_THROW(Make(*cut.next, kOther, SampleChange(Kind::Edit, 1)), Failure);
  EXPECT_EQ(UserMenu(3), cut.next->Get(kOther));
  cut.next->ReleaseByOther("zoltempfileoktodelete");
  EXPECT_EQ(cut.finished, FinishedByTheNextStart(*cut.next));
}

TEST(CutShort, TheLaterOfTwoIsFinished) {
  for (const Kind earlier : {Kind::MoveUp, Kind::Edit}) {
    const Kind later = earlier == Kind::Edit ? Kind::MoveUp : Kind::Edit;
    Cut first(earlier);
    Cut second(later);
    first.next->Put(ScratchFileOf(later), second.scratch);
    EXPECT_EQ(second.finished, FinishedByTheNextStart(*first.next));
    EXPECT_EQ(first.scratch, first.next->Get(ScratchFileOf(earlier) + "-declined-1"s));
  }
}

// A power cut may bring back a deleted file.
TEST(CutShort, IsNotSeenByAJournalThatCameBack) {
  for (const Kind first : kEditorKinds) {
    for (const Kind second : {Kind::MoveUp, Kind::Edit, Kind::SaveAppearance}) {
      for (const int byOther : {0, 2, 3}) {  // which of three changes another window makes
        MemoryFiles files(kMenuPath, UserMenu(4));
        MenuFile menu(files, kMenuPath);
        MenuFile other(files, kMenuPath);
        if (first == Kind::SaveDirectory || first == Kind::SwitchToDirectory) {
          continue;
        }
        Make(menu, SampleChange(second, 1));
        Make(byOther == 2 ? other : menu, SampleChange(first, 1));
        EXPECT_EQ(ChangeResult::Made, Make(byOther == 3 ? other : menu, SampleChange(second, 2)));
        for (PowerCut cut = 0; cut < 12; ++cut) {
          MemoryFiles next(files.AfterPowerCut(cut));
          ASSERT_EQ(files.Get(kMenuPath), next.Get(kMenuPath));
          EXPECT_FALSE(IsAsked(next)) << NameOf(first) << ", " << NameOf(second);
        }
      }
    }
  }
}

TEST(CutShort, AddedEntriesAreFinishedWhateverIsThereOfThem) {
  MemoryFiles files(kMenuPath, UserMenu(3));
  const std::string finished =
      EndProcessAt(files, "write", kMenuPath, Fault::Done::Nothing, [](MemoryFiles& in) {
        MenuFile menu(in, kMenuPath);
        AddEntries(menu, {{"New", "C:\\new", "", ""}, {"Two", "C:\\2", "", ""}}, true);
      }).at(kMenuPath);
  const MemoryFiles::Disk disk = files.Everything();
  for (std::size_t size = UserMenu(3).size(); size < finished.size(); ++size) {
    for (const bool zeros : {false, true}) {
      MemoryFiles next(disk);
      std::string cut = finished.substr(0, size);
      cut.resize(zeros ? finished.size() : size, '\0');
      next.Put(kMenuPath, cut);
      EXPECT_EQ(finished, FinishedByTheNextStart(next)) << size;
    }
  }
  // The journal holds the whole of a small menu.
  for (const std::string& other : {UserMenu(3).substr(0, 200), UserMenu(8, "x"), ""s}) {
    MemoryFiles next(disk);
    next.Put(kMenuPath, other);
    EXPECT_EQ(finished, FinishedByTheNextStart(next));
  }
}

// A power cut may destroy the old bytes in the disk block that is being written.
TEST(CutShort, AddedEntriesAreFinishedWhereTheirDiskBlockWasTorn) {
  const std::string old = UserMenu(250);
  ASSERT_LT(8192u, old.size());
  MemoryFiles files(kMenuPath, old);
  EndProcessAt(files, "flush", kMenuPath, Fault::Done::Nothing, [](MemoryFiles& in) {
    MenuFile menu(in, kMenuPath);
    AddEntries(menu, {{"New", "C:\\new", "", ""}}, true);
  });
  MemoryFiles next(files.Everything());
  const std::string finished = next.Get(kMenuPath).value();
  const std::size_t block = old.size() / 4096 * 4096;
  next.Put(kMenuPath, old.substr(0, block) + std::string(finished.size() - block, '\0'));
  EXPECT_EQ(finished, FinishedByTheNextStart(next));
  // The entries before it have changed, so the change cannot be finished.
  for (const int items : {150, 260}) {
    MemoryFiles replaced(files.Everything());
    replaced.Put(kMenuPath, UserMenu(items, "x"));
    EXPECT_FALSE(IsAsked(replaced));
  }
}

// A short read must not count as the end of the file.
TEST(Replace, TakesNoReadThatEndsEarlyForTheEnd) {
  for (const Kind kind : {Kind::Delete, Kind::Edit, Kind::ChangeIcon}) {
    for (std::size_t operation = 1; operation <= 45; ++operation) {
      MemoryFiles clean(kMenuPath, UserMenu(4));
      MemoryFiles files(clean.Everything());
      Make(clean, kMenuPath, SampleChange(kind, 1));
      files.SetFault({operation, Fault::Kind::EndsEarly, Fault::Done::All});
      try {
        Make(files, kMenuPath, SampleChange(kind, 1));
      } catch (const Failure&) {
      }
      const auto offered = FinishedByTheNextStart(files);
      const std::string menu = offered.value_or(files.Get(kMenuPath).value());
      EXPECT_TRUE(menu == UserMenu(4) || menu == clean.Get(kMenuPath)) << NameOf(kind) << operation;
    }
  }
}

// A process ended before it flushed the menu. The next start finds the menu complete, but
// has to flush it before it removes the journal.
TEST(CutShort, IsNotForgottenBeforeTheMenuIsOnTheDisk) {
  MemoryFiles files(kMenuPath, UserMenu(4));
  const std::string finished =
      EndProcessAt(files, "flush", kMenuPath, Fault::Done::Nothing, [](MemoryFiles& in) {
        Make(in, kMenuPath, SampleChange(Kind::MoveUp, 1));
      }).at(kMenuPath);
  files.SetFault({});
  EXPECT_FALSE(IsAsked(files));
  for (PowerCut cut = 0; cut < 50; ++cut) {
    MemoryFiles next(files.AfterPowerCut(cut));
    EXPECT_EQ(finished, FinishedByTheNextStart(next).value_or(next.Get(kMenuPath).value()));
  }
}

// A change of another menu puts the journal aside; the next change of this menu finds it.
TEST(CutShort, IsFinishedFirstWhereItWasPutAside) {
  Cut cut(Kind::MoveUp);
  cut.next->Put(kOther, UserMenu(3));
  MenuFile second(*cut.next, kMenuPath);
  Make(*cut.next, kOther, SampleChange(Kind::MoveUp, 1));
  EXPECT_EQ(ChangeResult::EarlierFinished, Make(second, SampleChange(Kind::Separator, 0)));
  EXPECT_EQ(cut.finished, cut.next->Get(kMenuPath));
}

TEST(Replace, LeavesTheMenuWhereTheDiskHasNoRoom) {
  for (const Kind kind : kEditorKinds) {
    const std::string menu = kind == Kind::SwitchToUserDefined ? DirectoryMenu() : UserMenu(4);
    MemoryFiles clean(kMenuPath, menu);
    Make(clean, kMenuPath, SampleChange(kind, 1));
    const std::size_t newSize = clean.Get(kMenuPath)->size();
    for (std::size_t left = 0; left < 2 * newSize; left += 7) {
      MemoryFiles full(kMenuPath, menu);
      full.SetCapacity(menu.size() + left);
      try {
        Make(full, kMenuPath, SampleChange(kind, 1));
      } catch (const Failure&) {
      }
      EXPECT_TRUE(full.Get(kMenuPath) == menu || full.Get(kMenuPath) == clean.Get(kMenuPath))
          << NameOf(kind) << " with " << left;
      EXPECT_FALSE(IsAsked(full));
    }
  }
}

// If the menu file cannot be cut, a longer menu is written over it.
TEST(Replace, WritesOverAMenuThatCannotBeMadeShorter) {
  for (const Kind kind : {Kind::Separator, Kind::MoveUp}) {
    MemoryFiles files(kMenuPath, UserMenu(4));
    files.ForbidTruncate(kMenuPath);
    EXPECT_EQ(ChangeResult::Made, Make(files, kMenuPath, SampleChange(kind, 1)));
    EXPECT_NE(UserMenu(4), files.Get(kMenuPath));
    EXPECT_FALSE(IsAsked(files));
  }
  MemoryFiles files(kMenuPath, UserMenu(4));
  files.ForbidTruncate(kMenuPath);
  MenuFile menu(files, kMenuPath);
  EXPECT_EQ(ChangeResult::Failed, Make(menu, SampleChange(Kind::Delete, 1)));
  EXPECT_EQ((MemoryFiles::Disk{{kMenuPath, UserMenu(4)}}), files.Everything());
  EXPECT_FALSE(menu.HasUnfinished());
}

// A scratch file that cannot be deleted holds just the description afterwards, so that
// three saves give the same menu.
TEST(Replace, LeavesTheDescriptionInAScratchFileThatStays) {
  MemoryFiles files(kMenuPath, UserMenu(4));
  files.Put("zoltempfileoktodelete", "");
  files.ForbidRemove("zoltempfileoktodelete");
  const UserChange save = SampleChange(Kind::SaveAppearance);
  for (int i = 0; i < 3; ++i) {
    Make(files, kMenuPath, save);
    EXPECT_EQ(save.appearance.picture + files.Get("zoltempfileoktodelete").value(),
              files.Get(kMenuPath));
    EXPECT_EQ(5u, Load(files).shown.size());
  }
}

// The entries of another, longer menu must not end up after this one's.
TEST(Replace, TakesNothingFromAMenuThatStaysInTheScratchFile) {
  for (const Kind kind : kEditorKinds) {
    MemoryFiles clean(kMenuPath, MenuFor(kind));
    MemoryFiles files(clean.Everything());
    Make(clean, kMenuPath, SampleChange(kind, 1));
    files.Put(ScratchFileOf(kind), UserMenu(40));
    files.ForbidRemove(ScratchFileOf(kind));
    Make(files, kMenuPath, SampleChange(kind, 1));
    EXPECT_EQ(clean.Get(kMenuPath), files.Get(kMenuPath)) << NameOf(kind);
  }
}

// Exceptions other than Failure leave a change to finish, too.
TEST(Replace, SaysAfterAnyExceptionThatItIsUnfinished) {
  MemoryFiles files(kMenuPath, UserMenu(4));
  MenuFile menu(files, kMenuPath);
  MenuChange change;
  change.errorMode = ErrorMode::Ignores;
  change.recordRule = [](std::size_t, const MenuItemRecord&, RecordStream&) {
    throw std::bad_alloc();
  };
  EXPECT_THROW(RewriteMenuFile(menu, change), std::bad_alloc);
  EXPECT_FALSE(menu.HasUnfinished());
  EXPECT_EQ(UserMenu(4), files.Get(kMenuPath));
  EXPECT_EQ(std::nullopt, files.Get("temporaryfile"));
}

}  // namespace
}  // namespace menufile
