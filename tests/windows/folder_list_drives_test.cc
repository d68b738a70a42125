#include "tests/windows/folder_list_test_base.h"

class FolderListDrivesTest : public FolderListTest {};

TEST_F(FolderListDrivesTest, ListsTheDrivesThatThereAre) {
  win32::FillDriveList(combo_);
  Texts expected;
  for (int number = 0; number < 26; ++number) {
    if ((GetLogicalDrives() >> number & 1U) != 0) {
      expected.push_back(std::string(1, static_cast<char>('A' + number)) + ":");
    }
  }
  EXPECT_EQ(Drives(), expected);
  EXPECT_NE(std::find(expected.begin(), expected.end(), "C:"), expected.end());
  EXPECT_EQ(Drive(), "");
}

TEST_F(FolderListDrivesTest, SelectsTheDriveOfAPath) {
  win32::FillDriveList(combo_);
  EXPECT_TRUE(SelectDrive("c:\\no\\such folder"));
  EXPECT_EQ(Drive(), "C:");
  for (const char* path : {"", "\\", "folder", "K:\\", "\\\\server\\share", "1:", "C"}) {
    EXPECT_FALSE(SelectDrive(path)) << path;
    EXPECT_EQ(Drive(), "C:") << path;
  }
}

TEST_F(FolderListDrivesTest, DrivesComeAndGo) {
  win32::FillDriveList(combo_);
  SelectDrive("C:");
  const Texts before = Drives();
  EmptyDrive drive("Q:");
  win32::FillDriveList(combo_);
  EXPECT_EQ(Drives().size(), before.size() + 1);
  EXPECT_EQ(Drive(), "C:");
  EXPECT_TRUE(SelectDrive("Q:\\"));

  drive.Remove();
  win32::FillDriveList(combo_);
  EXPECT_EQ(Drives(), before);
  EXPECT_EQ(Drive(), "");
}

TEST_F(FolderListDrivesTest, AnEmptyDriveIsNotEntered) {
  const EmptyDrive drive("Q:");
  EXPECT_FALSE(SetPath("Q:"));
  EXPECT_FALSE(SetPath("Q:\\"));
  EXPECT_FALSE(SetPath("Q:\\folder"));
  EXPECT_EQ(Path(), folder());
  EXPECT_EQ(ListRows(), RowsDownTo(folder()));
  EXPECT_TRUE(answers.Shown().empty());
}
