// Kills the finished program while it changes one of two menus in a folder. Each time,
// the old or the new state of both must be complete, in the menu file or in a scratch
// file. The files that a kill leaves stay in the folder.
#include <array>
#include <cstdio>
#include <filesystem>
#include <map>

#include "tests/menufile/plain_journal.h"
#include "tests/windows/icon_files.h"
#include "tests/windows/outside/changes.h"
#include "tests/windows/outside/host.h"
#include "tests/windows/outside/options.h"
#include "tests/windows/outside/outside_test_base.h"

using outside::ChangeKind;
using outside::Changes;
using outside::PreparedChange;
using outside::Program;
using namespace testing_menus;

namespace {

constexpr std::array kListChanges = {
    ChangeKind::MoveUp,     ChangeKind::MoveDown,   ChangeKind::Delete,
    ChangeKind::Separator,  ChangeKind::Add,        ChangeKind::Drop,
    ChangeKind::Edit,       ChangeKind::ChangeIcon, ChangeKind::SaveAppearance,
    ChangeKind::Edit,       ChangeKind::ChangeIcon, ChangeKind::SaveAppearance,
    ChangeKind::ToDirectory};
constexpr std::array kDirectoryChanges = {ChangeKind::SaveDirectory, ChangeKind::SaveDirectory,
                                          ChangeKind::ToList};

// A menu large enough that writing it takes some time. It has few rows, so that the
// program starts quickly.
constexpr std::size_t kPictureSize = 6 << 20;
constexpr std::size_t kArgumentsSize = 400 << 10;
constexpr int kLongEntries = 15;

// The most kills in addition, until each of the counted cases has happened.
constexpr int kMostMore = 60;

// Actions that are interrupted besides the changes.
constexpr const char* kUpgrade = "upgrade";
constexpr const char* kRestore = "finish after a kill";

struct Counts {
  int kills = 0;
  int left = 0;   // kills that left a scratch file
  int cut = 0;    // kills that left neither the old nor the new menu file
  int asked = 0;  // starts that asked whether to finish the change
  int lost = 0;
};

}  // namespace

class KillTest : public OutsideTest {
 protected:
  KillTest() : random_(outside::TestOptions().seed) {
    WriteBytes(library_, testing_icons::Library(testing_icons::Colours(12)));
  }

  struct Subject {
    std::string path;
    KnownMenu menu;
    // The menu after the last change, if that was interrupted.
    KnownMenu after;
    // The number of changes that this menu is still good for.
    int left = 0;

    std::string Bytes() const { return BytesOf(path); }
  };

  bool Chance(std::uint64_t oneIn) { return random_() % oneIn == 0; }

  KnownMenu NewMenu() {
    KnownMenu menu;
    for (std::size_t i = 0; i < kPictureSize; ++i) {
      menu.picture += static_cast<char>(random_());
    }
    if (Chance(5)) {
      menu.isDirectory = true;
      menu.directory = "\"C:\\windows\\\",\"*.exe\",1,0,1\r\n";
      menu.picture += menu.picture;
      return menu;
    }
    for (int i = 0; i < kLongEntries; ++i) {
      menu.entries.push_back({"Long", "C:\\", std::string(kArgumentsSize, 'x'), "", "", "0"});
      menu.entries.push_back(i % 3 == 0   ? Entry{"Icon", library_, "", "", "", "0"}
                             : i % 3 == 1 ? Entry{"News", "news:x", "", "C:\\", "C:\\no.ico", "3"}
                                          : testing_menus::Separator());
    }
    return menu;
  }

  void StartOn(const Subject& subject) {
    program_ = std::make_unique<Program>(subject.path, folder());
    first_ = program_->WaitForFirst();
  }

  // The best time for a kill, in milliseconds after the press that starts the writing.
  double& AimAt(const std::string& what) {
    return aim_.try_emplace(what + (byHost_ ? ", by the host" : ""), 50.0).first->second;
  }

  // Kills the program while it does what `begin` starts. `begin` calls its argument right
  // before. Half of the kills are by Windows, which lets the present call end, and half by
  // the host, which waits for nothing.
  using Begin = std::function<void(const std::function<void()>& before)>;
  void KillDuring(const std::string& what, const Subject& subject, const Begin& begin,
                  bool onlyByHost = false) {
    byHost_ = onlyByHost || Chance(2);
    const double aim = AimAt(what);
    const double delay =
        std::uniform_real_distribution<>(Chance(4) ? 0 : 0.7 * aim, 1.3 * aim)(random_);
    const int process = outside::HostProcess(subject.path);
    ASSERT_NE(process, 0);
    if (byHost_) {
      char command[100] = "";
      std::snprintf(command, sizeof command, "Z:\\bin\\bash -c \"sleep %.4f; kill -9 %d\"",
                    delay / 1000, process);
      // The command takes time to start, so some of these kills come before the change.
      const auto start = static_cast<DWORD>(random_() % 30);
      bool isStarted = false;
      begin([&] {
        isStarted = outside::StartOnHost(command, folder());
        Sleep(start);
      });
      ASSERT_TRUE(isStarted);
      ASSERT_TRUE(program_->WaitForExit().has_value());
    } else {
      begin([] {});
      LARGE_INTEGER frequency{};
      LARGE_INTEGER from{};
      QueryPerformanceFrequency(&frequency);
      QueryPerformanceCounter(&from);
      Sleep(static_cast<DWORD>(delay));
      // Wait for the rest of the millisecond.
      for (LARGE_INTEGER now = from; static_cast<double>(now.QuadPart - from.QuadPart) * 1000 <
                                     delay * static_cast<double>(frequency.QuadPart);
           QueryPerformanceCounter(&now)) {
      }
      program_->Kill();
    }
    program_.reset();
    // Windows reports the end of a process before its last write has ended.
    ASSERT_TRUE(outside::WaitUntil([&] { return !outside::IsHostProcessAtWork(process); }));
    ++counts_.kills;
    ++byKind_[what].kills;
  }

