#include "tests/windows/folder_list_test_base.h"

class FolderListDrivesTest : public FolderListTest {};

TEST_F(FolderListDrivesTest, ListsTheDrivesThatThereAre) {
  win32::FillDriveList(combo_);
  Names expected;
  for (int number = 0; number < 26; ++number) {
    if ((GetLogicalDrives() >> number & 1U) != 0) {
      expected.push_back(std::string(1, static_cast<char>('A' + number)) + ":");
    }
  }
  EXPECT_EQ(Drives(), expected);
  EXPECT_NE(std::find(expected.begin(), expected.end(), "C:"), expected.end());
  EXPECT_EQ(win32::SelectedDrive(combo_), "");
}

TEST_F(FolderListDrivesTest, SelectsTheDriveOfAPath) {
  win32::FillDriveList(combo_);
  EXPECT_TRUE(win32::SelectDrive(combo_, "c:\\no\\such folder"));
  EXPECT_EQ(win32::SelectedDrive(combo_), "C:");
  for (const char* path : {"", "\\", "folder", "K:\\", "\\\\server\\share", "1:", "C"}) {
    EXPECT_FALSE(win32::SelectDrive(combo_, path)) << path;
    EXPECT_EQ(win32::SelectedDrive(combo_), "C:") << path;
  }
}

TEST_F(FolderListDrivesTest, DrivesComeAndGo) {
  win32::FillDriveList(combo_);
  win32::SelectDrive(combo_, "C:");
  const Names before = Drives();
  EmptyDrive drive("Q:");
  ASSERT_TRUE(drive.made());
  win32::FillDriveList(combo_);
  EXPECT_EQ(Drives().size(), before.size() + 1);
  EXPECT_EQ(win32::SelectedDrive(combo_), "C:");
  EXPECT_TRUE(win32::SelectDrive(combo_, "Q:\\"));

  drive.Remove();
  win32::FillDriveList(combo_);
  EXPECT_EQ(Drives(), before);
  EXPECT_EQ(win32::SelectedDrive(combo_), "");
}

TEST_F(FolderListDrivesTest, AnEmptyDriveIsNotEntered) {
  const EmptyDrive drive("Q:");
  ASSERT_TRUE(drive.made());
  EXPECT_FALSE(folders.SetPath("Q:"));
  EXPECT_FALSE(folders.SetPath("Q:\\"));
  EXPECT_FALSE(folders.SetPath("Q:\\folder"));
  EXPECT_EQ(folders.Path(), folder());
  EXPECT_EQ(ListRows(), RowsDownTo(folder()));
  EXPECT_TRUE(answers.Shown().empty());
}
