// Tests what becomes of an interrupted change if one thing more goes wrong. Each test is
// the story of one loss or one false question that the tests of single faults did not see.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

#include "menufile/failure.h"
#include "menufile/upgrade.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/memory_files.h"
#include "tests/menufile/sample_menus.h"
#include "tests/menufile/user_change.h"

namespace menufile {
namespace {

using Kind = UserChange::Kind;

constexpr const char* kOther = "C:\\menus\\b.menu";

bool IsAsked(FileSystem& files, const std::string& path = kMenuPath) {
  return MenuFile(files, path).WasCutShort();
}

// Makes the change in a process that ends at the last operation of this kind on the file.
// Returns the menu that the whole change makes.
std::string MakeAndEndAt(MemoryFiles& files, const char* operation, const char* path,
                         const UserChange& change) {
  const MemoryFiles::Disk whole =
      EndProcessAt(files, operation, path, Fault::Done::All,
                   [&](MemoryFiles& in) { Make(in, kMenuPath, change); });
  files.SetFault({});
  return whole.at(kMenuPath);
}

std::string MakeAndEndWithAnEmptyMenu(MemoryFiles& files, const UserChange& change) {
  return MakeAndEndAt(files, "truncate to 0:", kMenuPath, change);
}

// A change that was interrupted before it touched the menu, and a later one from another
// process: the first one is overtaken.
void MakeOvertaken(MemoryFiles& files) {
  MakeAndEndAt(files, "flush", "temporaryfile", SampleChange(Kind::MoveUp, 1));
  ASSERT_EQ(ChangeResult::Made, Make(files, kMenuPath, SampleChange(Kind::Delete, 2)));
  ASSERT_TRUE(files.Get("temporaryfile-overtaken-1"));
}

// A change with a picture that needs a thousand bytes.
UserChange BigChange() {
  UserChange change = SampleChange(Kind::SaveAppearance);
  change.appearance.picture = std::string(1000, 'p');
  return change;
}

// A fault at the first operation of a run, then at the second one, and so on.
class EachFault {
 public:
  EachFault(Fault::Kind kind, Fault::Done done) : kind_(kind), done_(done) {}

  // False if the last run ended before its fault.
  bool GoesOn() const { return goesOn_; }
  // The operation of the last run that had the fault.
  const std::string& operation() const { return operation_; }

  // Runs with the next fault. Returns false if the run was left because of it.
  bool Try(MemoryFiles& files, const std::function<void()>& run) {
    files.SetFault({++number_, kind_, done_});
    bool isDone = false;
    try {
      run();
      isDone = true;
    } catch (const ProcessEnded&) {
    } catch (const Failure&) {
    }
    goesOn_ = files.operations() >= number_;
    operation_ = goesOn_ ? files.log()[number_ - 1] : "none";
    files.SetFault({});
    return isDone;
  }

