// Tests on a real disk that changes give the same bytes as in memory, and that a process
// that ends during a change leaves a complete menu.
#include "tests/menufile/posix_files.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "menufile/upgrade.h"
#include "tests/menufile/compare_with_literal.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using Kind = UserChange::Kind;

// More than a block of entries.
constexpr int kManyItems = 8000;

TEST(RealFiles, EveryOperationEndsAsTheLiteralOne) {
  ASSERT_GT(UserMenu(kManyItems).size(), PosixFiles().BlockSize());
  for (int kind = 0; kind < kUserChanges; ++kind) {
    const UserChange operation = SampleChange(static_cast<Kind>(kind), 2);
    PosixFiles files;
    files.Put("a.menu", UserMenu(kManyItems));
    Make(files, "a.menu", operation);
    EXPECT_EQ(RewriteLiterally(UserMenu(kManyItems), std::nullopt, true, operation).menu,
              files.Get("a.menu"))
        << NameOf(operation.kind);
    EXPECT_EQ(std::nullopt, files.Get(ScratchFileOf(operation.kind)));
  }
}

TEST(RealFiles, UpgradeAndAppend) {
  PosixFiles files;
  files.Put("a.menu", PreviousVersionMenu(3));
  MenuFile menu(files, "a.menu");
  UpgradeMenuFile(menu, SamplePicture());
  EXPECT_EQ(UserMenu(3), files.Get("a.menu"));
  AddEntries(menu, {{"New", "C:\\new", "", ""}}, true);
  EXPECT_EQ(UserMenu(3) + "\"New\",\"C:\\new\",\"\",\"\",\"\",0\r\n", files.Get("a.menu"));
  RecordingView view;
  EXPECT_TRUE(LoadMenuFile(menu, "", view));
  EXPECT_EQ(5u, view.shown().size());
}

TEST(RealFiles, AMissingFileIsAFailure) {
  PosixFiles files;
  RecordingView view;
  MenuFile menu(files, "a.menu");
  EXPECT_EQ("Cannot open the file:\na.menu\n\nNo such file or directory.",
            FailureOf([&] { LoadMenuFile(menu, "", view); }));
}

// Makes the change in a process of its own, which ends at that file operation. Returns
// false if the change was finished before.
bool EndsAt(std::size_t number, PosixFiles& files, const UserChange& operation) {
  const pid_t child = fork();
  if (child == 0) {
    files.EndProcessAt(number);
    Make(files, "a.menu", operation);
    _exit(0);
  }
  int status = -1;
  EXPECT_EQ(child, waitpid(child, &status, 0));
  EXPECT_TRUE(WIFEXITED(status));
  return WEXITSTATUS(status) != 0;
}

TEST(RealFiles, AProcessThatEndsLeavesACompleteMenu) {
  for (int kind = 0; kind < kUserChanges; ++kind) {
    const UserChange operation = SampleChange(static_cast<Kind>(kind), 2);
    const std::string oldMenu = UserMenu(50);
    const std::string newMenu = RewriteLiterally(oldMenu, std::nullopt, true, operation).menu;
    std::size_t number = 1;
    for (;; ++number) {
      PosixFiles files;
      files.SetBlockSize(1000);
      files.Put("a.menu", oldMenu);
      if (!EndsAt(number, files, operation)) {
        EXPECT_EQ(newMenu, files.Get("a.menu"));
        break;
      }
      MenuFile next(files, "a.menu");
      if (next.WasCutShort()) {
        next.AnswerYes();
        EXPECT_EQ(newMenu, files.Get("a.menu")) << NameOf(operation.kind) << " at " << number;
      }
      const std::optional<std::string> menu = files.Get("a.menu");
      EXPECT_TRUE(menu == oldMenu || menu == newMenu) << NameOf(operation.kind) << " at " << number;
    }
    EXPECT_GE(number, 13u);
  }
}

}  // namespace
}  // namespace menufile
