// Tests the bytes of a menu file after each change.
#include "menufile/rewrite.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "menufile/failure.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"
#include "tests/menufile/user_change.h"

namespace menufile {
namespace {

using namespace std::string_literals;
using Kind = UserChange::Kind;

const std::string kHead =
    SamplePicture() + std::string(kMarker) + "\"USERDEF\"\r\n" + std::string(kAppearanceLine);
const std::string kPointerHead =
    SamplePicture() + std::string(kMarker) + "\"DIRPOINT\"\r\n" + std::string(kAppearanceLine);

// The menu file after the change. Fails if a scratch file is left.
std::string Rewritten(const std::string& menu, const UserChange& operation) {
  MemoryFiles files;
  files.Put(kMenuPath, menu);
  Make(files, kMenuPath, operation);
  EXPECT_EQ(std::nullopt, files.Get(ScratchFileOf(operation.kind)));
  return files.Get(kMenuPath).value_or("(none)");
}

std::string Rewritten(const std::string& menu, Kind kind, std::size_t row = 0) {
  return Rewritten(menu, SampleChange(kind, row));
}

std::string Items(std::vector<int> numbers) {
  std::string items;
  for (int number : numbers) {
    items += ItemLine(number);
  }
  return items;
}

TEST(Keep, GivesBackAMenuByteForByte) {
  for (int items : {0, 1, 2, 3, 12}) {
    EXPECT_EQ(UserMenu(items), Rewritten(UserMenu(items), Kind::Keep));
    EXPECT_EQ(UserMenu(items, ""), Rewritten(UserMenu(items, ""), Kind::Keep));
  }
}

TEST(MoveUp, ExchangesTheEntryWithTheOneBeforeIt) {
  EXPECT_EQ(kHead + Items({1, 0, 2, 3}), Rewritten(UserMenu(4), Kind::MoveUp, 1));
  EXPECT_EQ(kHead + Items({0, 2, 1, 3}), Rewritten(UserMenu(4), Kind::MoveUp, 2));
  EXPECT_EQ(kHead + Items({0, 1, 3, 2}), Rewritten(UserMenu(4), Kind::MoveUp, 3));
}

TEST(MoveDown, ExchangesTheEntryWithTheOneAfterIt) {
  EXPECT_EQ(kHead + Items({1, 0, 2, 3}), Rewritten(UserMenu(4), Kind::MoveDown, 0));
  EXPECT_EQ(kHead + Items({0, 2, 1, 3}), Rewritten(UserMenu(4), Kind::MoveDown, 1));
  EXPECT_EQ(kHead + Items({0, 1, 3, 2}), Rewritten(UserMenu(4), Kind::MoveDown, 2));
}

TEST(MoveUp, AndDownAgainGivesTheSameBytes) {
  for (std::size_t row = 1; row < 6; ++row) {
    EXPECT_EQ(UserMenu(6),
              Rewritten(Rewritten(UserMenu(6), Kind::MoveUp, row), Kind::MoveDown, row - 1));
  }
}

TEST(MoveDown, OfTheLastEntryTakesAnEmptyOneFromAfterTheEnd) {
  EXPECT_EQ(kHead + Items({0}) + std::string(kSeparatorLine) + Items({1}),
            Rewritten(UserMenu(2), Kind::MoveDown, 1));
}

TEST(Delete, DropsTheEntryAndNothingRemainsAfterTheEnd) {
  EXPECT_EQ(kHead + Items({1, 2}), Rewritten(UserMenu(3), Kind::Delete, 0));
  EXPECT_EQ(kHead + Items({0, 2}), Rewritten(UserMenu(3), Kind::Delete, 1));
  EXPECT_EQ(kHead + Items({0, 1}), Rewritten(UserMenu(3), Kind::Delete, 2));
}

TEST(Delete, OfTheOnlyEntryLeavesTheLinesThatEveryMenuHas) {
  EXPECT_EQ(kHead, Rewritten(UserMenu(1), Kind::Delete, 0));
}

TEST(Separator, StandsBeforeTheEntry) {
  EXPECT_EQ(kHead + std::string(kSeparatorLine) + Items({0, 1}),
            Rewritten(UserMenu(2), Kind::Separator, 0));
  EXPECT_EQ(kHead + Items({0}) + std::string(kSeparatorLine) + Items({1}),
            Rewritten(UserMenu(2), Kind::Separator, 1));
}

TEST(Separator, MayStandNextToAnother) {
  EXPECT_EQ(kHead + Items({0, 1}) + std::string(kSeparatorLine) + Items({2, 3}),
            Rewritten(UserMenu(4), Kind::Separator, 2));
}

TEST(Edit, ReplacesFourFieldsAndKeepsTheIcon) {
  EXPECT_EQ(kHead + Items({0}) +
                "\"Edited, anew\",\"C:\\tools\\edited.exe\",\"/edited\",\"C:\\tools\","
                "\"C:\\icons.dll\",1\r\n" +
                Items({2}),
            Rewritten(UserMenu(3), Kind::Edit, 1));
}

TEST(Edit, KeepsWhateverTypeLineThereIs) {
  for (const char* keyword : {"USERDEF", "DIRPOINT", "", "other\r\nkind"}) {
    const std::string menu = std::string(kMarker) + '"' + keyword + "\"\r\n" +
                             std::string(kAppearanceLine) + Items({0, 1});
    UserChange nothing = SampleChange(Kind::Edit, 99);
    EXPECT_EQ(menu, Rewritten(menu, nothing));
  }
}

TEST(ChangeIcon, ReplacesTheLastTwoFields) {
  EXPECT_EQ(kHead + Items({0}) + "\"Icon\",\"C:\\t.exe\",\"\",\"\",\"C:\\icons\\new.icl\",12\r\n",
            Rewritten(UserMenu(2), Kind::ChangeIcon, 1));
}

TEST(ChangeIcon, ToTheCaptionEmptiesTheIconFile) {
  UserChange operation = SampleChange(Kind::ChangeIcon, 1);
  operation.iconFile = "Icon";
  EXPECT_EQ(kHead + Items({0}) + "\"Icon\",\"C:\\t.exe\",\"\",\"\",\"\",12\r\n",
            Rewritten(UserMenu(2), operation));
  operation.iconFile = "icon";
  EXPECT_EQ(kHead + Items({0}) + "\"Icon\",\"C:\\t.exe\",\"\",\"\",\"icon\",12\r\n",
            Rewritten(UserMenu(2), operation));
}

TEST(SaveAppearance, ReplacesThePictureAndTheAppearanceLine) {
  const UserChange operation = SampleChange(Kind::SaveAppearance);
  EXPECT_EQ(operation.appearance.picture +
                "\r\n<START ZOL>\r\n\"USERDEF\"\r\n1,\"Courier New\",10,-1,0\r\n" +
                Items({0, 1, 2, 3}),
            Rewritten(UserMenu(4), operation));
}

TEST(SaveAppearance, WritesTheTypeLineAsUserDefinedWhateverItWas) {
  const UserChange operation = SampleChange(Kind::SaveAppearance);
  EXPECT_EQ(
      operation.appearance.picture +
          "\r\n<START ZOL>\r\n\"USERDEF\"\r\n1,\"Courier New\",10,-1,0\r\n" + Items({0}),
      Rewritten(std::string(kMarker) + "\"DIRPOINT\"\r\n" + PreviousVersionMenu(1), operation));
}

TEST(SaveAppearance, OfADirectoryPointerFailsAndLeavesTheMenu) {
  MemoryFiles files;
  files.Put(kMenuPath, DirectoryMenu());
  try {
    const UserChange operation = SampleChange(Kind::SaveAppearance);
    Make(files, kMenuPath, operation);
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_EQ(
        "Cannot read entry 1, field iconIndex, of the file:\nC:\\menus\\a.menu\n\n"
        "The file ends too early (at byte offset " +
            std::to_string(DirectoryMenu().size()) + ").",
        failure.what());
  }
  EXPECT_EQ(DirectoryMenu(), files.Get(kMenuPath));
  EXPECT_EQ("\r\n<START ZOL>\r\n\"USERDEF\"\r\n1,\"Courier New\",10,-1,0\r\n",
            files.Get("zoltempfileoktodelete"));
}

TEST(SaveDirectory, WritesTheRecordAfterTheAppearanceAsRead) {
  const std::string expected = kPointerHead + "\"D:\\new folder\\\",\"*.txt\",0,0,1\r\n";
  EXPECT_EQ(expected, Rewritten(DirectoryMenu(), Kind::SaveDirectory));
  EXPECT_EQ(expected, Rewritten(UserMenu(4), Kind::SaveDirectory));
}

TEST(SaveDirectory, StoresEmptyTexts) {
  UserChange operation = SampleChange(Kind::SaveDirectory);
  operation.directory.folderPath = "";
  operation.directory.filePattern = "";
  EXPECT_EQ(kPointerHead + "\"\",\"\",0,0,1\r\n", Rewritten(DirectoryMenu(), operation));
}

TEST(SwitchToDirectory, DropsTheItemsForTheDefaultFolder) {
  EXPECT_EQ(kPointerHead + "\"C:\\\",\"*.*\",1,0,0\r\n",
            Rewritten(UserMenu(4), Kind::SwitchToDirectory));
}

TEST(SwitchToUserDefined, LeavesNoItems) {
  EXPECT_EQ(kHead, Rewritten(DirectoryMenu(), Kind::SwitchToUserDefined));
}

TEST(SwitchToUserDefined, ReadsNothingAfterTheAppearance) {
  EXPECT_EQ(kHead, Rewritten(kPointerHead + "\"cut", Kind::SwitchToUserDefined));
}

TEST(Rewrite, CountsCallsOfTheRuleNotRecords) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(5));
  std::vector<std::size_t> counters;
  MenuChange change;
  change.recordRule = [&](std::size_t counter, const MenuItemRecord& record, RecordStream& out) {
    counters.push_back(counter);
    out.Write(record);
    if (counter == 1) {
      out.Write(out.ReadNext());
    }
  };
  MenuFile menu(files, kMenuPath);
  EXPECT_EQ(ChangeResult::Made, RewriteMenuFile(menu, change));
  EXPECT_EQ((std::vector<std::size_t>{0, 1, 2, 3}), counters);
  EXPECT_EQ(UserMenu(5), files.Get(kMenuPath));
}