 private:
  Fault::Kind kind_;
  Fault::Done done_;
  std::size_t number_ = 0;
  bool goesOn_ = true;
  std::string operation_;
};

// A window finishes a change that another process left, and then something fails. What it
// shows is not what the menu file holds.
TEST(TwoFaults, AMenuThatWasFinishedBeforeAFailureIsLoadedAgain) {
  int finished = 0;
  for (EachFault fault(Fault::Kind::FailsOnce, Fault::Done::Nothing); fault.GoesOn();) {
    MemoryFiles files(kMenuPath, UserMenu(4));
    MenuFile window(files, kMenuPath);
    const std::string whole = MakeAndEndWithAnEmptyMenu(files, SampleChange(Kind::MoveUp, 1));
    ChangeResult result = ChangeResult::Failed;
    fault.Try(files, [&] { result = Make(window, SampleChange(Kind::Delete, 1)); });
    if (result == ChangeResult::Failed && files.Get(kMenuPath) == whole) {
      ++finished;
      EXPECT_EQ(ChangeResult::EarlierFinished, Make(window, SampleChange(Kind::Delete, 1)))
          << fault.operation();
    }
  }
  EXPECT_GT(finished, 2);
}

// An edit is made. A move is interrupted by a power cut, which brings back the journal of
// the edit.
struct WithAnEarlierJournal {
  MemoryFiles::Disk disk;
  std::string whole;  // the menu that the move makes
  WithAnEarlierJournal() {
    MemoryFiles files(kMenuPath, UserMenu(4));
    Make(files, kMenuPath, SampleChange(Kind::Edit, 0));
    whole = MakeAndEndAt(files, "flush", "temporaryfile", SampleChange(Kind::MoveUp, 1));
    disk = files.AfterPowerCut(kEverythingLost);
  }
};

TEST(TwoFaults, AChangeBeforeAFinishedOneIsNotAskedAboutIfItCannotBePutAside) {
  const WithAnEarlierJournal both;
  MemoryFiles files(both.disk);
  files.Put(kMenuPath, both.whole);
  files.HoldByOther("zoltempfileoktodelete");
  EXPECT_FALSE(IsAsked(files));
  EXPECT_FALSE(IsAsked(files));
  files.ReleaseByOther("zoltempfileoktodelete");
  EXPECT_FALSE(IsAsked(files));
  EXPECT_FALSE(files.Get("zoltempfileoktodelete"));
}

// The copy of the edit's journal needs more room than there is before the move's journal
// goes.
TEST(TwoFaults, AFullDiskDoesNotStopAWindowForGood) {
  const WithAnEarlierJournal both;
  MemoryFiles files(both.disk);
  files.Put(kMenuPath, both.whole);
  std::size_t used = 0;
  for (const auto& [path, bytes] : files.Everything()) {
    used += bytes.size();
  }
  files.SetCapacity(used);
  EXPECT_FALSE(MenuFile(files, kMenuPath).FinishEarlier());
  EXPECT_FALSE(IsAsked(files));
}

// While the edit's journal is being put aside, another window settles both, and another
// menu's change is cut short in the same scratch file.
TEST(TwoFaults, AnotherMenusJournalIsNotTakenForThisOnes) {
  const WithAnEarlierJournal both;
  MemoryFiles files(both.disk);
  files.Put(kMenuPath, both.whole);
  files.Put(kOther, UserMenu(3));
  files.Before("look for zoltempfileoktodelete-declined-1", [&] {
    MenuFile(files, kMenuPath).FinishEarlier();
    EndProcessAt(files, "truncate to 0:", kOther, Fault::Done::All,
                 [](MemoryFiles& in) { Make(in, kOther, SampleChange(Kind::ChangeIcon, 1)); });
    files.SetFault({});
  });
  EXPECT_FALSE(IsAsked(files));
  ASSERT_EQ("", files.Get(kOther));
  EXPECT_TRUE(IsAsked(files, kOther));
}

// Finishing the move is disturbed. No start may ask about the edit.
TEST(TwoFaults, NoChangeBeforeAFinishedOneIsAskedAbout) {
  const WithAnEarlierJournal both;
  int finished = 0;
  for (const Fault::Kind kind : {Fault::Kind::EndsProcess, Fault::Kind::FailsOnce}) {
    for (const bool atStart : {true, false}) {
      for (EachFault fault(kind, Fault::Done::All); fault.GoesOn();) {
        MemoryFiles next(both.disk);
        MenuFile menu(next, kMenuPath);
        fault.Try(next, [&] {
          if (!atStart) {
            menu.FinishEarlier();
          } else if (menu.WasCutShort()) {
            menu.AnswerYes();
          }
        });
        if (next.Get(kMenuPath) == both.whole) {
          ++finished;
          EXPECT_FALSE(IsAsked(next)) << fault.operation();
          EXPECT_FALSE(IsAsked(next)) << "at the second start; " << fault.operation();
        }
      }
    }
  }
  EXPECT_GT(finished, 20);
}

// The user has not been asked about an overtaken change, whatever happens to others.
TEST(TwoFaults, AnOvertakenChangeIsOfferedAfterAFailedOne) {
  MemoryFiles files(kMenuPath, UserMenu(5));
  MenuFile window(files, kMenuPath);
  MakeOvertaken(files);
  files.SetCapacity(1500);
  files.Put("full", std::string(100, 'x'));
  EXPECT_THROW(Make(window, BigChange()), Failure);
  ASSERT_EQ(ChangeResult::Made, Make(window, SampleChange(Kind::Delete, 1)));
  EXPECT_TRUE(IsAsked(files));
}

TEST(TwoFaults, AnOvertakenChangeIsOfferedAfterALaterOneWasFinished) {
  MemoryFiles files(kMenuPath, UserMenu(5));
  MenuFile window(files, kMenuPath);
  MakeOvertaken(files);
  MakeAndEndWithAnEmptyMenu(files, SampleChange(Kind::Delete, 1));
  ASSERT_EQ(ChangeResult::EarlierFinished, Make(window, SampleChange(Kind::Delete, 1)));
  EXPECT_TRUE(IsAsked(files));
}

TEST(TwoFaults, AnOvertakenChangeIsNotOfferedAfterANo) {
  MemoryFiles files(kMenuPath, UserMenu(5));
  MakeOvertaken(files);
  MenuFile window(files, kMenuPath);
  ASSERT_TRUE(window.WasCutShort());
  window.AnswerNo();
  ASSERT_EQ(ChangeResult::Made, Make(window, SampleChange(Kind::Delete, 1)));
  EXPECT_FALSE(IsAsked(files));
}

TEST(TwoFaults, AnOvertakenChangeIsOfferedBesideAJournalOfTheMenu) {
  MemoryFiles files(kMenuPath, UserMenu(5));
  MakeOvertaken(files);
  MakeAndEndAt(files, "flush", kMenuPath, SampleChange(Kind::Delete, 1));
  EXPECT_TRUE(IsAsked(files));
}

// A later change left its journal, too, and that cannot be deleted while the user is asked
// about the overtaken one.
class OvertakenBesideAJournal : public testing::Test {
 protected:
  OvertakenBesideAJournal() {
    MakeOvertaken(files_);
    MakeAndEndAt(files_, "flush", kMenuPath, SampleChange(Kind::Delete, 1));
    files_.HoldByOther("temporaryfile");
    EXPECT_TRUE(window_.WasCutShort());
    files_.ReleaseByOther("temporaryfile");
  }

