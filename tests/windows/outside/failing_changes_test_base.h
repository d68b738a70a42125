#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_FAILING_CHANGES_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_FAILING_CHANGES_TEST_BASE_H_

#include "tests/windows/outside/changes.h"
#include "tests/windows/outside/options.h"
#include "tests/windows/outside/outside_test_base.h"

// The base of the tests of changes that cannot write a file.
class FailingChangesTest : public OutsideTest {
 protected:
  using ChangeKind = outside::ChangeKind;

  static constexpr ChangeKind kEveryChange[] = {ChangeKind::MoveUp,      ChangeKind::MoveDown,
                                                ChangeKind::Delete,      ChangeKind::Separator,
                                                ChangeKind::Add,         ChangeKind::Edit,
                                                ChangeKind::ChangeIcon,  ChangeKind::SaveAppearance,
                                                ChangeKind::ToDirectory, ChangeKind::SaveDirectory,
                                                ChangeKind::ToList};

  FailingChangesTest();

  // True for changes to a directory pointer; the others are to a list.
  static bool IsOfDirectory(ChangeKind kind);
  static bool IsSwitch(ChangeKind kind);
  static bool IsWizard(ChangeKind kind);
  static std::string ScratchName(ChangeKind kind);

  // Makes the change and expects what the user sees of its failure.
  void ExpectFailureIsShown(ChangeKind kind, const outside::PreparedChange& change);
  void ExpectNoDialog() { EXPECT_EQ(program().Find("#32770"), nullptr); }

  const std::string library_ = PathOf("twelve.dll");
  std::mt19937_64 random_{outside::TestOptions().seed};
};

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_FAILING_CHANGES_TEST_BASE_H_
