// Every operation that writes, with each of its file operations failing, and
// with the process or the power ending at each of them. Whatever happens, a
// complete menu, the old or the new one, must be in the menu file or in the
// scratch file.
#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "menufile/append.h"
#include "menufile/failure.h"
#include "menufile/restore.h"
#include "menufile/upgrade.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/operation.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using Disk = MemoryFiles::Disk;
using Kind = Operation::Kind;

// What an upgrade puts in front.
constexpr std::string_view kPicture = "icon < of the program\r\n";

// Something that writes to the menu file, on a disk with all that it needs.
struct Scenario {
  std::string name;
  std::string oldMenu;
  std::string scratchFile;
  std::optional<std::string> leftover = std::nullopt;
  bool scratchCanBeDeleted = true;
  bool ignoresFailures = false;
  bool scratchHoldsOldMenu = false;  // and not the new one
  bool appends = false;
  std::size_t blockSize = 0;
  std::function<void(FileSystem&)> run;
};

struct Totals {
  std::size_t cases = 0;
  std::size_t lost = 0;
  std::size_t finished = 0;  // by the next start
};

Totals totals;

class Faults {
 public:
  explicit Faults(const Scenario& scenario) : scenario_(scenario) {
    MemoryFiles files;
    Prepare(files);
    scenario_.run(files);
    log_ = files.log();
    newMenu_ = files.Get(kMenuPath).value_or("");
    // A scratch file that is not deleted first leaves its tail.
    MemoryFiles sticky;
    Prepare(sticky);
    sticky.ForbidRemove(scenario_.scratchFile);
    scenario_.run(sticky);
    newMenuWithTail_ = sticky.Get(kMenuPath).value_or("");
  }

  void InjectAll() {
    for (std::size_t operation = 1; operation <= log_.size(); ++operation) {
      for (Fault::Done done : {Fault::Done::Nothing, Fault::Done::Half, Fault::Done::All}) {
        for (Fault::Kind kind :
             {Fault::Kind::FailsOnce, Fault::Kind::FailsForGood, Fault::Kind::EndsProcess}) {
          Inject({operation, kind, done});
        }
      }
    }
  }

  // The disk is full after each number of bytes.
  void FillDisk() {
    const std::size_t used = scenario_.oldMenu.size() + scenario_.leftover.value_or("").size();
    for (std::size_t left = 0; left < newMenu_.size() + scenario_.oldMenu.size(); ++left) {
      MemoryFiles files;
      Prepare(files);
      files.SetCapacity(used + left);
      try {
        scenario_.run(files);
      } catch (const Failure&) {
        EXPECT_FALSE(scenario_.ignoresFailures);
      }
      Judge(files, scenario_.name + " with a disk of " + std::to_string(left) + " bytes more");
    }
  }

 private:
  void Prepare(MemoryFiles& files) const {
    files.SetBlockSize(scenario_.blockSize);
    files.Put(kMenuPath, scenario_.oldMenu);
    if (scenario_.leftover) {
      files.Put(scenario_.scratchFile, *scenario_.leftover);
    }
    if (!scenario_.scratchCanBeDeleted) {
      files.ForbidRemove(scenario_.scratchFile);
    }
  }

  void Inject(const Fault& fault) {
    MemoryFiles files;
    Prepare(files);
    files.SetFault(fault);
    const std::string& at = log_[fault.operation - 1];
    const std::string what = scenario_.name + ", " + at + ", fault " +
                             std::to_string(static_cast<int>(fault.kind)) + " when " +
                             std::to_string(static_cast<int>(fault.done)) + " halves are done";
    // A scratch file that cannot be deleted, or is not there, is none to tell of.
    const bool isIgnored =
        at == "remove " + scenario_.scratchFile || at == "open to read " + scenario_.scratchFile;
    try {
      scenario_.run(files);
      EXPECT_NE(Fault::Kind::EndsProcess, fault.kind) << what;
      EXPECT_TRUE(scenario_.ignoresFailures || isIgnored) << what << " was not told";
    } catch (const Failure& failure) {
      EXPECT_NE(Fault::Kind::EndsProcess, fault.kind) << what;
      EXPECT_FALSE(scenario_.ignoresFailures) << what << " was told: " << failure.what();
      EXPECT_TRUE(!isIgnored || fault.kind == Fault::Kind::FailsForGood) << what;
    } catch (const ProcessEnded&) {
      EXPECT_EQ(Fault::Kind::EndsProcess, fault.kind) << what;
    }
    EXPECT_EQ(0u, files.operationsAfterEnd()) << what;
    Judge(files, what);
  }

