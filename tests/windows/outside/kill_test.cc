// The finished program is killed while it makes changes, and a whole menu must
// be there each time: as it was or as it was to be, in the menu file or in a
// scratch file.
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

constexpr std::array kListChanges = {ChangeKind::MoveUp,
                                     ChangeKind::MoveDown,
                                     ChangeKind::Delete,
                                     ChangeKind::Separator,
                                     ChangeKind::Add,
                                     ChangeKind::Edit,
                                     ChangeKind::ChangeIcon,
                                     ChangeKind::SaveAppearance,
                                     ChangeKind::Edit,
                                     ChangeKind::ChangeIcon,
                                     ChangeKind::SaveAppearance,
                                     ChangeKind::ToDirectory};
constexpr std::array kDirectoryChanges = {ChangeKind::SaveDirectory, ChangeKind::SaveDirectory,
                                          ChangeKind::ToList};

// Large enough that writing it takes some time, and with few rows, so that the
// program starts quickly all the same.
constexpr std::size_t kPictureSize = 6 << 20;
constexpr std::size_t kArgumentsSize = 400 << 10;
constexpr int kLongEntries = 15;

constexpr int kMostUntilWriting = 40;

// What else is interrupted, besides the changes.
constexpr const char* kUpgrade = "upgrade";
constexpr const char* kRestore = "finish after a kill";

struct Counts {
  int kills = 0;
  int writing = 0;  // a scratch file was left
  int cut = 0;      // the menu file was neither the old nor the new one
  int asked = 0;    // the next start asked whether to finish the change
  int lost = 0;
};

}  // namespace

class KillTest : public OutsideTest {
 protected:
  KillTest() : random_(outside::TestOptions().seed) {
    WriteBytes(library_, testing_icons::Library(testing_icons::Colours(12)));
  }

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

  void StartOn() {
    program_ = std::make_unique<Program>(MenuPath(), folder());
    first_ = program_->WaitForFirst();
  }

  // How long after the press that starts the writing it is best to kill, in
  // milliseconds.
  double& AimAt(const std::string& what) {
    return aim_.try_emplace(what + (byHost_ ? ", by the host" : ""), 50.0).first->second;
  }

