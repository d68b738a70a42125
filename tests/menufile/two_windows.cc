#include "tests/menufile/two_windows.h"

#include <utility>

#include "menufile/failure.h"
#include "menufile/scratch_file.h"
#include "menufile/upgrade.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/plain_journal.h"

namespace menufile {
namespace {

constexpr std::string_view kPicture = "icon < of the program\r\n";
constexpr std::size_t kSector = 16;

// A failed conversion reports nothing if the file stays unchanged.
const TwoWindows::Step kConversion = {"conversion", [](MenuFile& menu) {
                                        UpgradeMenuFile(menu, kPicture);
                                        return ChangeResult::Made;
                                      }};

// Says Yes to the conversion at most once.
class Converter final : public MenuView {
 public:
  Converter(bool converts, std::function<void()> beforeYes)
      : converts_(converts), beforeYes_(std::move(beforeYes)) {}

  bool ConfirmUpgrade() override {
    if (!std::exchange(converts_, false)) {
      return false;
    }
    beforeYes_();
    return true;
  }
  void ShowAppearance(const AppearanceRecord&) override {}
  void AppendItem(std::size_t, const MenuItemRecord&) override {}
  void ShowDirectoryPointer(const DirectoryPointerRecord&) override {}

 private:
  bool converts_;
  std::function<void()> beforeYes_;
};

std::string TextOf(const Fault& fault) {
  static constexpr const char* kKinds[] = {"fails once", "fails for good", "ends early",
                                           "ends the process"};
  static constexpr const char* kDone[] = {"nothing", "half", "all"};
  if (fault.operation == 0) {
    return "";
  }
  return "; operation " + std::to_string(fault.operation) + ' ' +
         kKinds[static_cast<int>(fault.kind)] + " with " + kDone[static_cast<int>(fault.done)] +
         " of it done";
}

std::string Escaped(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    text += c == '\r' ? "\\r" : c == '\n' ? "\\n" : c == '\0' ? "\\0" : std::string(1, c);
  }
  return text;
}

// The bytes that a change finds in the scratch file after the journal was put aside.
std::string WithoutJournal(const std::string& bytes) {
  const std::optional<PlainJournal> journal = ReadPlainly(bytes);
  return journal ? journal->description : bytes;
}

}  // namespace

TwoWindows::TwoWindows(const MemoryFiles::Disk& disk, Folder folder) : folder_(std::move(folder)) {
  files_ = Copy(disk);
  const char* const paths[] = {kMenuPath, kSecondMenu};
  for (std::size_t i = 0; i < menus_.size(); ++i) {
    menus_[i].path = paths[i];
    menus_[i].right = {disk.at(paths[i])};
  }
}

void TwoWindows::SecondMenuWasCut(const std::string& finished) {
  menus_[1].right = {finished};
  menus_[1].wasCut = true;
}

void TwoWindows::Do(Window window, const Step& step, const Fault& fault) {
  story_ += "\n  window " + std::to_string(window) + ' ' + step.key + TextOf(fault);
  Menu& menu = MenuOf(window);
  const std::string before = Bytes(menu);
  std::set<std::string> outcomes = Outcomes(menu, before, step);
  if (menu.weakPrefix) {  // the half line is taken back first
    outcomes.merge(Outcomes(menu, *menu.weakPrefix, step));
  }
  const bool mayHaveNoJournal = step.appends && fault.kind == Fault::Kind::FailsForGood;
  if (mayHaveNoJournal && !menu.weakPrefix && menu.right.count(before)) {
    menu.weakPrefix = before;
  }
  ChangeResult result = ChangeResult::Failed;
  GoOn(window);
  Run(window, fault, [&] { result = step.change(*windows_[window]); });
  if (result == ChangeResult::Made) {
    Made(window, before, outcomes, fault);
  } else if (result == ChangeResult::EarlierFinished) {
    EarlierFinished(menu, before);
  } else {
    if (!ended_ && !windows_[window]->HasUnfinished() && !menu.weakPrefix && !menu.wasCut &&
        Bytes(menu) != before) {
      Complain("a failure was reported, and the menu has changed");
    }
    MayBeMade(window, before, outcomes, fault);
  }
  Judge();
}

