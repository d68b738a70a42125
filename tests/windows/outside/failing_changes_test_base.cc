#include "tests/windows/outside/failing_changes_test_base.h"

#include "tests/windows/icon_files.h"

using outside::WaitUntil;

FailingChangesTest::FailingChangesTest() {
  WriteBytes(library_, testing_icons::Library(testing_icons::Colours(12)));
}

bool FailingChangesTest::IsOfDirectory(ChangeKind kind) {
  return kind == ChangeKind::SaveDirectory || kind == ChangeKind::ToList;
}

bool FailingChangesTest::IsSwitch(ChangeKind kind) {
  return kind == ChangeKind::ToDirectory || kind == ChangeKind::ToList;
}

bool FailingChangesTest::IsWizard(ChangeKind kind) {
  return kind == ChangeKind::Add || kind == ChangeKind::Edit;
}

std::string FailingChangesTest::ScratchName(ChangeKind kind) {
  const bool isDialogs =
      IsWizard(kind) || kind == ChangeKind::ChangeIcon || kind == ChangeKind::SaveAppearance;
  return isDialogs ? "zoltempfileoktodelete" : "temporaryfile";
}

void FailingChangesTest::ExpectFailureIsShown(ChangeKind kind,
                                              const outside::PreparedChange& change) {
  // A failure of the wizard shows nothing, so wait until its button has done its work.
  if (!change.end || IsWizard(kind)) {
    EXPECT_TRUE(outside::Press(change.window, change.button));
  } else {
    change.Begin();
  }
  if (kind == ChangeKind::ChangeIcon || kind == ChangeKind::SaveAppearance) {
    Answer("Error!", "Error writing to file.", IDOK);
  }
  if (kind == ChangeKind::SaveAppearance) {
    EXPECT_EQ(program().WaitForExit(), 0U);
    return;
  }
  if (IsSwitch(kind)) {
    // Answer the question first.
    EXPECT_TRUE(program().WaitUntilGone("#32770"));
  }
  if (IsWizard(kind)) {
    EXPECT_NE(program().Find("Form3"), nullptr);
    EXPECT_FALSE(IsWindowEnabled(form2()));
  } else {
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(form2()) != FALSE; }));
    // The window is enabled before its child goes.
    EXPECT_TRUE(program().WaitUntilGone("Form4"));
  }
  EXPECT_TRUE(outside::WaitUntilIdle(form2()));
  ExpectNoDialog();
  EXPECT_EQ(IsWindowVisible(List()) != FALSE, !IsOfDirectory(kind));
}