  MemoryFiles files_{kMenuPath, UserMenu(5)};
  MenuFile window_{files_, kMenuPath};
};

TEST_F(OvertakenBesideAJournal, IsFinishedAfterAYes) {
  window_.AnswerYes();
  EXPECT_EQ(Rewritten(UserMenu(5), Kind::MoveUp, 1), files_.Get(kMenuPath));
}

TEST_F(OvertakenBesideAJournal, IsNotOfferedAfterANo) {
  window_.AnswerNo();
  ASSERT_EQ(ChangeResult::Made, Make(window_, SampleChange(Kind::Delete, 1)));
  EXPECT_FALSE(IsAsked(files_));
}

// While the user is asked, another window makes a change, and ends before it has deleted
// its journal.
TEST(TwoFaults, AYesAboutAnOlderMenuIsAskedForAgain) {
  MemoryFiles files(kMenuPath, UserMenu(5));
  MakeOvertaken(files);
  MenuFile start(files, kMenuPath);
  ASSERT_TRUE(start.WasCutShort());
  const std::string made = MakeAndEndAt(files, "flush", kMenuPath, SampleChange(Kind::Delete, 1));
  start.AnswerYes();
  EXPECT_EQ(made, files.Get(kMenuPath));
  EXPECT_TRUE(IsAsked(files));
}

// While a declined journal is being put aside, another window has its own change cut short
// in the same scratch file.
TEST(TwoFaults, AJournalThatCameInTheDeclinedOnesPlaceStays) {
  MemoryFiles files(kMenuPath, UserMenu(5));
  MakeAndEndAt(files, "flush", "temporaryfile", SampleChange(Kind::MoveUp, 1));
  MenuFile window(files, kMenuPath);
  ASSERT_TRUE(window.WasCutShort());
  window.AnswerNo();
  files.Before("look for temporaryfile-declined-1", [&] {
    EndProcessAt(files, "truncate to 0:", kMenuPath, Fault::Done::All, [](MemoryFiles& in) {
      MenuFile other(in, kMenuPath);
      other.WasCutShort();
      other.AnswerNo();
      Make(other, SampleChange(Kind::Delete, 2));
    });
    files.SetFault({});
  });
  Make(window, SampleChange(Kind::Delete, 1));
  EXPECT_TRUE(IsAsked(files));
}

// A change of another window was cut, so that the menu is converted first, which finishes
// that change instead, and fails after that. The menu is loaded all the same.
TEST(TwoFaults, TheFirstChangeAfterALoadIsMade) {
  int loaded = 0;
  for (EachFault fault(Fault::Kind::FailsOnce, Fault::Done::Nothing); fault.GoesOn();) {
    MemoryFiles files(kMenuPath, UserMenu(4));
    MakeAndEndWithAnEmptyMenu(files, SampleChange(Kind::MoveUp, 1));
    MenuFile window(files, kMenuPath);
    if (!fault.Try(files, [&] { UpgradeMenuFile(window, "picture"); })) {
      continue;
    }
    if (window.Load().empty()) {
      continue;
    }
    ++loaded;
    EXPECT_EQ(ChangeResult::Made, Make(window, SampleChange(Kind::Delete, 1))) << fault.operation();
  }
  EXPECT_GT(loaded, 2);
}

// The disk fails while two entries are added, and none of their bytes is written. Then
// another window adds the first of them.
TEST(TwoFaults, AnEntryOfAnotherWindowIsNotTakenBack) {
  int refused = 0;
  for (EachFault fault(Fault::Kind::FailsForGood, Fault::Done::Nothing); fault.GoesOn();) {
    MemoryFiles files(kMenuPath, UserMenu(3));
    MenuFile first(files, kMenuPath);
    MenuFile second(files, kMenuPath);
    const EntryTexts a{"A", "C:\\a", "", ""};
    const EntryTexts b{"B", "C:\\b", "", ""};
    fault.Try(files, [&] { AddEntries(first, {a, b}, false); });
    if (files.Get(kMenuPath) != UserMenu(3)) {
      continue;
    }
    ++refused;
    if (AddEntries(second, {a}, false) == ChangeResult::Made) {
      const std::string made = files.Get(kMenuPath).value();
      first.FinishEarlier();
      EXPECT_EQ(made, files.Get(kMenuPath)) << fault.operation();
    }
  }
  EXPECT_GT(refused, 5);
}

// A change fails and its journal cannot be dropped durably. The next change succeeds, and
// then the power fails.
TEST(TwoFaults, TheJournalOfAFailedChangeDoesNotComeBack) {
  int failed = 0;
  for (PowerCut cut = 1; cut < 40; ++cut) {
    for (EachFault fault(Fault::Kind::FailsOnce, Fault::Done::Nothing); fault.GoesOn();) {
      MemoryFiles files(kMenuPath, UserMenu(5));
      MenuFile window(files, kMenuPath);
      Make(window, SampleChange(Kind::MoveUp, 1));
      files.SetCapacity(2500);
      ASSERT_FALSE(fault.Try(files, [&] { Make(window, BigChange()); }));
      files.SetCapacity(1'000'000);
      if (Make(window, SampleChange(Kind::Delete, 2)) == ChangeResult::Made) {
        ++failed;
        MemoryFiles next(files.AfterPowerCut(cut));
        EXPECT_FALSE(IsAsked(next)) << fault.operation() << ", power cut " << cut;
      }
    }
  }
  EXPECT_GT(failed, 100);
}

// Another menu's change put the journal aside. It is finished from there, and one operation
// of that fails. Then the power fails.
TEST(TwoFaults, AJournalThatWasPutAsideDoesNotComeBack) {
  int finished = 0;
  for (PowerCut cut = 1; cut < 8; ++cut) {
    for (EachFault fault(Fault::Kind::FailsOnce, Fault::Done::Nothing); fault.GoesOn();) {
      MemoryFiles files(MemoryFiles::Disk{{kMenuPath, UserMenu(4)}, {kOther, UserMenu(3)}});
      MakeAndEndWithAnEmptyMenu(files, SampleChange(Kind::MoveUp, 1));
      Make(files, kOther, SampleChange(Kind::Delete, 1));
      MenuFile menu(files, kMenuPath);
      ASSERT_TRUE(menu.WasCutShort());
      if (!fault.Try(files, [&] { menu.AnswerYes(); })) {
        continue;
      }
      menu.Load();
      if (Make(menu, SampleChange(Kind::Edit, 0)) == ChangeResult::Made) {
        ++finished;
        MemoryFiles next(files.AfterPowerCut(cut));
        EXPECT_FALSE(IsAsked(next)) << fault.operation() << ", power cut " << cut;
      }
    }
  }
  EXPECT_GT(finished, 20);
}

// The clock is set back. A change after that is the latest one all the same.
TEST(TwoFaults, AChangeAfterTheClockWasSetBackIsTheLatest) {
  MemoryFiles files(kMenuPath, UserMenu(5));
  MakeOvertaken(files);
  files.SetClockBack(1'000'000);
  const std::string whole = MakeAndEndWithAnEmptyMenu(files, SampleChange(Kind::Delete, 1));
  MenuFile start(files, kMenuPath);
  ASSERT_TRUE(start.WasCutShort());
  start.AnswerYes();
  EXPECT_EQ(whole, files.Get(kMenuPath));
}

// While a scratch file is being deleted, the editor of another menu writes its journal
// there, empties its menu and ends.
TEST(TwoFaults, AJournalThatComesBeforeADeletionStays) {
  MemoryFiles files(MemoryFiles::Disk{{kMenuPath, UserMenu(4)}, {kOther, UserMenu(3)}});
  bool isCut = false;
  files.Before("open to read zoltempfileoktodelete", [&] {
    EndProcessAt(files, "truncate to 0:", kOther, Fault::Done::All,
                 [](MemoryFiles& in) { Make(in, kOther, SampleChange(Kind::ChangeIcon, 1)); });
    files.SetFault({});
    isCut = true;
  });
  Make(files, kMenuPath, SampleChange(Kind::MoveUp, 1));
  ASSERT_TRUE(isCut);
  ASSERT_EQ("", files.Get(kOther));
  EXPECT_TRUE(IsAsked(files, kOther));
}

// A change empties the menu and fails. Then another program writes a complete menu.
TEST(TwoFaults, ACompleteMenuOfAnotherProgramIsKept) {
  MemoryFiles whole(kMenuPath, UserMenu(5));
  Make(whole, kMenuPath, SampleChange(Kind::MoveUp, 1));
  MemoryFiles files(kMenuPath, UserMenu(5));
  MenuFile window(files, kMenuPath);
  files.SetFault({whole.LastOf("truncate to 0:", kMenuPath) + 1, Fault::Kind::FailsForGood,
                  Fault::Done::Nothing});
  EXPECT_EQ(ChangeResult::Failed, Make(window, SampleChange(Kind::MoveUp, 1)));
  files.SetFault({});
  ASSERT_EQ("", files.Get(kMenuPath));
  const std::string another = UserMenu(9, "another picture");
  files.Put(kMenuPath, another);
  EXPECT_EQ(ChangeResult::EarlierFinished, Make(window, SampleChange(Kind::Delete, 0)));
  EXPECT_EQ(another, files.Get(kMenuPath));
  EXPECT_FALSE(window.HasUnfinished());
  EXPECT_TRUE(IsAsked(files)) << "about the change that failed";
}

// The menu file cannot be emptied, and writing over it fails. Both menus begin alike, so
// what is there may be read as a complete menu, but it is no other program's.
TEST(TwoFaults, AMenuThatIsHalfWrittenOverIsFinished) {
  const UserChange separator = SampleChange(Kind::Separator, 1);
  const std::string whole = Rewritten(UserMenu(30), separator);
  int finished = 0;
  for (EachFault fault(Fault::Kind::FailsOnce, Fault::Done::Half); fault.GoesOn();) {
    MemoryFiles files(kMenuPath, UserMenu(30));
    files.SetBlockSize(61);
    files.ForbidTruncate(kMenuPath);
    MenuFile window(files, kMenuPath);
    fault.Try(files, [&] { Make(window, separator); });
    if (window.HasUnfinished()) {
      ++finished;
      EXPECT_EQ(ChangeResult::EarlierFinished, Make(window, SampleChange(Kind::Delete, 0)));
      EXPECT_EQ(whole, files.Get(kMenuPath)) << fault.operation();
    }
  }
  EXPECT_GT(finished, 10);
}

}  // namespace
}  // namespace menufile