void TwoWindows::Start(Window window, bool yes, bool converts, const Fault& fault) {
  story_ += "\n  window " + std::to_string(window) + " starts, " + (yes ? "Yes" : "No") +
            (converts ? ", converts" : "") + TextOf(fault);
  Menu& menu = MenuOf(window);
  if (menu.knownTo == window) {
    menu.knownTo.reset();
  }
  windows_[window] = std::make_unique<MenuFile>(*files_, menu.path);
  menu.saidNo.erase(window);
  std::optional<std::string> toConvert;
  std::set<std::string> outcomes;
  Run(window, fault, [&] {
    MenuFile& opened = *windows_[window];
    const std::string before = Bytes(menu);
    const bool asked = opened.WasCutShort();
    if (asked && !menu.wasCut && !menu.mayComeBack) {
      Complain("a start asked where nothing was cut short");
    }
    if (asked && yes) {
      menu.right.insert(menu.aside.begin(), menu.aside.end());
      opened.AnswerYes();
      SettleOn(menu, Bytes(menu));
    } else if (asked) {
      opened.AnswerNo();
      if (!menu.right.count(before)) {
        menu.kept.push_back(menu.right);
      }
      menu.right.insert(before);
      menu.saidNo.insert(window);
      menu.knownTo = window;
    }
    Converter view(converts, [&] {
      GoOn(window);
      toConvert = Bytes(menu);
      outcomes = Outcomes(menu, *toConvert, kConversion);
    });
    LoadMenuFile(opened, kPicture, view);
  });
  if (toConvert) {
    const std::string now = Bytes(menu);
    if (!ended_ && !menu.right.count(*toConvert) && menu.right.count(now)) {
      SettleOn(menu, now);  // an earlier change was finished instead
    } else if (!ended_ && !windows_[window]->HasUnfinished() && outcomes.count(now)) {
      Made(window, *toConvert, outcomes, fault);
    } else {
      MayBeMade(window, *toConvert, outcomes, fault);
    }
  }
  Judge();
}

void TwoWindows::Close(Window window, const Fault& fault) {
  if (windows_[window]->HasUnfinished()) {
    story_ += "\n  window " + std::to_string(window) + " finishes when closed" + TextOf(fault);
    GoOn(window);
    Run(window, fault, [&] { windows_[window]->FinishEarlier(); });
  }
  windows_[window].reset();
  Judge();
}

void TwoWindows::ReadEntry(Window window, const Fault& fault) {
  story_ += "\n  window " + std::to_string(window) + " reads an entry" + TextOf(fault);
  Menu& menu = MenuOf(window);
  const std::string before = Bytes(menu);
  GoOn(window);
  Run(window, fault, [&] {
    if (!ReadMenuEntry(*windows_[window], 0)) {
      EarlierFinished(menu, before);
    }
  });
  Judge();
}

void TwoWindows::CutPower(PowerCut cut) {
  story_ += "\n  power cut " + std::to_string(cut);
  for (auto& window : windows_) {
    window.reset();
  }
  files_ = Copy(files_->AfterPowerCut(cut));
  for (Menu& menu : menus_) {
    menu.cameBack = menu.mayComeBack;
    AllowHalfLine(menu);
  }
  Judge();
}

std::string TwoWindows::Bytes(const Menu& menu) const {
  return files_->Get(menu.path).value_or("");
}

std::unique_ptr<MemoryFiles> TwoWindows::Copy(const MemoryFiles::Disk& disk) const {
  auto files = std::make_unique<MemoryFiles>(disk);
  files->SetBlockSize(folder_.blockSize);
  for (const std::string& path : folder_.cannotBeRemoved) {
    files->ForbidRemove(path);
  }
  return files;
}

