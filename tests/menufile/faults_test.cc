// Makes every change with a fault at each of its file operations: it fails, ends early,
// ends the process, or the power fails. There are old scratch files of every kind. Then
// the users go on, with another fault. Both menus have to stay complete in some file, and
// a start has to offer them.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"
#include "tests/menufile/two_windows.h"
#include "tests/menufile/user_change.h"

namespace menufile {
namespace {

using Kind = UserChange::Kind;
using Step = TwoWindows::Step;
using Window = TwoWindows::Window;

constexpr int kSteps = 10;
// One fault in so many is run, a different one in each scenario.
constexpr unsigned kOneOf = 23;

// 0 unless the command line has --gtest_random_seed. With another seed other faults are
// run. UnitTest::random_seed() would return the time if the seed is 0.
unsigned Seed() { return static_cast<unsigned>(GTEST_FLAG_GET(random_seed)); }

struct Totals {
  std::size_t cases = 0;
  std::size_t steps = 0;
  std::size_t lost = 0;
  std::size_t offered = 0;
  // The shortest story for each kind of complaint.
  std::map<std::string, std::string> complaints;
};

Totals totals;

std::string SecondMenu() { return UserMenu(3, "picture of the second"); }

Step ChangeStep(Kind kind, std::size_t row) {
  const UserChange change = SampleChange(kind, row);
  return {NameOf(kind) + std::to_string(row),
          [change](MenuFile& menu) { return Make(menu, change); }};
}

Step AddStep(bool deletes, int number) {
  const std::string text = std::to_string(number);
  const std::vector<EntryTexts> entries = {{"New " + text, "C:\\new", "", ""},
                                           {"Another", "C:\\tools\\" + text, "/x", "C:\\"}};
  return {(deletes ? "Add" : "Drop") + text,
          [entries, deletes](MenuFile& menu) { return AddEntries(menu, entries, deletes); }, true};
}

// An old scratch file.
struct Leftover {
  const char* name;
  std::string bytes;
  std::string finishedSecondMenu = {};  // the second menu after its journal is finished
};

// The scratch file of a process that ended after it had emptied the second menu.
Leftover SecondMenusJournal() {
  MemoryFiles files(kSecondMenu, SecondMenu());
  const MemoryFiles::Disk whole =
      EndProcessAt(files, "truncate to 0:", kSecondMenu, Fault::Done::All,
                   [](MemoryFiles& in) { Make(in, kSecondMenu, SampleChange(Kind::MoveUp, 1)); });
  return {"another menu's journal", files.Get("temporaryfile").value_or(""), whole.at(kSecondMenu)};
}

const std::vector<Leftover>& Leftovers() {
  static const std::vector<Leftover> leftovers = {{"nothing", ""},
                                                  {"few bytes", std::string(20, 'L')},
                                                  {"many bytes", std::string(700, 'L')},
                                                  {"a menu", UserMenu(9, "x")},
                                                  SecondMenusJournal()};
  return leftovers;
}

struct Scenario {
  std::string oldMenu;
  std::optional<Step> change;  // nothing for the conversion at the start
  const char* scratchFile = "temporaryfile";
  const Leftover* leftover = nullptr;
  bool canBeRemoved = true;
  std::size_t blockSize = 1000;
  int changesBefore = 0;
};

class Case {
 public:
  Case(const Scenario& scenario, unsigned seed)
      : scenario_(scenario), random_(seed), user_(Disk(scenario), FolderOf(scenario)) {
    if (!scenario.leftover->finishedSecondMenu.empty()) {
      user_.SecondMenuWasCut(scenario.leftover->finishedSecondMenu);
    }
    if (scenario.change) {
      user_.Start(Window::kFirst, true, true, {});
      user_.Start(Window::kSecond, true, true, {});
    }
    // A window that has made a change remembers the menu file after it.
    if (scenario.changesBefore > 0) {
      user_.Do(Window::kFirst, *scenario.change, {});
    }
    if (scenario.changesBefore > 1) {
      user_.Do(Window::kFirst, ChangeStep(Kind::Edit, 0), {});
    }
  }

