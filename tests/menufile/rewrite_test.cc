// Tests the bytes of a menu file after each change.
#include "menufile/rewrite.h"

#include <gtest/gtest.h>

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

TEST(MoveUp, AndDownAgainGivesTheSameBytes) {
  for (std::size_t row = 1; row < 6; ++row) {
    EXPECT_EQ(UserMenu(6),
              Rewritten(Rewritten(UserMenu(6), Kind::MoveUp, row), Kind::MoveDown, row - 1));
  }
}

TEST(Rewrite, OfAListWritesTheseEntries) {
  const std::string separator(kSeparatorLine);
  const struct {
    const char* rule;
    Kind kind;
    std::size_t row;
    std::string before;
    std::string after;
  } kChanges[] = {
      {"up: exchanged with the one before", Kind::MoveUp, 1, Items({0, 1, 2, 3}),
       Items({1, 0, 2, 3})},
      {"up: exchanged with the one before", Kind::MoveUp, 2, Items({0, 1, 2, 3}),
       Items({0, 2, 1, 3})},
      {"up: exchanged with the one before", Kind::MoveUp, 3, Items({0, 1, 2, 3}),
       Items({0, 1, 3, 2})},
      {"down: exchanged with the next", Kind::MoveDown, 0, Items({0, 1, 2, 3}),
       Items({1, 0, 2, 3})},
      {"down: exchanged with the next", Kind::MoveDown, 1, Items({0, 1, 2, 3}),
       Items({0, 2, 1, 3})},
      {"down: exchanged with the next", Kind::MoveDown, 2, Items({0, 1, 2, 3}),
       Items({0, 1, 3, 2})},
      {"down: an empty one comes from after the end", Kind::MoveDown, 1, Items({0, 1}),
       Items({0}) + separator + Items({1})},
      {"deleted: nothing remains after the end", Kind::Delete, 0, Items({0, 1, 2}), Items({1, 2})},
      {"deleted: nothing remains after the end", Kind::Delete, 1, Items({0, 1, 2}), Items({0, 2})},
      {"deleted: nothing remains after the end", Kind::Delete, 2, Items({0, 1, 2}), Items({0, 1})},
      {"deleted: the only one", Kind::Delete, 0, Items({0}), ""},
      {"separator: before the entry", Kind::Separator, 0, Items({0, 1}), separator + Items({0, 1})},
      {"separator: before the entry", Kind::Separator, 1, Items({0, 1}),
       Items({0}) + separator + Items({1})},
      {"separator: next to another", Kind::Separator, 2, Items({0, 1, 2, 3}),
       Items({0, 1}) + separator + Items({2, 3})},
      {"edited: four fields are replaced, and the icon is kept", Kind::Edit, 1, Items({0, 1, 2}),
       Items({0}) +
           "\"Edited, anew\",\"C:\\tools\\edited.exe\",\"/edited\",\"C:\\tools\","
           "\"C:\\icons.dll\",1\r\n" +
           Items({2})},
      {"icon: the last two fields are replaced", Kind::ChangeIcon, 1, Items({0, 1}),
       Items({0}) + "\"Icon\",\"C:\\t.exe\",\"\",\"\",\"C:\\icons\\new.icl\",12\r\n"},
      {"too few fields: one line with the next", Kind::Keep, 0, "a,b\r\nc,d,e,6\r\n",
       "\"a\",\"b\",\"c\",\"d\",\"e\",6\r\n"},
      // What follows is for changes that ignore failures.
      {"a blank last line: a separator", Kind::MoveUp, 1, Items({0, 1}) + "\r\n",
       Items({1, 0}) + separator},
      {"an unclosed quote: nothing is lost", Kind::MoveUp, 1, Items({0, 1}) + "\"a\",\"b, c\r\n",
       Items({1, 0}) + "\"a\",\"b, c\r\n\",\"\",\"\",\"\",\r\n"},
      {"no icon index: it stays empty", Kind::MoveUp, 1,
       Items({0, 1}) + "\"a\",\"b\",\"c\",\"d\",\"e\",",
       Items({1, 0}) + "\"a\",\"b\",\"c\",\"d\",\"e\",\r\n"},
      {"no icon index: it stays empty", Kind::MoveUp, 1,
       Items({0, 1}) + "\"a\",\"b\",\"c\",\"d\",\"e\"",
       Items({1, 0}) + "\"a\",\"b\",\"c\",\"d\",\"e\",\r\n"}};
  for (const auto& change : kChanges) {
    EXPECT_EQ(kHead + change.after, Rewritten(kHead + change.before, change.kind, change.row))
        << change.rule;
  }
}

TEST(Edit, KeepsWhateverTypeLineThereIs) {
  for (const char* keyword : {"USERDEF", "DIRPOINT", "", "other\r\nkind"}) {
    const std::string menu = std::string(kMarker) + '"' + keyword + "\"\r\n" +
                             std::string(kAppearanceLine) + Items({0, 1});
    UserChange nothing = SampleChange(Kind::Edit, 99);
    EXPECT_EQ(menu, Rewritten(menu, nothing));
  }
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
  MemoryFiles files(kMenuPath, DirectoryMenu());
  EXPECT_EQ(
      "Cannot read entry 1, field iconIndex, of the file:\nC:\\menus\\a.menu\n\n"
      "The file ends too early (at byte offset " +
          std::to_string(DirectoryMenu().size()) + ").",
      FailureOf([&] { Make(files, kMenuPath, SampleChange(Kind::SaveAppearance)); }));
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
  MemoryFiles files(kMenuPath, UserMenu(5));
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

TEST(Rewrite, ABlankLastLineFailsOtherwise) {
  MemoryFiles files(kMenuPath, UserMenu(1) + "\r\n");
  EXPECT_THROW(Make(files, kMenuPath, SampleChange(Kind::Edit, 0)), Failure);
  EXPECT_EQ(UserMenu(1) + "\r\n", files.Get(kMenuPath));
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
  EXPECT_EQ("Cannot open the file:\nC:\\menus\\a.menu\n\nThere is no such file.",
            FailureOf([&] { Make(files, kMenuPath, SampleChange(Kind::Edit)); }));
  EXPECT_EQ(std::nullopt, files.Get(kMenuPath));
  EXPECT_EQ(std::nullopt, files.Get("zoltempfileoktodelete"));
}

TEST(Rewrite, AMissingMenuFileIsNotMadeWhereFailuresAreIgnored) {
  MemoryFiles files;
  Make(files, kMenuPath, SampleChange(Kind::MoveUp, 1));
  EXPECT_EQ(std::nullopt, files.Get(kMenuPath));
  EXPECT_EQ(std::nullopt, files.Get("temporaryfile"));
}

TEST(Rewrite, AMenuNamedLikeTheScratchFileStays) {
  for (const Kind kind : {Kind::MoveUp, Kind::Edit, Kind::SaveDirectory, Kind::SaveAppearance}) {
    const std::string path = ScratchFileOf(kind);
    const std::string menu = kHead + Items({1, 2, 3});
    MemoryFiles files(path, menu);
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
