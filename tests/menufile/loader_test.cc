
#include <gtest/gtest.h>

#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using namespace std::string_literals;
using End = LoadedMenu::End;

const Shown kAppearanceShown = {"appearance", "N:1", "T:Tahoma", "N:8.25", "N:-1", "N:0"};

LoadedMenu Menu(std::vector<Shown> shown) { return {std::move(shown), End::Menu, ""}; }

LoadedMenu Failed(std::vector<Shown> shown, const std::string& what, std::size_t offset) {
  return {std::move(shown), End::Failed,
          "Cannot read " + what + " of the file:\nC:\\menus\\a.menu\n\n" +
              "The file ends too early (at byte offset " + std::to_string(offset) + ")."};
}

TEST(LoadMenuFile, ShowsAppearanceThenItemsInOrder) {
  EXPECT_EQ(Menu({kAppearanceShown,
                  {"item", "0", "T:Caption 0", "T:C:\\dir\\tool0.exe", "T:/a, /b", "T:C:\\dir",
                   "T:", "N:0"},
                  {"item", "1", "T:Icon", "T:C:\\t.exe", "T:", "T:", "T:C:\\icons.dll", "N:1"},
                  {"item", "2", "T:", "T:", "T:", "T:", "T:", "E"},
                  {"item", "3", "T:Address 3", "T:http://host/<path>", "T:", "T:", "T:", "N:-1"}}),
            LoadBytes(UserMenu(4)));
}

TEST(LoadMenuFile, AMenuWithoutItemsShowsTheAppearanceOnly) {
  EXPECT_EQ(Menu({kAppearanceShown}), LoadBytes(UserMenu(0)));
}

TEST(LoadMenuFile, ShowsADirectoryPointer) {
  EXPECT_EQ(
      Menu({kAppearanceShown, {"directory", "T:D:\\music\\", "T:*.mp3", "N:1", "N:0", "N:1"}}),
      LoadBytes(DirectoryMenu()));
}

TEST(LoadMenuFile, ADirectoryPointerEndsWithItsFifthField) {
  EXPECT_EQ(LoadBytes(DirectoryMenu()), LoadBytes(DirectoryMenu() + "\r\n1,2"));
}

TEST(LoadMenuFile, AnotherKeywordShowsTheAppearanceOnly) {
  for (const char* keyword : {"\"OTHER\"", "\"userdef\"", "\"USERDEF \"", "\"\"", "", "0", "DIR"}) {
    EXPECT_EQ(Menu({kAppearanceShown}),
              LoadBytes(std::string(kMarker) + keyword + "\r\n" + std::string(kAppearanceLine) +
                        "rest that is no record"))
        << keyword;
  }
}

TEST(LoadMenuFile, TheKeywordNeedsNoQuotes) {
  EXPECT_EQ(LoadBytes(UserMenu(1, "")),
            LoadBytes(std::string(kMarker) + " USERDEF\r\n" + PreviousVersionMenu(1)));
}

TEST(LoadMenuFile, ThePictureMayBeEmpty) {
  EXPECT_EQ(LoadBytes(UserMenu(3)), LoadBytes(UserMenu(3, "")));
}

TEST(LoadMenuFile, APictureWithTheMarkerLineIsSplitThere) {
  EXPECT_EQ(Failed({}, "the type line, field menu type,", 16), LoadBytes("x\r\n<START ZOL>\r\n"));
  EXPECT_EQ(Menu({{"appearance", "T:b", "T:c", "E", "T:<START ZOL>", "T:USERDEF"}}),
            LoadBytes("x\r\n<START ZOL>\r\na,b,c\r\n\r\n<START ZOL>\r\n\"USERDEF\"\r\n1,2"));
}

TEST(LoadMenuFile, ACompleteLineAfterTheLastRecordIsARow) {
  EXPECT_EQ(LoadBytes(UserMenu(3)), LoadBytes(UserMenu(2) + ItemLine(2)));
  LoadedMenu expected = LoadBytes(UserMenu(2));
  expected.shown.push_back({"item", "2", "E", "E", "E", "E", "E", "E"});
  EXPECT_EQ(expected, LoadBytes(UserMenu(2) + ",,,,,\r\n"));
}

TEST(LoadMenuFile, ABlankLineAfterTheLastRecordFails) {
  const std::string menu = UserMenu(1) + "\r\n";
  const LoadedMenu whole = LoadBytes(UserMenu(1));
  EXPECT_EQ(Failed(whole.shown, "entry 2, field target,", menu.size()), LoadBytes(menu));
}

TEST(LoadMenuFile, BytesThatAreTooFewAfterTheLastRecordFail) {
  const LoadedMenu whole = LoadBytes(UserMenu(1));
  const std::string menu = UserMenu(1) + "\"a\",\"b\",\"c\",\"d\",\"e\",";
  EXPECT_EQ(Failed(whole.shown, "entry 2, field iconIndex,", menu.size()), LoadBytes(menu));
  EXPECT_EQ(Failed(whole.shown, "entry 2, field caption,", UserMenu(1).size() + 1),
            LoadBytes(UserMenu(1) + " "));
}

