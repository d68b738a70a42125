// The finished program is killed while it changes one of two menus in a folder. Each
// time both must be there whole: as they were or as they were to be, in the menu file
// or in a scratch file. What a kill leaves in the folder stays there.
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>

#include "tests/windows/icon_files.h"
#include "tests/windows/outside/changes.h"
#include "tests/windows/outside/host.h"
#include "tests/windows/outside/options.h"
#include "tests/windows/outside/outside_test_base.h"

using outside::ChangeKind;
using outside::Changes;
using outside::PreparedChange;
using outside::Program;
using testing_menus::Difference;
using testing_menus::Entry;
using testing_menus::KnownMenu;

namespace {

constexpr std::array kListChanges = {
    ChangeKind::MoveUp,     ChangeKind::MoveDown,   ChangeKind::Delete,
    ChangeKind::Separator,  ChangeKind::Add,        ChangeKind::Drop,
    ChangeKind::Edit,       ChangeKind::ChangeIcon, ChangeKind::SaveAppearance,
    ChangeKind::Edit,       ChangeKind::ChangeIcon, ChangeKind::SaveAppearance,
    ChangeKind::ToDirectory};
constexpr std::array kDirectoryChanges = {ChangeKind::SaveDirectory, ChangeKind::SaveDirectory,
                                          ChangeKind::ToList};

// Large enough that writing it takes some time, and with few rows, so that the
// program starts quickly all the same.
constexpr std::size_t kPictureSize = 6 << 20;
constexpr std::size_t kArgumentsSize = 400 << 10;
constexpr int kLongEntries = 15;

// How many kills more there may be until each thing that counts has happened.
constexpr int kMostMore = 60;

// What else is interrupted, besides the changes.
constexpr const char* kUpgrade = "upgrade";
constexpr const char* kRestore = "finish after a kill";

struct Counts {
  int kills = 0;
  int left = 0;   // times that there was a scratch file afterwards
  int cut = 0;    // the menu file was neither the old nor the new one
  int asked = 0;  // the next start asked whether to finish the change
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
    // What the last change was to make of it, if that was interrupted.
    KnownMenu after;
    // How many changes this menu is still good for.
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

  // How long after the press that starts the writing it is best to kill, in
  // milliseconds.
  double& AimAt(const std::string& what) {
    return aim_.try_emplace(what + (byHost_ ? ", by the host" : ""), 50.0).first->second;
  }

  // Kills the program while it does what `begin` makes it do; that calls its argument
  // just before. Half of the kills are Windows' own, which let a call end that has
  // begun; half are of the host, which does not wait for anything.
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
      // Until the command runs; some kills come before the change, then.
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
      // The rest of the millisecond.
      for (LARGE_INTEGER now = from; static_cast<double>(now.QuadPart - from.QuadPart) * 1000 <
                                     delay * static_cast<double>(frequency.QuadPart);
           QueryPerformanceCounter(&now)) {
      }
      program_->Kill();
    }
    program_.reset();
    // For Windows a process has ended before its last write has.
    ASSERT_TRUE(outside::WaitUntil([&] { return !outside::IsHostProcessAtWork(process); }));
    ++counts_.kills;
    ++byKind_[what].kills;
  }

  // The menu that a scratch file with a journal says, whatever that has for a
  // checksum; empty for one without.
  static std::string FinishedBy(const std::string& scratch, const std::string& menu) {
    constexpr std::size_t kFooter = 72;
    if (scratch.size() < kFooter ||
        scratch.compare(scratch.size() - kFooter, 16, "Corvalis journal") != 0) {
      return {};
    }
    const auto number = [&](std::size_t index) {
      std::uint64_t value = 0;
      std::memcpy(&value, scratch.data() + scratch.size() - kFooter + 16 + 8 * index, sizeof value);
      return static_cast<std::size_t>(value);
    };
    const std::size_t description = number(0);
    const std::size_t head = number(1);
    const std::size_t kept = number(3);
    return menu.substr(0, kept) + scratch.substr(description, head) +
           scratch.substr(0, description);
  }

  // The menu file is as it was or as it was to be, or a scratch file says how it gets
  // to be that.
  bool IsWhole(const Subject& subject, const std::string& before, const std::string& after) const {
    const std::string menu = subject.Bytes();
    if (menu == before || menu == after) {
      return true;
    }
    for (const std::string& name : ScratchFiles()) {
      if (FinishedBy(BytesOf(PathOf(name)), menu) == after) {
        return true;
      }
    }
    return false;
  }

  // All that begin with the name of one: a journal may have been put aside.
  std::vector<std::string> ScratchFiles() const {
    std::vector<std::string> names;
    for (const char* pattern : {"temporaryfile*", "zoltempfileoktodelete*"}) {
      WIN32_FIND_DATAA found{};
      const HANDLE search = FindFirstFileA(PathOf(pattern).c_str(), &found);
      for (BOOL is = search != INVALID_HANDLE_VALUE; is; is = FindNextFileA(search, &found)) {
        names.push_back(found.cFileName);
      }
      if (search != INVALID_HANDLE_VALUE) {
        FindClose(search);
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
    // The next kills of this kind come nearer to the moment at which the menu file
    // is neither.
    double& aim = AimAt(what);
    aim *= menu == after ? 0.93 : menu == before ? 1.07 : 1;
    aim = std::clamp(aim, 2.0, 2000.0);
  }

  bool IsQuestion(const std::string& sentence) const {
    return first_ != nullptr && Program::IsDialog(first_) && outside::Text(first_) == "Query?" &&
           outside::Text(first_, outside::kMessageTextId).starts_with(sentence);
  }

  // Starts the program. It asks, or the menu file is whole; in the end the menu file
  // is as it was or as the last change was to leave it.
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
    // A start asks again, if nothing was done.
    if (subject.Bytes() == old) {
      WriteBytes(subject.path, subject.menu.Bytes());
    }
  }

  // Puts a new menu in the place of one that has been changed often enough.
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
      // The icon change writes over a scratch file that is there, and what is longer
      // of that becomes a part of the menu.
      const bool wouldTakeOver =
          kind == ChangeKind::ChangeIcon && Exists(PathOf("zoltempfileoktodelete"));
      if (!wouldTakeOver && changes.IsPossible(kind, menu)) {
        return kind;
      }
    }
  }

  // A menu is changed some times and then once more, until the program is killed.
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
  bool byHost_ = false;  // the last kill
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
  // Kills that never interrupt the writing would prove nothing.
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