  void FirstFault(const Fault& fault) {
    if (scenario_.change) {
      user_.Do(Window::kFirst, *scenario_.change, fault);
    } else {
      user_.Start(Window::kFirst, true, true, fault);
    }
    isOpen_[Window::kFirst] = !user_.ended();
    isOpen_[Window::kSecond] = scenario_.change.has_value();
  }

  const TwoWindows& user() const { return user_; }

  void CutPower(PowerCut cut) {
    user_.CutPower(cut);
    std::fill(std::begin(isOpen_), std::end(isOpen_), false);
  }

  // Makes more steps, one of them with a fault.
  void GoOn() {
    const int faulty = static_cast<int>(Any(2 * kSteps));
    for (int step = 0; step < kSteps && user_.complaint().empty(); ++step) {
      TakeStep(step == faulty ? AnyFault() : Fault{});
      if (step == faulty && Any(3) == 0) {
        CutPower(1 + Any(1000));
      }
      ++totals.steps;
    }
  }

 private:
  static MemoryFiles::Disk Disk(const Scenario& scenario) {
    MemoryFiles::Disk disk = {{kMenuPath, scenario.oldMenu}, {kSecondMenu, SecondMenu()}};
    if (!scenario.leftover->bytes.empty()) {
      disk[std::string("C:\\current\\") + scenario.scratchFile] = scenario.leftover->bytes;
    }
    if (!scenario.leftover->finishedSecondMenu.empty()) {
      disk[kSecondMenu].clear();
    }
    return disk;
  }

  static TwoWindows::Folder FolderOf(const Scenario& scenario) {
    TwoWindows::Folder folder{scenario.blockSize};
    if (!scenario.canBeRemoved) {
      folder.cannotBeRemoved.insert(scenario.scratchFile);
    }
    return folder;
  }

  unsigned Any(unsigned count) { return static_cast<unsigned>(random_() % count); }

  Fault AnyFault() {
    return {1 + Any(45), static_cast<Fault::Kind>(Any(4)), static_cast<Fault::Done>(Any(3))};
  }

  void TakeStep(const Fault& fault) {
    const auto window = static_cast<Window>(Any(TwoWindows::kWindows));
    if (!isOpen_[window]) {
      user_.Start(window, Any(4) != 0, Any(2) == 0, fault);
      isOpen_[window] = !user_.ended();
      return;
    }
    switch (Any(8)) {
      case 0:
        user_.Close(window, fault);
        isOpen_[window] = false;
        return;
      case 1:
        user_.ReadEntry(window, fault);
        break;
      case 2:
        user_.Do(window, AddStep(Any(2) == 0, static_cast<int>(Any(3))), fault);
        break;
      default:
        user_.Do(window, ChangeStep(static_cast<Kind>(1 + Any(kUserChanges - 1)), 1 + Any(2)),
                 fault);
    }
    isOpen_[window] = !user_.ended();
  }

