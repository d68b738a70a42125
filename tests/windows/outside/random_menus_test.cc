// Opens random menu files with the finished program. It has to show its window, ask a
// question, or show an error and end. It must neither crash nor hang.

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <map>
#include <mutex>
#include <thread>

#include "tests/windows/outside/host.h"
#include "tests/windows/outside/options.h"
#include "tests/windows/outside/outside_test_base.h"
#include "tests/windows/outside/random_menu.h"

using outside::Program;
using outside::RandomMenu;
using outside::WaitUntil;

namespace {

// A start takes some tenths of a second. After this time it counts as a hang.
constexpr DWORD kLongest = 30000;
// A machine with two processors runs this many well.
constexpr int kAtATime = 2;

// The result of opening a menu: `shown`, or `fault` if it was wrong.
struct Outcome {
  std::string shown;
  std::string fault;
};

class Opening {
 public:
  Opening(std::mt19937_64& random, const std::string& menuPath, const std::string& folder)
      : random_(random), program_(menuPath, folder) {}

  Outcome Watch() {
    // A converted file may still fail to load, but there must be no second question.
    for (int asked = 0; asked < 2; ++asked) {
      const HWND first = WaitForNext();
      if (first == nullptr) {
        return {"", program_.WaitForExit(0) ? "ended without a word, " + Ended() : "hangs"};
      }
      if (!Program::IsDialog(first)) {
        return UseAndClose(first);
      }
      const std::string title = outside::Text(first);
      if (title == "Error!") {
        outside::Click(first, IDOK);
        return EndWith(1, asked > 0 ? "error after a conversion" : "error");
      }
      if (title != "Query?") {
        return {"", "an unknown dialog box \"" + title + "\""};
      }
      if (random_() % 2 == 0) {
        outside::Click(first, IDNO);
        return EndWith(0, "refused to convert");
      }
      outside::Click(first, IDYES);
      if (!WaitUntil([&] { return !IsWindow(first); }, kLongest)) {
        return {"", "the question stays"};
      }
    }
    return {"", "asks again after a conversion"};
  }

 private:
  HWND WaitForNext() const {
    HWND window = nullptr;
    WaitUntil([&] { return (window = program_.Find("")) != nullptr || program_.WaitForExit(0); },
              kLongest);
    return window;
  }

  // Selecting a row asks the shell for the icon of its target, which may be no path.
  Outcome UseAndClose(HWND form2) {
    const HWND list = GetDlgItem(form2, IDC_FORM2_LIST1);
    const int count = static_cast<int>(SendMessageA(list, LB_GETCOUNT, 0, 0));
    for (int i = 0; i < 3 && i < count; ++i) {
      outside::SelectRow(list, static_cast<int>(random_() % static_cast<unsigned>(count)));
    }
    if (!outside::WaitUntilIdle(form2)) {
      return {"", "hangs once it is open"};
    }
    outside::CloseWindow(form2);
    return EndWith(0, IsWindowVisible(list) || count > 0 ? "list" : "directory or nothing");
  }

  Outcome EndWith(DWORD code, const std::string& shown) {
    const std::optional<DWORD> ended = program_.WaitForExit(kLongest);
    if (!ended) {
      return {"", "does not end after: " + shown};
    }
    return *ended == code ? Outcome{shown, ""} : Outcome{"", shown + ", then " + Ended()};
  }

  std::string Ended() const {
    char text[60] = "";
    std::snprintf(text, sizeof text, "exit code 0x%lX", program_.WaitForExit(0).value_or(0));
    return text;
  }

  std::mt19937_64& random_;
  Program program_;
};

}  // namespace

class RandomMenusTest : public OutsideTest {
 protected:
  // A worker takes numbers until none is left.
  void OpenMenus() {
    const std::string own = PathOf(std::to_string(++workers_));
    for (int i; (i = next_++) < outside::TestOptions().menus;) {
      // Each menu has a seed of its own, so that it can be made again alone.
      std::mt19937_64 random(outside::TestOptions().seed + static_cast<std::uint64_t>(i));
      std::filesystem::create_directory(own);
      outside::WriteIconFiles(random, own);
      const RandomMenu menu = outside::MakeRandomMenu(random, own);
      const std::string path = own + "\\random.menu";
      WriteBytes(path, menu.bytes);
      const Outcome outcome = Opening(random, path, own).Watch();
      const std::lock_guard lock(mutex_);
      ++shown_[outcome.shown];
      if (!outcome.fault.empty()) {
        const std::string kept =
            outside::BuildFolder() + "\\test\\random_" +
            std::to_string(outside::TestOptions().seed + static_cast<std::uint64_t>(i)) + ".menu";
        WriteBytes(kept, menu.bytes);
        faults_ += menu.kind + ": " + outcome.fault + "; kept as " + kept + "\n";
      }
      std::error_code ignored;
      std::filesystem::remove_all(own, ignored);
    }
  }

  std::atomic<int> next_ = 0;
  std::atomic<int> workers_ = 0;
  std::mutex mutex_;
  std::map<std::string, int> shown_;
  std::string faults_;
};

TEST_F(RandomMenusTest, NoneCrashesOrHangsTheProgram) {
  std::thread threads[kAtATime];
  for (std::thread& thread : threads) {
    thread = std::thread([this] { OpenMenus(); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  int count = 0;
  for (const auto& [shown, times] : shown_) {
    std::printf("%5d %s\n", times, shown.empty() ? "FAULTS" : shown.c_str());
    count += times;
  }
  std::printf("Counted: %d random menus opened (--seed=%llu)\n", count,
              static_cast<unsigned long long>(outside::TestOptions().seed));
  std::fflush(stdout);
  EXPECT_EQ(count, outside::TestOptions().menus);
  EXPECT_EQ(faults_, "");
  // About a third of the menus show a list. Without this check, a program that refuses
  // every file would pass.
  EXPECT_GE(shown_["list"], count / 20);
}