std::set<std::string> TwoWindows::Outcomes(const Menu& menu, const std::string& bytes,
                                           const Step& step) {
  const MemoryFiles::Disk clean = {{menu.path, bytes}};
  MemoryFiles::Disk withLeftovers = clean;
  for (const char* name : kScratchFiles) {
    if (const auto bytes = files_->Get(name)) {
      withLeftovers[std::string("C:\\current\\") + name] = WithoutJournal(*bytes);
    }
  }
  static std::map<std::pair<std::string, MemoryFiles::Disk>, std::optional<std::string>> known;
  std::set<std::string> outcomes;
  for (const MemoryFiles::Disk& disk : {clean, withLeftovers}) {
    const auto [found, isNew] = known.try_emplace({step.key, disk});
    if (isNew) {
      const std::unique_ptr<MemoryFiles> files = Copy(disk);
      for (const char* name : kScratchFiles) {
        files->ForbidRemove(name);  // as by the folder, or by a fault
      }
      MenuFile opened(*files, menu.path);
      try {
        if (step.change(opened) == ChangeResult::Made) {
          found->second = files->Get(menu.path);
        }
      } catch (const Failure&) {
      }
    }
    if (found->second) {
      outcomes.insert(*found->second);
    }
  }
  return outcomes;
}

bool TwoWindows::Run(Window window, const Fault& fault, const std::function<void()>& run) {
  files_->SetFault(fault);
  ended_ = false;
  bool isDone = false;
  try {
    run();
    isDone = true;
  } catch (const Failure&) {
  } catch (const ProcessEnded&) {
    ended_ = true;
    windows_[window].reset();
  }
  if (files_->operationsAfterEnd() > 0) {
    Complain("a process went on after its end");
  }
  return isDone;
}

// An earlier change was finished: the menu file is complete.
void TwoWindows::SettleOn(Menu& menu, const std::string& bytes) {
  bool isRight = menu.right.count(bytes) + menu.aside.count(bytes) > 0 ||
                 (menu.mayComeBack && menu.made.count(bytes) > 0);
  std::erase_if(menu.kept, [&](const std::set<std::string>& states) {
    isRight = isRight || states.count(bytes) > 0;
    return states.count(bytes) > 0;
  });
  if (!isRight) {
    Complain("what was finished is none of the right states of " + menu.path + ": " +
             Escaped(bytes));
  }
  menu.right = {bytes};
  menu.aside.clear();
  menu.saidNo.clear();
  menu.declined = false;
  menu.wasCut = !menu.kept.empty();
}

void TwoWindows::EarlierFinished(Menu& menu, const std::string& before) {
  // The next start still asks about states that were put aside before.
  std::set<std::string> aside = menu.aside;
  if (menu.wasCut && Bytes(menu) == before) {  // another window had finished it, or gone on
    aside.insert(menu.right.begin(), menu.right.end());
  }
  SettleOn(menu, Bytes(menu));
  menu.wasCut = menu.wasCut || !aside.empty();
  menu.aside = std::move(aside);
}

void TwoWindows::Made(Window window, const std::string& before,
                      const std::set<std::string>& outcomes, const Fault& fault) {
  Menu& menu = MenuOf(window);
  const std::string now = Bytes(menu);
  menu.made.insert(now);
  menu.mayComeBack = fault.operation != 0 || menu.cameBack;
  if (!outcomes.count(now)) {
    Complain("the change was told to be made, and left " + Escaped(now));
  }
  if (!menu.right.count(before)) {
    Complain("a change was made to a menu that was cut short: " + Escaped(before));
  }
  std::erase_if(menu.kept, [&](const auto& states) { return states.count(before) > 0; });
  if (menu.wasCut && menu.knownTo != window) {
    menu.aside.insert(menu.right.begin(), menu.right.end());
  }
  menu.right = {now};
  menu.weakPrefix.reset();
  menu.saidNo.clear();
  menu.declined = false;
  menu.wasCut = !menu.kept.empty() || !menu.aside.empty();
}