TEST(Rewrite, BringsFieldsIntoTheWritersForm) {
  const std::string menu =
      "\r\n<START ZOL>\r\n USERDEF \r\n 01 , Tahoma , 8.250 , -1 , +0 \r\n"
      "a, \"b\" c , 007 , 1e3 ,, .5 \r\n"
      "\"x\",nan,1e999,-inf,\"\",2.50\n"
      "\"usual\",\"\",\"\",\"\",\"\",007\r\n"
      "\"1,2\",\"\r\n\",,,,\"  q \"";
  EXPECT_EQ(
      "\r\n<START ZOL>\r\n\"USERDEF\"\r\n1,\"Tahoma\",8.25,-1,0\r\n"
      "\"a\",\"b\",\"7\",\"1000\",\"\",0.5\r\n"
      "\"x\",\"nan\",\"1e999\",\"-inf\",\"\",2.5\r\n"
      "\"usual\",\"\",\"\",\"\",\"\",7\r\n"
      "\"1,2\",\"\r\n\",\"\",\"\",\"\",  q \r\n",
      Rewritten(menu, Kind::Keep));
}

TEST(Rewrite, KeepsAFontSizeThatIsText) {
  const std::string menu = std::string(kMarker) + "\"USERDEF\"\r\n0,\"T\",large,,\r\n";
  EXPECT_EQ(menu, Rewritten(menu, Kind::Keep));
  EXPECT_EQ(std::string(kMarker) + "\"USERDEF\"\r\n0,\"T\",8,large,\r\n",
            Rewritten(std::string(kMarker) + "\"USERDEF\"\r\n0,\"T\",\"8\",\"large\",\"\"\r\n",
                      Kind::Keep));
}

