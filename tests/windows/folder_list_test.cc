#include <filesystem>

#include "tests/windows/code_pages.h"
#include "tests/windows/folder_list_test_base.h"

namespace {

TEST_F(FolderListTest, StartsAtTheCurrentDirectory) {
  EXPECT_EQ(Path(), folder());
  EXPECT_EQ(ListRows(), RowsDownTo(folder()));
  EXPECT_EQ(Selected(), static_cast<int>(RowsDownTo(folder()).size()) - 1);
}

TEST_F(FolderListTest, ShowsTheFoldersInsideSorted) {
  for (const char* name : {"b", "C", "a", "hidden", "system", "B2"}) {
    Make(name);
  }
  WriteBytes(PathOf("a file"), "x");
  SetFileAttributesA(PathOf("hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
  SetFileAttributesA(PathOf("system").c_str(), FILE_ATTRIBUTE_SYSTEM);
  ASSERT_TRUE(SetPath(folder()));
  EXPECT_EQ(RowsBelow(folder()), (Texts{"a", "b", "B2", "C", "hidden", "system"}));
  EXPECT_EQ(ListRows()[static_cast<std::size_t>(Selected())], RowsDownTo(folder()).back());
}

TEST_F(FolderListTest, LeavesOutHiddenFoldersOfTheSystemButOnTheWayToOne) {
  Make("a");
  Make("bin");
  Make("bin\\of mine");
  Make("binary");
  for (const char* name : {"bin", "binary", "bin\\of mine"}) {
    constexpr DWORD kBoth = FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_HIDDEN;
    SetFileAttributesA(PathOf(name).c_str(), kBoth);
    ASSERT_EQ(GetFileAttributesA(PathOf(name).c_str()) & kBoth, kBoth);
  }
  ASSERT_TRUE(SetPath(folder()));
  EXPECT_EQ(RowsBelow(folder()), Texts{"a"});
  for (const char* path : {"BIN", "bin\\", "Bin\\of mine\\none"}) {
    folders.AlwaysList(win32::ToText(PathOf(path)));
    ASSERT_TRUE(SetPath(folder()));
    EXPECT_EQ(RowsBelow(folder()), (Texts{"a", "bin"})) << path;
  }
  Select("bin");
  ASSERT_TRUE(folders.OpenSelected());
  EXPECT_EQ(RowsBelow(PathOf("bin")), Texts{"of mine"});
  for (const char* name : {"bin", "binary", "bin\\of mine"}) {
    SetFileAttributesA(PathOf(name).c_str(), FILE_ATTRIBUTE_NORMAL);
  }
}

// Wine looks for servers in a folder of its own.
TEST_F(FolderListTest, GoesToAServer) {
  char prefix[MAX_PATH] = "";
  ASSERT_NE(GetEnvironmentVariableA("WINEPREFIX", prefix, MAX_PATH), 0U);
  const std::string servers = "Z:" + std::string(prefix) + "/dosdevices/unc";
  std::error_code failed;
  ASSERT_TRUE(std::filesystem::create_directories(servers + "/server/share/one/two", failed));
  for (const std::string& path :
       {std::string("\\\\server\\share\\one"), std::string("\\\\server\\share\\one\\\\")}) {
    ASSERT_TRUE(SetPath("C:\\"));
    EXPECT_TRUE(SetPath(path)) << path;
    EXPECT_EQ(Path(), "\\\\server\\share\\one");
    EXPECT_EQ(ListRows(), (Texts{"\\\\server\\share\\", "one", "two"}));
    EXPECT_EQ(Selected(), 1);
  }
  for (const char* path : {"\\\\server\\share", "\\\\server\\share\\"}) {
    EXPECT_TRUE(SetPath(path)) << path;
    EXPECT_EQ(ListRows(), (Texts{"\\\\server\\share\\", "one"}));
  }
  Select("one");
  ASSERT_TRUE(folders.OpenSelected());
  Select("two");
  ASSERT_TRUE(folders.OpenSelected());
  EXPECT_EQ(Path(), "\\\\server\\share\\one\\two");
  SendMessageA(list_, LB_SETCURSEL, 0, 0);
  ASSERT_TRUE(folders.OpenSelected());
  EXPECT_EQ(Path(), "\\\\server\\share\\");
  for (const char* path :
       {"\\\\server", "\\\\server\\", "\\\\server\\\\x", "\\\\", "\\\\?\\C:\\"}) {
    EXPECT_FALSE(SetPath(path)) << path;
  }
  std::filesystem::remove_all(servers, failed);
}

TEST_F(FolderListTest, ScrollsToItsFolder) {
  std::string deep = folder();
  for (int depth = 0; depth < 12; ++depth) {
    deep += "\\d";
    ASSERT_TRUE(CreateDirectoryA(deep.c_str(), nullptr));
  }
  for (int number = 0; number < 30; ++number) {
    ASSERT_TRUE(CreateDirectoryA((deep + "\\" + std::to_string(number)).c_str(), nullptr));
  }
  ASSERT_TRUE(SetPath(deep));
  // Its parent is the row above, and its first folders are below.
  EXPECT_EQ(SendMessageA(list_, LB_GETTOPINDEX, 0, 0), Selected() - 1);
  SetPath("C:\\");
  EXPECT_EQ(SendMessageA(list_, LB_GETTOPINDEX, 0, 0), 0);
}

TEST_F(FolderListTest, ARootIsOneRowAndItsFolders) {
  ASSERT_TRUE(SetPath("C:\\"));
  EXPECT_EQ(Path(), "C:\\");
  const Texts rows = ListRows();
  EXPECT_EQ(rows[0], "C:\\");
  EXPECT_EQ(Selected(), 0);
  EXPECT_NE(std::find(rows.begin() + 1, rows.end(), "windows"), rows.end());
  EXPECT_TRUE(std::is_sorted(rows.begin() + 1, rows.end(), [](const auto& a, const auto& b) {
    return lstrcmpiA(a.c_str(), b.c_str()) < 0;
  }));
}

TEST_F(FolderListTest, BringsAPathIntoItsUsualForm) {
  Make("one");
  for (const std::string& path : {PathOf("one\\"), PathOf("one\\\\"), PathOf("one\\."),
                                  PathOf("one\\..\\one"), folder() + "/one/"}) {
    ASSERT_TRUE(SetPath("C:\\"));
    EXPECT_TRUE(SetPath(path)) << path;
    EXPECT_EQ(Path(), PathOf("one")) << path;
  }
  EXPECT_TRUE(SetPath("c:\\"));
  EXPECT_EQ(Path(), "C:\\");
}

TEST_F(FolderListTest, ADriveAloneIsItsCurrentFolder) {
  ASSERT_TRUE(SetPath("C:\\"));
  EXPECT_TRUE(SetPath(folder().substr(0, 2)));
  EXPECT_EQ(Path(), folder());

  const std::string other = OtherDrive();
  const std::string inside = FolderInRoot(other);
  ASSERT_NE(inside, "");
  {
    const CurrentFolderOfDrive current(other, inside);
    EXPECT_TRUE(SetPath(other));
    EXPECT_EQ(Path(), inside);
  }
  EXPECT_TRUE(SetPath(other));
  EXPECT_EQ(Path(), other + "\\");
}

TEST_F(FolderListTest, ADriveWhoseCurrentFolderIsGoneShowsItsRoot) {
  const std::string other = OtherDrive();
  const CurrentFolderOfDrive current(other, other + "\\no such folder");
  EXPECT_TRUE(SetPath(other));
  EXPECT_EQ(Path(), other + "\\");
}

TEST_F(FolderListTest, WhatCannotBeListedLeavesEverythingAsItWas) {
  Make("sub");
  WriteBytes(PathOf("file"), "x");
  ASSERT_TRUE(SetPath(folder()));
  Select("sub");
  const Texts rows = ListRows();
  const int selected = Selected();
  const Texts paths{"",
                    "\\",
                    "sub",
                    "\\windows",
                    "K:",
                    "K:\\",
                    "K:\\sub",
                    "1:\\",
                    ":\\",
                    "C",
                    "\\\\server\\share\\folder",
                    "\\\\?\\C:\\windows",
                    "\\\\.\\C:",
                    PathOf("none"),
                    PathOf("sub\\none"),
                    PathOf("file"),
                    PathOf("su*"),
                    PathOf("s?b"),
                    PathOf("con"),
                    PathOf("<>|"),
                    PathOf(std::string(300, 'x')),
                    PathOf(std::string(40000, 'y'))};
  for (const std::string& path : paths) {
    EXPECT_FALSE(SetPath(path)) << path;
    EXPECT_EQ(Path(), folder()) << path;
    EXPECT_EQ(ListRows(), rows) << path;
    EXPECT_EQ(Selected(), selected) << path;
  }
}

TEST_F(FolderListTest, AFolderThatMayNotBeReadStaysClosed) {
  Make("locked");
  ASSERT_TRUE(SetPath(folder()));
  const LockedFile lock(PathOf("locked"), 0);
  Select("locked");
  EXPECT_FALSE(folders.OpenSelected());
  EXPECT_EQ(Path(), folder());
  EXPECT_EQ(RowsBelow(folder()), Texts{"locked"});
}

TEST_F(FolderListTest, OpensWhatIsSelected) {
  Make("one");
  Make("one\\two");
  Make("one\\three");
  ASSERT_TRUE(SetPath(folder()));
  Select("one");
  ASSERT_TRUE(folders.OpenSelected());
  EXPECT_EQ(Path(), PathOf("one"));
  EXPECT_EQ(RowsBelow(PathOf("one")), (Texts{"three", "two"}));
  Select("two");
  ASSERT_TRUE(folders.OpenSelected());
  EXPECT_EQ(Path(), PathOf("one\\two"));
  EXPECT_EQ(ListRows(), RowsDownTo(PathOf("one\\two")));
  Select("one");
  ASSERT_TRUE(folders.OpenSelected());
  EXPECT_EQ(Path(), PathOf("one"));
  SendMessageA(list_, LB_SETCURSEL, 0, 0);
  ASSERT_TRUE(folders.OpenSelected());
  EXPECT_EQ(Path(), folder().substr(0, 3));
  SendMessageA(list_, LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
  EXPECT_FALSE(folders.OpenSelected());
}

TEST_F(FolderListTest, EveryFolderOnTheWayCanBeOpened) {
  const Texts rows = RowsDownTo(folder());
  std::string path = rows[0];
  for (std::size_t row = 1; row < rows.size(); ++row) {
    path += (row == 1 ? "" : "\\") + rows[row];
    ASSERT_TRUE(SetPath(folder()));
    SendMessageA(list_, LB_SETCURSEL, row, 0);
    EXPECT_TRUE(folders.OpenSelected());
    EXPECT_EQ(Path(), path);
  }
}

TEST_F(FolderListTest, OpeningTheCurrentFolderReadsItAnew) {
  ASSERT_TRUE(SetPath(folder()));
  EXPECT_EQ(RowsBelow(folder()), Texts{});
  Make("new");
  ASSERT_TRUE(folders.OpenSelected());
  EXPECT_EQ(RowsBelow(folder()), Texts{"new"});
}

TEST_F(FolderListTest, AFolderThatIsGoneMeanwhileStaysClosed) {
  Make("gone");
  ASSERT_TRUE(SetPath(folder()));
  RemoveDirectoryA(PathOf("gone").c_str());
  Select("gone");
  EXPECT_FALSE(folders.OpenSelected());
  EXPECT_EQ(Path(), folder());
}

TEST_F(FolderListTest, TheWayUpIsOpenWhenTheCurrentFolderIsGone) {
  Make("gone");
  ASSERT_TRUE(SetPath(PathOf("gone")));
  RemoveDirectoryA(PathOf("gone").c_str());
  EXPECT_FALSE(folders.OpenSelected());
  EXPECT_EQ(Path(), PathOf("gone"));
  Select(RowsDownTo(folder()).back());
  EXPECT_TRUE(folders.OpenSelected());
  EXPECT_EQ(Path(), folder());
  EXPECT_EQ(RowsBelow(folder()), Texts{});
}

TEST_F(FolderListTest, OddNamesAreShownAndOpened) {
  const Texts names{"  leading blanks",
                    "%TEMP%",
                    "a & b",
                    testing_pages::ThisPage().bytes,
                    "comma, comma",
                    "...dots",
                    std::string(200, 'n')};
  for (const std::string& name : names) {
    Make(name);
    ASSERT_TRUE(SetPath(folder()));
    Select(name);
    EXPECT_TRUE(folders.OpenSelected()) << name;
    EXPECT_EQ(Path(), PathOf(name));
    EXPECT_EQ(ListRows().back(), name);
    RemoveDirectoryA(PathOf(name).c_str());
  }
}

TEST_F(FolderListTest, ANameOutsideTheCodePageIsShownAndOpened) {
  const std::wstring name = L"\u65E5\u672C\u0141";
  const std::wstring wide = WidePathOf(name);
  ASSERT_TRUE(CreateDirectoryW(wide.c_str(), nullptr));
  ASSERT_TRUE(CreateDirectoryW((wide + L"\\inside").c_str(), nullptr));
  ASSERT_TRUE(SetPath(folder()));
  ASSERT_EQ(RowsBelow(folder()).size(), 1U);
  const int row = static_cast<int>(ListRows().size()) - 1;
  EXPECT_EQ(win32::ListText(list_, row), name);
  SendMessageA(list_, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
  ASSERT_TRUE(folders.OpenSelected());
  EXPECT_EQ(folders.Path(), wide);
  EXPECT_EQ(ListRows().back(), "inside");
}

TEST_F(FolderListTest, GoesDownAsFarAsPathsMayBeLong) {
  const std::string name(60, 'd');
  std::wstring wide = L"\\\\?\\" + win32::ToText(folder());
  for (int depth = 0; depth < 10; ++depth) {
    wide += L"\\" + std::wstring(name.begin(), name.end());
    ASSERT_TRUE(CreateDirectoryW(wide.c_str(), nullptr));
  }
  ASSERT_TRUE(SetPath(folder()));
  int opened = 0;
  for (;; ++opened) {
    const std::string before = Path();
    SendMessageA(list_, LB_SETCURSEL,
                 static_cast<WPARAM>(SendMessageA(list_, LB_GETCOUNT, 0, 0) - 1), 0);
    if (!folders.OpenSelected() || Path() == before) {
      break;
    }
    EXPECT_EQ(Path(), before + "\\" + name);
  }
  EXPECT_GE(opened, 1);
  EXPECT_LT(Path().size(), 1000U);
  // The list still works.
  ASSERT_TRUE(SetPath(folder()));
  EXPECT_EQ(RowsBelow(folder()), Texts{name});
  while (wide.size() > win32::ToText(folder()).size() + 4) {
    RemoveDirectoryW(wide.c_str());
    wide.resize(wide.size() - name.size() - 1);
  }
}

TEST_F(FolderListTest, ManyFoldersAreAllThere) {
  for (int number = 0; number < 1000; ++number) {
    Make("folder " + std::to_string(number));
  }
  ASSERT_TRUE(SetPath(folder()));
  EXPECT_EQ(RowsBelow(folder()).size(), 1000U);
}

}  // namespace