  // Expects the old or the new menu in the menu file, or the journal of the new one in a
  // scratch file.
  bool IsWhole(const Subject& subject, const std::string& before, const std::string& after) const {
    const std::string menu = subject.Bytes();
    if (menu == before || menu == after) {
      return true;
    }
    for (const std::string& name : ScratchFiles()) {
      const auto journal = menufile::ReadPlainly(BytesOf(PathOf(name)));
      if (journal && journal->FinishedFrom(menu) == after) {
        return true;
      }
    }
    return false;
  }

  // The files whose names begin like a scratch file's: a journal may have been put aside.
  std::vector<std::string> ScratchFiles() const {
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(folder())) {
      const std::string name = file.path().filename().string();
      if (name.starts_with("temporaryfile") || name.starts_with("zoltempfileoktodelete")) {
        names.push_back(name);
      }
    }
    return names;
  }

  void ExpectWhole(const std::string& what, const Subject& subject, const std::string& before,
                   const std::string& after) {
    const std::string menu = subject.Bytes();
    const bool isCut = menu != before && menu != after;
    counts_.cut += isCut;
    byKind_[what].cut += isCut;
    const bool hasScratch = !ScratchFiles().empty();
    counts_.left += hasScratch;
    byKind_[what].left += hasScratch;
    const Subject& other = subjects_[&subject == &subjects_[0] ? 1 : 0];
    for (const bool isWhole : {IsWhole(subject, before, after),
                               IsWhole(other, other.menu.Bytes(), other.after.Bytes())}) {
      if (!isWhole) {
        ++counts_.lost;
        ADD_FAILURE() << "after kill " << counts_.kills << ", during " << what << " in "
                      << subject.path << ", no whole menu is there; the menu file has "
                      << menu.size() << " bytes, of " << before.size() << " before and "
                      << after.size() << " after the change";
      }
    }
    // Move the time of the next kills towards the moment at which the menu file is neither.
    double& aim = AimAt(what);
    aim *= menu == after ? 0.93 : menu == before ? 1.07 : 1;
    aim = std::clamp(aim, 2.0, 2000.0);
  }

  bool IsQuestion(const std::string& sentence) const {
    return first_ != nullptr && Program::IsDialog(first_) && outside::Text(first_) == "Query?" &&
           outside::Text(first_, outside::kMessageTextId).starts_with(sentence);
  }

  // Starts the program. It asks, or the menu file is complete. In the end the menu file has
  // the old menu or the new one.
  void StartAgain(Subject& subject) {
    const std::string before = subject.menu.Bytes();
    const std::string after = subject.after.Bytes();
    StartOn(subject);
    while (IsQuestion("The last change to the menu file was interrupted.")) {
      ++counts_.asked;
      const Begin finish = [this](const auto& isAboutTo) {
        isAboutTo();
        outside::Click(first_, IDYES);
      };
      if (Chance(4)) {
        KillDuring(kRestore, subject, finish);
        ExpectWhole(kRestore, subject, after, after);
        StartOn(subject);
        continue;
      }
      const HWND question = first_;
      finish([] {});
      outside::WaitUntil([&] { return !IsWindow(question); });
      first_ = program_->WaitForFirst();
      EXPECT_EQ(Difference(subject.Bytes(), after), "") << "the change was not finished";
    }
    EXPECT_TRUE(first_ != nullptr && !Program::IsDialog(first_))
        << "no main window, but \"" << outside::Text(first_, outside::kMessageTextId) << '"';
    const std::string menu = subject.Bytes();
    EXPECT_TRUE(menu == before || menu == after) << "the menu is not whole";
    if (menu == after) {
      subject.menu = subject.after;
    } else {
      subject.after = subject.menu;
    }
  }

  void KillDuringUpgrade(Subject& subject) {
    const std::string old = subject.menu.PreviousVersionBytes();
    WriteBytes(subject.path, old);
    StartOn(subject);
    ASSERT_TRUE(IsQuestion("The menu file is invalid or a previous version."));
    KillDuring(kUpgrade, subject, [this](const auto& before) {
      before();
      outside::Click(first_, IDYES);
    });
    ExpectWhole(kUpgrade, subject, old, subject.menu.Bytes());
    // After a No without a change, the next start asks again.
    if (subject.Bytes() == old) {
      WriteBytes(subject.path, subject.menu.Bytes());
    }
  }

  // Replaces a menu that has been changed often enough by a new one.
  void Renew(Subject& subject) {
    subject.left = 8;
    subject.menu = NewMenu();
    const bool isOld = !subject.menu.isDirectory && Chance(2);
    if (isOld) {
      subject.menu.picture = defaultPicture_;
    }
    subject.after = subject.menu;
    WriteBytes(subject.path, subject.menu.Bytes());
    if (isOld) {
      KillDuringUpgrade(subject);
    }
  }

  ChangeKind RandomChange(const Changes& changes, const KnownMenu& menu) {
    while (true) {
      const ChangeKind kind = menu.isDirectory
                                  ? kDirectoryChanges[random_() % kDirectoryChanges.size()]
                                  : kListChanges[random_() % kListChanges.size()];
      // The icon change overwrites an old scratch file from its front, and the rest of a
      // longer one becomes a part of the menu.
      const bool wouldTakeOver =
          kind == ChangeKind::ChangeIcon && Exists(PathOf("zoltempfileoktodelete"));
      if (!wouldTakeOver && changes.IsPossible(kind, menu)) {
        return kind;
      }
    }
  }

  // Changes a menu some times, and then once more, during which the program is killed.
  void ChangeAndKill(Subject& subject) {
    Changes changes(*program_, first_, random_, library_);
    for (auto whole = random_() % 3; whole > 0; --whole) {
      const ChangeKind kind = RandomChange(changes, subject.menu);
      const std::optional<PreparedChange> change = changes.Prepare(kind, subject.menu);
      ASSERT_TRUE(change.has_value()) << NameOf(kind);
      ASSERT_TRUE(change->Make()) << NameOf(kind);
      subject.menu = subject.after = change->after;
      ASSERT_EQ(Difference(subject.Bytes(), subject.menu.Bytes()), "") << NameOf(kind);
    }
    const ChangeKind kind = RandomChange(changes, subject.menu);
    const std::optional<PreparedChange> change = changes.Prepare(kind, subject.menu);
    ASSERT_TRUE(change.has_value()) << NameOf(kind);
    subject.after = change->after;
    KillDuring(
        NameOf(kind), subject, [&](const auto& before) { change->Begin(before); },
        change->drag != nullptr);
    ExpectWhole(NameOf(kind), subject, subject.menu.Bytes(), subject.after.Bytes());
  }

  bool HasSeenAll() const { return counts_.left > 0 && counts_.cut > 0 && counts_.asked > 0; }

  void PrintCounts() {
    for (const auto& [what, counts] : byKind_) {
      std::printf("%-20s %4d kills, %4d left a scratch file, %4d menu files cut\n", what.c_str(),
                  counts.kills, counts.left, counts.cut);
    }
    std::printf(
        "Counted: %d kills, %d left a scratch file, %d menu files cut, %d finished by the next "
        "start, %d lost (--seed=%llu)\n",
        counts_.kills, counts_.left, counts_.cut, counts_.asked, counts_.lost,
        static_cast<unsigned long long>(outside::TestOptions().seed));
    std::fflush(stdout);
  }

  std::mt19937_64 random_;
  const std::string library_ = PathOf("twelve.dll");
  const std::string defaultPicture_ =
      BytesOf(outside::BuildFolder() + "\\..\\resources\\default_menu.ico");
  std::array<Subject, 2> subjects_{
      {{PathOf("one.menu"), {}, {}}, {PathOf("another.menu"), {}, {}}}};
  std::unique_ptr<Program> program_;
  HWND first_ = nullptr;
  bool byHost_ = false;  // true if the host made the last kill
  std::map<std::string, double> aim_;
  Counts counts_;
  std::map<std::string, Counts> byKind_;
};

TEST_F(KillTest, BothMenusAreWholeAfterEachKill) {
  ASSERT_EQ(defaultPicture_.size(), 2238U);
  std::printf("--seed=%llu\n", static_cast<unsigned long long>(outside::TestOptions().seed));
  for (Subject& subject : subjects_) {
    WriteBytes(subject.path, subject.menu.Bytes());
  }
  const int kills = outside::TestOptions().kills;
  // Without a kill that interrupts a write, the test would prove nothing.
  while ((counts_.kills < kills || (!HasSeenAll() && counts_.kills < kills + kMostMore)) &&
         !HasFailure()) {
    Subject& subject = subjects_[random_() % subjects_.size()];
    StartAgain(subject);
    if (subject.left-- == 0 ||
        (!subject.menu.isDirectory && subject.menu.entries.size() < kLongEntries)) {
      program_.reset();
      Renew(subject);
      if (!HasFailure()) {
        StartAgain(subject);
      }
    }
    if (!HasFailure()) {
      ChangeAndKill(subject);
    }
  }
  for (Subject& subject : subjects_) {
    StartAgain(subject);
    program_.reset();
  }
  PrintCounts();
  EXPECT_EQ(counts_.lost, 0);
  EXPECT_TRUE(HasSeenAll());
}