TEST(Rewrite, WritesALineWithTooFewFieldsTogetherWithTheNext) {
  EXPECT_EQ(kHead + "\"a\",\"b\",\"c\",\"d\",\"e\",6\r\n",
            Rewritten(kHead + "a,b\r\nc,d,e,6\r\n", Kind::Keep));
}

TEST(Rewrite, ABlankLastLineBecomesASeparatorWhereFailuresAreIgnored) {
  EXPECT_EQ(kHead + Items({1, 0}) + std::string(kSeparatorLine),
            Rewritten(UserMenu(2) + "\r\n", Kind::MoveUp, 1));
}

TEST(Rewrite, ABlankLastLineFailsOtherwise) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(1) + "\r\n");
  const UserChange operation = SampleChange(Kind::Edit, 0);
  EXPECT_THROW(Make(files, kMenuPath, operation), Failure);
  EXPECT_EQ(UserMenu(1) + "\r\n", files.Get(kMenuPath));
}

TEST(Rewrite, AnUnclosedQuoteLosesNothingWhereFailuresAreIgnored) {
  EXPECT_EQ(kHead + Items({1, 0}) + "\"a\",\"b, c\r\n\",\"\",\"\",\"\",\r\n",
            Rewritten(UserMenu(2) + "\"a\",\"b, c\r\n", Kind::MoveUp, 1));
}