  const Scenario& scenario_;
  std::mt19937 random_;
  TwoWindows user_;
  bool isOpen_[TwoWindows::kWindows] = {};
};

void Finish(Case& one) {
  one.GoOn();
  ++totals.cases;
  totals.offered += one.user().offered();
  const std::string& complaint = one.user().complaint();
  if (complaint.empty()) {
    return;
  }
  ++totals.lost;
  const auto lines = [](const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
  };
  std::string& shortest = totals.complaints[complaint.substr(0, 40)];
  if (shortest.empty() || lines(complaint) < lines(shortest)) {
    shortest = complaint;
  }
}

// The faults that can happen at this operation.
std::vector<Fault> FaultsAt(std::size_t number, const std::string& operation) {
  using Done = Fault::Done;
  using FaultKind = Fault::Kind;
  std::vector<Fault> faults = {{number, FaultKind::FailsOnce, Done::Nothing},
                               {number, FaultKind::FailsOnce, Done::All},
                               {number, FaultKind::FailsForGood, Done::Nothing},
                               {number, FaultKind::EndsProcess, Done::Nothing},
                               {number, FaultKind::EndsProcess, Done::All}};
  if (operation.starts_with("write")) {
    faults.push_back({number, FaultKind::FailsOnce, Done::Half});
    faults.push_back({number, FaultKind::FailsForGood, Done::Half});
    faults.push_back({number, FaultKind::EndsProcess, Done::Half});
  } else if (operation.starts_with("read")) {
    faults.push_back({number, FaultKind::EndsEarly, Done::All});
  }
  return faults;
}

// Runs one scenario with every fault.
void InjectAll(const Scenario& scenario, unsigned& seed) {
  Case clean(scenario, 0);
  clean.FirstFault({});
  ASSERT_EQ("", clean.user().complaint());
  const std::vector<std::string> log = clean.user().log();
  for (std::size_t number = 1; number <= log.size(); ++number) {
    for (const Fault& fault : FaultsAt(number, log[number - 1])) {
      if (++seed % kOneOf != 0) {
        continue;
      }
      const unsigned cuts = fault.kind == Fault::Kind::EndsProcess ? 3 : 1;
      for (unsigned cut = 0; cut < cuts; ++cut) {
        Case one(scenario, 4 * seed + cut);
        one.FirstFault(fault);
        // Only the process ends; or all changes that were not flushed are lost; or some.
        if (cut > 0) {
          one.CutPower(cut == 1 ? kEverythingLost : 2 + seed);
        }
        Finish(one);
      }
    }
  }
}

// Runs a scenario with old scratch files of every kind.
void InjectAmongLeftovers(Scenario scenario) {
  const std::size_t lostBefore = totals.lost;
  unsigned seed = Seed();
  for (const std::size_t blockSize : {1000u, 60u}) {
    for (const Leftover& leftover : Leftovers()) {
      for (const bool canBeRemoved : {true, false}) {
        for (const int before : {0, 1, 2}) {
          if (!scenario.change && before > 0) {
            continue;
          }
          scenario.blockSize = blockSize;
          scenario.leftover = &leftover;
          scenario.canBeRemoved = canBeRemoved;
          scenario.changesBefore = before;
          InjectAll(scenario, seed);
        }
      }
    }
  }
  EXPECT_EQ(lostBefore, totals.lost);
}

class EveryRewrite : public testing::TestWithParam<Kind> {};

TEST_P(EveryRewrite, LosesNothing) {
  Scenario scenario;
  scenario.oldMenu = MenuFor(GetParam());
  scenario.change = ChangeStep(GetParam(), 1);
  scenario.scratchFile = ScratchFileOf(GetParam());
  InjectAmongLeftovers(scenario);
}

INSTANTIATE_TEST_SUITE_P(Of, EveryRewrite, testing::ValuesIn(kEditorKinds),
                         [](const auto& info) { return NameOf(info.param); });

TEST(Conversion, LosesNothing) {
  Scenario scenario;
  scenario.oldMenu = PreviousVersionMenu(4);
  InjectAmongLeftovers(scenario);
}

TEST(Adding, LosesNothing) {
  for (const bool deletes : {true, false}) {
    Scenario scenario;
    scenario.oldMenu = UserMenu(3);
    scenario.change = AddStep(deletes, 7);
    scenario.scratchFile = "zoltempfileoktodelete";
    InjectAmongLeftovers(scenario);
  }
}

MemoryFiles::Disk TwoMenus() { return {{kMenuPath, UserMenu(3)}, {kSecondMenu, SecondMenu()}}; }

constexpr std::size_t kMostOperations = 80;

// A process ended before it flushed its journal. Another process finishes the change,
// and then the power fails.
TEST(CutShort, IsFinishedFromAJournalThatIsOnTheDisk) {
  const MemoryFiles::Disk disk = TwoMenus();
  const Step move = ChangeStep(Kind::MoveUp, 1);
  TwoWindows whole(disk, {});
  whole.Start(Window::kFirst, true, true, {});
  whole.Do(Window::kFirst, move, {});
  const Fault beforeFlush{whole.LastOf("flush", "temporaryfile"), Fault::Kind::EndsProcess};
  for (std::size_t number = 1; number < kMostOperations; ++number) {
    for (PowerCut cut = 0; cut < 20; ++cut) {
      TwoWindows user(disk, {});
      user.Start(Window::kFirst, true, true, {});
      user.Do(Window::kFirst, move, beforeFlush);
      user.Start(Window::kSecond, true, true, {number, Fault::Kind::EndsProcess, Fault::Done::All});
      user.CutPower(cut);
      ASSERT_EQ("", user.complaint());
    }
  }
}

// A process ended before it made the deletion of an earlier journal durable. A start has
// its change finished, and then the power fails.
TEST(CutShort, IsFinishedWithNoEarlierJournalLeft) {
  const MemoryFiles::Disk disk = TwoMenus();
  const auto begin = [](TwoWindows& user, const Fault& fault) {
    user.Start(Window::kFirst, true, true, {});
    user.Do(Window::kFirst, ChangeStep(Kind::Edit, 0), {});
    user.Do(Window::kFirst, ChangeStep(Kind::MoveUp, 1), fault);
  };
  TwoWindows whole(disk, {});
  begin(whole, {});
  for (PowerCut cut = 0; cut < 40; ++cut) {
    TwoWindows user(disk, {});
    begin(user,
          {whole.LastOf("flush", "temporaryfile"), Fault::Kind::EndsProcess, Fault::Done::All});
    user.Start(Window::kFirst, true, true, {});
    user.CutPower(cut);
    ASSERT_EQ("", user.complaint());
  }
}

// A process ended before it flushed the menu. The user says No and goes on, and then the
// power fails.
TEST(CutShort, IsOnTheDiskWhenItIsDeclined) {
  const MemoryFiles::Disk disk = TwoMenus();
  const auto begin = [](TwoWindows& user, const Fault& fault) {
    user.Start(Window::kFirst, true, true, {});
    user.Do(Window::kFirst, ChangeStep(Kind::Separator, 1), fault);
  };
  const TwoWindows::Folder folder{60};
  TwoWindows whole(disk, folder);
  begin(whole, {});
  for (PowerCut cut = 0; cut < 40; ++cut) {
    TwoWindows user(disk, folder);
    begin(user, {whole.LastOf("write", kMenuPath), Fault::Kind::EndsProcess});
    user.Start(Window::kFirst, false, true, {});
    user.ReadEntry(Window::kFirst, {});
    user.CutPower(cut);
    user.Start(Window::kFirst, true, true, {});
    user.Do(Window::kFirst, ChangeStep(Kind::Separator, 1), {});
    ASSERT_EQ("", user.complaint());
  }
}

// A power cut brings back the journal of a change that was made, beside that of the
// change after it. The disk fails while the later one is finished.
TEST(CutShort, AsksForNoChangeBeforeTheFinishedOne) {
  const MemoryFiles::Disk disk = TwoMenus();
  const TwoWindows::Folder folder{1000, {"zoltempfileoktodelete"}};
  const Step add = AddStep(false, 7);
  const auto begin = [&](TwoWindows& user) {
    user.Start(Window::kFirst, true, true, {});
    user.Do(Window::kFirst, ChangeStep(Kind::Edit, 0), {});
  };
  TwoWindows whole(disk, folder);
  begin(whole);
  whole.Do(Window::kFirst, add, {});
  const Fault afterFlush{whole.LastOf("write", "zoltempfileoktodelete-1") + 1,
                         Fault::Kind::EndsProcess, Fault::Done::All};
  for (std::size_t number = 1; number < kMostOperations; ++number) {
    for (const Fault::Done done : {Fault::Done::Nothing, Fault::Done::All}) {
      TwoWindows user(disk, folder);
      begin(user);
      user.Do(Window::kFirst, add, afterFlush);
      user.CutPower(kEverythingLost);
      user.Start(Window::kSecond, true, true, {number, Fault::Kind::FailsForGood, done});
      user.Do(Window::kSecond, ChangeStep(Kind::Delete, 2), {});
      ASSERT_EQ("", user.complaint());
    }
  }
}

// A change ends after its journal was written, and the menu is as before. A start has the
// change finished, and that ends early. The other window must not go on with what is left.
TEST(CutShort, IsFinishedByAnyWindowAfterAYesThatEndsEarly) {
  const MemoryFiles::Disk disk = TwoMenus();
  const auto start = [](TwoWindows& user) {
    user.Start(Window::kFirst, true, true, {});
    user.Start(Window::kSecond, true, true, {});
  };
  // In a block of that size, the half menu is just as long as the old one.
  for (const TwoWindows::Folder& folder :
       {TwoWindows::Folder{1000}, TwoWindows::Folder{UserMenu(3).size()}}) {
    for (const Step& step :
         {ChangeStep(Kind::MoveUp, 1), ChangeStep(Kind::Separator, 1), AddStep(true, 7)}) {
      TwoWindows whole(disk, folder);
      start(whole);
      whole.Do(Window::kFirst, step, {});
      const std::size_t flush =
          whole.LastOf("flush", step.appends ? "zoltempfileoktodelete" : "temporaryfile");
      for (const auto kind : {Fault::Kind::FailsForGood, Fault::Kind::EndsProcess}) {
        for (const bool isOvertaken : {false, true}) {
          const bool fails = kind == Fault::Kind::FailsForGood;
          const Window ends = fails ? Window::kSecond : Window::kFirst;
          const Window other = fails ? Window::kFirst : Window::kSecond;
          bool hasEnded = true;
          for (std::size_t number = 1; hasEnded; ++number) {
            TwoWindows user(disk, folder);
            start(user);
            user.Do(Window::kFirst, step, {flush, kind, Fault::Done::All});
            if (isOvertaken) {
              user.Do(Window::kSecond, ChangeStep(Kind::Delete, 2), {});
            }
            user.Start(ends, true, true, {number, Fault::Kind::EndsProcess, Fault::Done::All});
            hasEnded = user.ended();
            user.Do(other, ChangeStep(Kind::Delete, 2), {});
            user.Do(other, ChangeStep(Kind::Delete, 1), {});
            ASSERT_EQ("", user.complaint());
          }
        }
      }
    }
  }
}

// A power cut must not undo a change that was reported as made.
TEST(AnyChange, ThatIsMadeIsOnTheDiskAndLosesNothing) {
  const auto expectOnDisk = [](const MemoryFiles& files) {
    for (PowerCut cut = 0; cut < 40; ++cut) {
      EXPECT_EQ(files.Get(kMenuPath), files.AfterPowerCut(cut)[kMenuPath]);
    }
  };
  for (const int items : {3, 250}) {
    for (int kind = 0; kind < kUserChanges; ++kind) {
      MemoryFiles files(kMenuPath, UserMenu(items));
      Make(files, kMenuPath, SampleChange(static_cast<Kind>(kind), 1));
      expectOnDisk(files);
      MenuFile menu(files, kMenuPath);
      AddEntries(menu, {{"New", "C:\\new", "", ""}}, true);
      expectOnDisk(files);
    }
  }
}

class PrintTotals final : public testing::Environment {
 public:
  void TearDown() override {
    if (totals.cases > 0) {
      std::cout << "Counted: " << totals.cases << " faults, seed " << Seed() << '\n'
                << "Counted: " << totals.lost << " faults that lost data\n"
                << "Counted: " << totals.steps << " steps after faults\n"
                << "Counted: " << totals.offered << " changes that a start offered to finish\n";
      for (const auto& [kind, complaint] : totals.complaints) {
        std::cout << complaint << '\n';
      }
    }
  }
};

[[maybe_unused]] const testing::Environment* const printTotals =
    testing::AddGlobalTestEnvironment(new PrintTotals);

}  // namespace
}  // namespace menufile