TEST(LoadMenuFile, AMissingFileIsAFailureAndIsNotMade) {
  MemoryFiles files;
  EXPECT_EQ((LoadedMenu{{},
                        End::Failed,
                        "Cannot open the file:\nC:\\menus\\a.menu\n\n"
                        "There is no such file."}),
            Load(files));
  EXPECT_EQ(std::nullopt, files.Get(kMenuPath));
}

TEST(LoadMenuFile, ReadsTheFileOnceAndLeavesItAsItWas) {
  MemoryFiles files(kMenuPath, UserMenu(5));
  EXPECT_EQ(End::Menu, Load(files).end);
  EXPECT_EQ(UserMenu(5), files.Get(kMenuPath));
  EXPECT_EQ((std::vector<std::string>{"open to read C:\\menus\\a.menu", "read C:\\menus\\a.menu"}),
            files.log());
}

TEST(LoadMenuFile, AFileThatAnotherProgramHoldsStillLoads) {
  MemoryFiles files(kMenuPath, UserMenu(5));
  files.HoldByOther(kMenuPath);
  EXPECT_EQ(LoadBytes(UserMenu(5)), Load(files));
}

TEST(LoadMenuFile, AFileThatCannotBeReadIsAFailure) {
  for (std::size_t operation : {1u, 2u}) {
    MemoryFiles files(kMenuPath, UserMenu(5));
    files.SetFault({operation, Fault::Kind::FailsOnce, Fault::Done::Nothing});
    EXPECT_EQ((LoadedMenu{{},
                          End::Failed,
                          "Cannot use the file:\nC:\\menus\\a.menu\n\n"
                          "The disk does not answer."}),
              Load(files));
  }
}

TEST(LoadMenuFile, AsksForAFileWithoutMarkerAndLeavesItOnNo) {
  for (const std::string& bytes :
       {""s, "x"s, PreviousVersionMenu(3), "\"USERDEF\"\r\n" + PreviousVersionMenu(1),
        SamplePicture(), "\r\n <START ZOL>\r\n"s}) {
    MemoryFiles files(kMenuPath, bytes);
    EXPECT_EQ((LoadedMenu{{{"question", "no"}}, End::Declined, ""}), Load(files));
    EXPECT_EQ(bytes, files.Get(kMenuPath));
    EXPECT_EQ(2u, files.operations());
  }
}

TEST(LoadMenuFile, ConvertsAPreviousVersionOnYesAndShowsIt) {
  MemoryFiles files(kMenuPath, PreviousVersionMenu(4));
  LoadedMenu expected = LoadBytes(UserMenu(4));
  expected.shown.insert(expected.shown.begin(), {"question", "yes"});
  EXPECT_EQ(expected, Load(files, 1, SamplePicture()));
  EXPECT_EQ(UserMenu(4), files.Get(kMenuPath));
}

TEST(LoadMenuFile, AsksAgainWhileTheFileCannotBeWritten) {
  MemoryFiles files(kMenuPath, PreviousVersionMenu(4));
  files.HoldByOther(kMenuPath);
  EXPECT_EQ((LoadedMenu{
                {{"question", "yes"}, {"question", "yes"}, {"question", "no"}}, End::Declined, ""}),
            Load(files, 2, SamplePicture()));
  EXPECT_EQ(PreviousVersionMenu(4), files.Get(kMenuPath));
}

TEST(LoadMenuFile, AConvertedFileThatIsNoPreviousVersionFails) {
  MemoryFiles files(kMenuPath, "");
  EXPECT_EQ(Failed({{"question", "yes"}}, "the appearance line, field smallIcons,",
                   3 + kMarker.size() + 11),
            Load(files, 1, "ico"));
  EXPECT_EQ("ico\r\n<START ZOL>\r\n\"USERDEF\"\r\n", files.Get(kMenuPath));
}

TEST(ReadMenuEntry, TakesTheEntryOfThatNumber) {
  MemoryFiles files(kMenuPath, UserMenu(5));
  MenuFile menu(files, kMenuPath);
  EXPECT_EQ("Caption 0", ReadMenuEntry(menu, 0)->caption);
  EXPECT_EQ("C:\\t.exe", ReadMenuEntry(menu, 1)->target);
  EXPECT_EQ("C:\\icons.dll", ReadMenuEntry(menu, 1)->iconFile);
  EXPECT_EQ("1", ReadMenuEntry(menu, 1)->iconIndex);
  EXPECT_EQ("", ReadMenuEntry(menu, 2)->caption);
  EXPECT_EQ("http://host/<path>", ReadMenuEntry(menu, 3)->target);
}

TEST(ReadMenuEntry, OfANumberThatTheMenuDoesNotHaveIsAFailure) {
  MemoryFiles files(kMenuPath, UserMenu(2));
  MenuFile menu(files, kMenuPath);
  EXPECT_EQ(Failed({}, "entry 3, field caption,", UserMenu(2).size()).message,
            FailureOf([&] { ReadMenuEntry(menu, 2); }));
}

}  // namespace
}  // namespace menufile