TEST(Rewrite, AnItemWithoutIconIndexAtTheEndOfTheFileKeepsItEmpty) {
  EXPECT_EQ(kHead + Items({1, 0}) + "\"a\",\"b\",\"c\",\"d\",\"e\",\r\n",
            Rewritten(UserMenu(2) + "\"a\",\"b\",\"c\",\"d\",\"e\",", Kind::MoveUp, 1));
  EXPECT_EQ(kHead + Items({1, 0}) + "\"a\",\"b\",\"c\",\"d\",\"e\",\r\n",
            Rewritten(UserMenu(2) + "\"a\",\"b\",\"c\",\"d\",\"e\"", Kind::MoveUp, 1));
}

TEST(Rewrite, AQuoteInATextShiftsTheFieldsAfterIt) {
  UserChange operation = SampleChange(Kind::Edit, 0);
  operation.texts.caption = "6\" nails";
  const std::string once = Rewritten(UserMenu(1), operation);
  EXPECT_EQ(kHead + "\"6\" nails\",\"C:\\tools\\edited.exe\",\"/edited\",\"C:\\tools\",\"\",0\r\n",
            once);
  EXPECT_EQ(kHead + "\"6\",\"C:\\tools\\edited.exe\",\"/edited\",\"C:\\tools\",\"\",0\r\n",
            Rewritten(once, Kind::Keep));
}

TEST(Rewrite, AMissingMenuFileFailsAndIsNotMade) {
  MemoryFiles files;
  const UserChange operation = SampleChange(Kind::Edit);
  try {
    Make(files, kMenuPath, operation);
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_STREQ("Cannot open the file:\nC:\\menus\\a.menu\n\nThere is no such file.",
                 failure.what());
  }
  EXPECT_EQ(std::nullopt, files.Get(kMenuPath));
  EXPECT_EQ(std::nullopt, files.Get("zoltempfileoktodelete"));
}

TEST(Rewrite, AMissingMenuFileIsNotMadeWhereFailuresAreIgnored) {
  MemoryFiles files;
  const UserChange operation = SampleChange(Kind::MoveUp, 1);
  Make(files, kMenuPath, operation);
  EXPECT_EQ(std::nullopt, files.Get(kMenuPath));
  EXPECT_EQ(std::nullopt, files.Get("temporaryfile"));
}

TEST(Rewrite, AMenuNamedLikeTheScratchFileStays) {
  for (const Kind kind : {Kind::MoveUp, Kind::Edit, Kind::SaveDirectory, Kind::SaveAppearance}) {
    const std::string path = ScratchFileOf(kind);
    const std::string menu = kHead + Items({1, 2, 3});
    MemoryFiles files;
    files.Put(path, menu);
    if (IgnoresFailures(kind)) {
      EXPECT_EQ(ChangeResult::Failed, Make(files, path, SampleChange(kind, 1)));
    } else {
      EXPECT_THROW(Make(files, path, SampleChange(kind, 1)), Failure);
    }
    EXPECT_EQ(menu, files.Get(path));
  }
}

}  // namespace
}  // namespace menufile