  void Judge(const MemoryFiles& files, const std::string& what) {
    for (Unflushed unflushed : kEveryUnflushed) {
      Disk disk = files.AfterPowerCut(unflushed);
      ++totals.cases;
      if (!scenario_.leftover && !scenario_.appends) {
        FinishAtStartUp(disk, what);
      }
      if (!Survives(disk)) {
        ++totals.lost;
        ADD_FAILURE() << "lost by " << what << ", unflushed writes " << static_cast<int>(unflushed)
                      << "\nmenu " << testing::PrintToString(disk[kMenuPath]) << "\nscratch "
                      << testing::PrintToString(disk[scenario_.scratchFile]);
      }
    }
  }

  // Start-up finishes the change where the menu file was cut, and finds nothing
  // to do where it was not.
  void FinishAtStartUp(const Disk& disk, const std::string& what) {
    MemoryFiles files;
    files.SetBlockSize(scenario_.blockSize);
    for (const auto& [path, bytes] : disk) {
      files.Put(path, bytes);
    }
    const std::string menu = files.Get(kMenuPath).value_or("");
    const bool isWhole = menu == scenario_.oldMenu || menu == newMenu_;
    const auto change = FindInterruptedChange(files, kMenuPath, kPicture);
    EXPECT_EQ(!isWhole, change.has_value())
        << what << "\nmenu " << testing::PrintToString(menu) << "\nscratch "
        << testing::PrintToString(files.Get(scenario_.scratchFile));
    if (change) {
      FinishInterruptedChange(files, kMenuPath, *change);
      EXPECT_EQ(newMenu_, files.Get(kMenuPath)) << what;
      EXPECT_EQ(std::nullopt, files.Get(scenario_.scratchFile)) << what;
      ++totals.finished;
    }
  }

  bool Survives(Disk& disk) const {
    const std::string& menu = disk[kMenuPath];
    if (scenario_.appends) {
      return menu.substr(0, scenario_.oldMenu.size()) == scenario_.oldMenu;
    }
    const std::string& scratch = disk[scenario_.scratchFile];
    for (const std::string& complete : {scenario_.oldMenu, newMenu_, newMenuWithTail_}) {
      if (menu == complete) {
        return true;
      }
    }
    if (scenario_.scratchHoldsOldMenu) {
      return scratch.substr(0, scenario_.oldMenu.size()) == scenario_.oldMenu;
    }
    return scratch == newMenu_ || scratch == newMenuWithTail_;
  }

  const Scenario& scenario_;
  std::string newMenu_;
  std::string newMenuWithTail_;
  std::vector<std::string> log_;
};

// The first holds any menu of these tests, the second the least part of one.
constexpr std::size_t kBlockSizes[] = {1000, 60};

// The scenario as it is, and with scratch files in the way.
void InjectWithLeftovers(Scenario scenario) {
  for (std::size_t blockSize : kBlockSizes) {
    scenario.blockSize = blockSize;
    for (bool canBeDeleted : {true, false}) {
      scenario.scratchCanBeDeleted = canBeDeleted;
      for (std::size_t size : {0u, 20u, 700u}) {
        scenario.leftover.reset();
        if (size > 0) {
          scenario.leftover = std::string(size, 'L');
        }
        Faults faults(scenario);
        faults.InjectAll();
        faults.FillDisk();
      }
    }
  }
}

class EveryRewrite : public testing::TestWithParam<Kind> {};