void TwoWindows::MayBeMade(Window window, const std::string& before,
                           const std::set<std::string>& outcomes, const Fault& fault) {
  Menu& menu = MenuOf(window);
  if (fault.operation == 0) {
    return;
  }
  const bool isFirst = !menu.wasCut || menu.knownTo == window;
  menu.knownTo = ended_ || !isFirst ? std::nullopt : std::optional(window);
  menu.wasCut = true;
  if (menu.right.count(before)) {
    menu.right.insert(outcomes.begin(), outcomes.end());
  }
  AllowHalfLine(menu);
}

void TwoWindows::AllowHalfLine(Menu& menu) {
  const std::string now = Bytes(menu);
  if (menu.weakPrefix &&
      now.starts_with(menu.weakPrefix->substr(0, menu.weakPrefix->size() / kSector * kSector))) {
    menu.right.insert(now);
  }
}

// A window whose user said No makes the journal's file "-declined-" when it goes on.
void TwoWindows::GoOn(Window window) {
  Menu& menu = MenuOf(window);
  menu.declined = menu.declined || menu.saidNo.count(window) > 0;
}

void TwoWindows::Judge() {
  const MemoryFiles::Disk disk = files_->Everything();
  for (const Menu& menu : menus_) {
    JudgeMenu(menu, disk);
  }
}

void TwoWindows::JudgeMenu(const Menu& menu, const MemoryFiles::Disk& disk) {
  const std::string& bytes = disk.at(menu.path);
  std::set<std::string> found = {bytes};
  std::set<std::string> foundForStart = {bytes};
  bool hasJournal = false;
  for (const auto& [path, content] : disk) {
    const std::optional<PlainJournal> journal = ReadPlainly(content);
    if (journal && journal->menu == menu.path) {
      hasJournal = true;
      found.insert(journal->FinishedFrom(bytes));
      if (path.find("-declined-") == std::string::npos) {
        foundForStart.insert(journal->FinishedFrom(bytes));
      }
    }
  }
  const auto hasOneOf = [](const std::set<std::string>& there, const std::set<std::string>& right) {
    for (const std::string& state : right) {
      if (there.count(state)) {
        return true;
      }
    }
    return false;
  };
  bool isThere = hasOneOf(menu.declined ? found : foundForStart, menu.right);
  for (const std::set<std::string>& states : menu.kept) {
    isThere = isThere && hasOneOf(found, states);
  }
  if (!isThere) {
    Complain("no right state of " + menu.path + " is left");
  }
  if (!hasJournal && menu.right.count(bytes)) {
    return;
  }
  const std::unique_ptr<MemoryFiles> files = Copy(disk);
  MenuFile start(*files, menu.path);
  if (!start.WasCutShort()) {
    if (!menu.right.count(bytes) && !menu.declined) {
      Complain("a start offers nothing for " + menu.path + ", which holds " + Escaped(bytes));
    }
    return;
  }
  if (!menu.wasCut && !menu.mayComeBack) {
    Complain("a start would ask for " + menu.path + ", where nothing was cut short");
  }
  ++offered_;
  start.AnswerYes();
  std::set<std::string> right = menu.right;
  right.insert(menu.aside.begin(), menu.aside.end());
  for (const std::set<std::string>& states : menu.kept) {
    right.insert(states.begin(), states.end());
  }
  if (menu.mayComeBack) {
    right.insert(menu.made.begin(), menu.made.end());
  }
  if (!right.count(files->Get(menu.path).value_or(""))) {
    Complain("Yes would make of " + menu.path + ": " + Escaped(files->Get(menu.path).value_or("")));
  }
  if (MenuFile(*files, menu.path).WasCutShort()) {
    Complain("a start would ask again for " + menu.path);
  }
}

void TwoWindows::Complain(const std::string& what) {
  if (complaint_.empty()) {
    complaint_ = what + ", after" + story_;
    for (const auto& [path, content] : files_->Everything()) {
      complaint_ += "\n" + path + ": " + Escaped(content);
    }
  }
}

}  // namespace menufile