  // Kills the program while it does what `begin` makes it do. Half of the kills
  // are Windows' own, which let a call end that has begun; half are of the host,
  // which does not wait for anything.
  void KillDuring(const std::string& what, const std::function<void()>& begin) {
    byHost_ = Chance(2);
    const double aim = AimAt(what);
    const double delay =
        std::uniform_real_distribution<>(Chance(4) ? 0 : 0.7 * aim, 1.3 * aim)(random_);
    const int process = outside::HostProcess(MenuPath());
    ASSERT_NE(process, 0);
    if (byHost_) {
      char command[100] = "";
      std::snprintf(command, sizeof command, "Z:\\bin\\bash -c \"sleep %.4f; kill -9 %d\"",
                    delay / 1000, process);
      ASSERT_TRUE(outside::StartOnHost(command, folder()));
      // Until the command runs; some kills come before the press, then.
      Sleep(static_cast<DWORD>(random_() % 30));
      begin();
      ASSERT_TRUE(program_->WaitForExit().has_value());
    } else {
      begin();
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

  // After a kill: the menu file is one of these, or a scratch file says how it gets
  // to be the second.
  void ExpectWhole(const std::string& what, const std::string& before, const std::string& after) {
    const std::string menu = MenuBytes();
    bool hasScratch = false;
    bool isWhole = menu == before || menu == after;
    counts_.cut += !isWhole;
    byKind_[what].cut += !isWhole;
    for (const char* name : {"temporaryfile", "zoltempfileoktodelete"}) {
      if (Exists(PathOf(name))) {
        hasScratch = true;
        const std::string scratch = BytesOf(PathOf(name));
        isWhole = isWhole || FinishedBy(scratch, menu) == after;
      }
    }
    counts_.writing += hasScratch;
    byKind_[what].writing += hasScratch;
    if (!isWhole) {
      ++counts_.lost;
      ADD_FAILURE() << "after kill " << counts_.kills << ", during " << what
                    << ", no whole menu is there; the menu file has " << menu.size()
                    << " bytes, of " << before.size() << " before and " << after.size()
                    << " after the change";
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

  // Starts the program after a kill. It asks, or the menu file is whole; in the
  // end the menu file holds one of the two, which the result tells.
  KnownMenu StartAgain(const KnownMenu& before, const KnownMenu& after) {
    StartOn();
    while (IsQuestion("The last change to the menu file was interrupted.")) {
      ++counts_.asked;
      const auto finish = [this] { outside::Click(first_, IDYES); };
      if (Chance(4)) {
        KillDuring(kRestore, finish);
        ExpectWhole(kRestore, after.Bytes(), after.Bytes());
        StartOn();
        continue;
      }
      const HWND question = first_;
      finish();
      outside::WaitUntil([&] { return !IsWindow(question); });
      first_ = program_->WaitForFirst();
      EXPECT_EQ(Difference(MenuBytes(), after.Bytes()), "") << "the change was not finished";
    }
    EXPECT_TRUE(first_ != nullptr && !Program::IsDialog(first_))
        << "no main window, but \"" << outside::Text(first_, outside::kMessageTextId) << '"';
    const std::string menu = MenuBytes();
    EXPECT_TRUE(menu == before.Bytes() || menu == after.Bytes()) << "the menu is not whole";
    return menu == after.Bytes() ? after : before;
  }

  void KillDuringUpgrade(const KnownMenu& converted) {
    const std::string old = converted.PreviousVersionBytes();
    WriteBytes(MenuPath(), old);
    StartOn();
    ASSERT_TRUE(IsQuestion("The menu file is invalid or a previous version."));
    KillDuring(kUpgrade, [this] { outside::Click(first_, IDYES); });
    ExpectWhole(kUpgrade, old, converted.Bytes());
    // A start asks again, if nothing was done.
    if (MenuBytes() == old) {
      WriteBytes(MenuPath(), converted.Bytes());
    }
    StartAgain(converted, converted);
  }

  ChangeKind RandomChange(const Changes& changes, const KnownMenu& menu) {
    while (true) {
      const ChangeKind kind = menu.isDirectory
                                  ? kDirectoryChanges[random_() % kDirectoryChanges.size()]
                                  : kListChanges[random_() % kListChanges.size()];
      if (changes.IsPossible(kind, menu)) {
        return kind;
      }
    }
  }

  void PrintCounts() {
    for (const auto& [what, counts] : byKind_) {
      std::printf("%-20s %4d kills, %4d while writing, %4d menu files cut\n", what.c_str(),
                  counts.kills, counts.writing, counts.cut);
    }
    std::printf(
        "Counted: %d kills, %d of them while writing, %d menu files cut, %d finished by the next "
        "start, %d lost (--seed=%llu)\n",
        counts_.kills, counts_.writing, counts_.cut, counts_.asked, counts_.lost,
        static_cast<unsigned long long>(outside::TestOptions().seed));
    std::fflush(stdout);
  }

  std::mt19937_64 random_;
  const std::string library_ = PathOf("twelve.dll");
  std::unique_ptr<Program> program_;
  HWND first_ = nullptr;
  bool byHost_ = false;  // the last kill
  std::map<std::string, double> aim_;
  Counts counts_;
  std::map<std::string, Counts> byKind_;
};

TEST_F(KillTest, AWholeMenuIsThereAfterEachKill) {
  const std::string defaultPicture =
      BytesOf(outside::BuildFolder() + "\\..\\resources\\default_menu.ico");
  ASSERT_EQ(defaultPicture.size(), 2238U);
  std::printf("--seed=%llu\n", static_cast<unsigned long long>(outside::TestOptions().seed));
  KnownMenu menu;
  // The changes that one menu is good for.
  int left = 0;
  // Kills that never interrupt the writing would prove nothing.
  while ((counts_.kills < outside::TestOptions().kills ||
          (counts_.writing == 0 && counts_.kills < kMostUntilWriting)) &&
         !HasFailure()) {
    if (left-- == 0 || (!menu.isDirectory && menu.entries.size() < kLongEntries)) {
      left = 8;
      program_.reset();
      menu = NewMenu();
      if (!menu.isDirectory && Chance(2)) {
        menu.picture = defaultPicture;
        KillDuringUpgrade(menu);
      } else {
        WriteBytes(MenuPath(), menu.Bytes());
        menu = StartAgain(menu, menu);
      }
      if (HasFailure()) {
        break;
      }
    }
    // An edit that was killed before it touched the menu leaves its scratch file. A
    // menu that loses its last entries afterwards is a beginning of that one, as if
    // it had been cut, and the next start would ask.
    DeleteFileA(PathOf("zoltempfileoktodelete").c_str());
    Changes changes(*program_, first_, random_, library_);
    for (auto whole = random_() % 3; whole > 0; --whole) {
      const ChangeKind kind = RandomChange(changes, menu);
      const std::optional<PreparedChange> change = changes.Prepare(kind, menu);
      ASSERT_TRUE(change.has_value()) << NameOf(kind);
      ASSERT_TRUE(change->Make()) << NameOf(kind);
      menu = change->after;
      ASSERT_EQ(Difference(MenuBytes(), menu.Bytes()), "") << NameOf(kind);
    }
    const ChangeKind kind = RandomChange(changes, menu);
    const std::optional<PreparedChange> change = changes.Prepare(kind, menu);
    ASSERT_TRUE(change.has_value()) << NameOf(kind);
    KillDuring(NameOf(kind), [&] { change->Begin(); });
    ExpectWhole(NameOf(kind), menu.Bytes(), change->after.Bytes());
    menu = StartAgain(menu, change->after);
  }
  PrintCounts();
  EXPECT_EQ(counts_.lost, 0);
  EXPECT_GT(counts_.writing, 0);
}