TEST_P(EveryRewrite, LosesNothing) {
  const Operation operation = MakeOperation(GetParam(), 1);
  for (const std::string& menu : {UserMenu(4), DirectoryMenu()}) {
    const bool pointer = menu == DirectoryMenu();
    const bool ofPointer =
        GetParam() == Kind::SaveDirectory || GetParam() == Kind::SwitchToUserDefined;
    if (pointer != ofPointer) {
      continue;
    }
    Scenario scenario;
    scenario.name = NameOf(GetParam());
    scenario.oldMenu = menu;
    scenario.scratchFile = ScratchFileOf(GetParam());
    scenario.ignoresFailures = IgnoresFailures(GetParam());
    scenario.run = [&operation](FileSystem& files) {
      RewriteMenuFile(files, kMenuPath, ChangeFor(operation));
    };
    InjectWithLeftovers(scenario);
  }
}

INSTANTIATE_TEST_SUITE_P(Of, EveryRewrite,
                         testing::Values(Kind::MoveUp, Kind::MoveDown, Kind::Delete,
                                         Kind::Separator, Kind::Edit, Kind::ChangeIcon,
                                         Kind::SaveAppearance, Kind::SaveDirectory,
                                         Kind::SwitchToDirectory, Kind::SwitchToUserDefined),
                         [](const auto& info) { return NameOf(info.param); });

TEST(Upgrade, LosesNothing) {
  Scenario scenario;
  scenario.name = "Upgrade";
  scenario.oldMenu = PreviousVersionMenu(4);
  scenario.scratchFile = "temporaryfile";
  // A failed upgrade is not told, it just did not happen, unless the old bytes
  // are in the scratch file only.
  scenario.ignoresFailures = true;
  scenario.scratchHoldsOldMenu = true;
  scenario.run = [&scenario](FileSystem& files) {
    try {
      UpgradeMenuFile(files, kMenuPath, kPicture);
    } catch (const Failure&) {
      const auto& memory = static_cast<MemoryFiles&>(files);
      EXPECT_EQ(scenario.oldMenu,
                memory.Get("temporaryfile").value_or("").substr(0, scenario.oldMenu.size()));
    }
  };
  InjectWithLeftovers(scenario);
}

TEST(Append, LosesNothing) {
  for (int lines : {1, 2, 3}) {
    Scenario scenario;
    scenario.name = "Append";
    scenario.oldMenu = UserMenu(3);
    scenario.appends = true;
    scenario.run = [lines](FileSystem& files) {
      MenuAppender appender(files, kMenuPath);
      for (int line = 0; line < lines; ++line) {
        appender.Append(MenuItemRecord{Value::Quoted("New"), Value::Quoted("C:\\new"), Value(),
                                       Value(), Value(), Value::Bare("0")});
      }
    };
    Faults faults(scenario);
    faults.InjectAll();
    faults.FillDisk();
  }
}

// What was on the disk before must not be all that is left of a change that
// was reported as made.
TEST(Append, WhatIsNotToldToHaveFailedIsOnTheDisk) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(3));
  MenuAppender appender(files, kMenuPath);
  appender.Append(MenuItemRecord{});
  for (Unflushed unflushed : kEveryUnflushed) {
    EXPECT_EQ(UserMenu(3) + std::string(kSeparatorLine), files.AfterPowerCut(unflushed)[kMenuPath]);
  }
}

TEST(AnyRewrite, WhatIsNotToldToHaveFailedIsOnTheDisk) {
  for (int kind = 0; kind < kOperationKinds; ++kind) {
    const Operation operation = MakeOperation(static_cast<Kind>(kind), 1);
    MemoryFiles files;
    files.Put(kMenuPath, UserMenu(3));
    RewriteMenuFile(files, kMenuPath, ChangeFor(operation));
    for (Unflushed unflushed : kEveryUnflushed) {
      EXPECT_EQ((Disk{{kMenuPath, files.Get(kMenuPath).value()}}), files.AfterPowerCut(unflushed));
    }
  }
}

class PrintTotals final : public testing::Environment {
 public:
  void TearDown() override {
    if (totals.cases > 0) {
      std::cout << "Counted: " << totals.cases << " faults in changes\n"
                << "Counted: " << totals.lost << " changes that lost data by a fault\n"
                << "Counted: " << totals.finished << " changes that the next start finished\n";
    }
  }
};

[[maybe_unused]] const testing::Environment* const printTotals =
    testing::AddGlobalTestEnvironment(new PrintTotals);

}  // namespace
}  // namespace menufile
