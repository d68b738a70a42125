// Tests how fields and records are read after the marker line.
#include "menufile/reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "menufile/failure.h"

namespace menufile {
namespace {

using namespace std::string_literals;
using PastEnd = MenuReader::PastEnd;

std::string Tell(const Value& value) {
  const char* const kKinds[] = {"empty", "number ", "text "};
  return kKinds[static_cast<int>(value.kind())] + value.Text();
}

// Reads one field and returns its kind and value. `rest` gets the bytes after it.
std::string ReadOne(std::string_view bytes, std::string* rest = nullptr) {
  MenuReader reader(bytes, "a.menu");
  const std::string told = Tell(reader.ReadTypeLine());
  if (rest != nullptr) {
    *rest = bytes.substr(reader.offset());
  }
  return told;
}

std::string RestAfterOne(std::string_view bytes) {
  std::string rest;
  ReadOne(bytes, &rest);
  return rest;
}

std::vector<std::string> Tell(const MenuItemRecord& r) {
  return {Tell(r.caption), Tell(r.target),   Tell(r.arguments),
          Tell(r.startIn), Tell(r.iconFile), Tell(r.iconIndex)};
}

std::string MessageOf(MenuReader& reader, void (*read)(MenuReader&)) {
  try {
    read(reader);
  } catch (const Failure& failure) {
    EXPECT_EQ("C:\\a.menu", failure.path());
    return failure.what();
  }
  return "read";
}

TEST(Field, SpacesBeforeItAreSkipped) {
  EXPECT_EQ("text a", ReadOne("   \"a\"\r\n"));
  EXPECT_EQ("number 7", ReadOne("  7\r\n"));
}

TEST(Field, TabsBeforeItBelongToIt) {
  EXPECT_EQ("text \t7", ReadOne("\t7\r\n"));
  EXPECT_EQ("text \t\"a\"", ReadOne("\t\"a\"\r\n"));
}

TEST(Field, QuotedKeepsEveryByteBetweenTheQuotes) {
  EXPECT_EQ("text  a, b \r\n\0\xff "s, ReadOne("\" a, b \r\n\0\xff \",x"s));
}

TEST(Field, QuotedMayBeEmpty) {
  EXPECT_EQ("text ", ReadOne("\"\",x"));
  EXPECT_EQ("x", RestAfterOne("\"\",x"));
}

TEST(Field, BytesAfterTheClosingQuoteAreSkipped) {
  EXPECT_EQ("text a", ReadOne("\"a\" b \"c\",x"));
  EXPECT_EQ("x", RestAfterOne("\"a\" b \"c\",x"));
  EXPECT_EQ("x", RestAfterOne("\"a\" b\r\nx"));
  EXPECT_EQ("x", RestAfterOne("\"a\" b\nx"));
  EXPECT_EQ("", RestAfterOne("\"a\" b"));
}

TEST(Field, ThereIsNoEscapeForAQuote) {
  MenuReader reader("\"say \"hi, you\"\",2,3,4,5,6\r\n", "a.menu");
  EXPECT_EQ((std::vector<std::string>{"text say ", "text you\"\"", "number 2", "number 3",
                                      "number 4", "number 5"}),
            Tell(reader.ReadItem()));
}

TEST(Field, BareEndsAtCommaCrOrLf) {
  EXPECT_EQ("text a", ReadOne("a,x"));
  EXPECT_EQ("x", RestAfterOne("a,x"));
  EXPECT_EQ("x", RestAfterOne("a\rx"));
  EXPECT_EQ("x", RestAfterOne("a\nx"));
  EXPECT_EQ("x", RestAfterOne("a\r\nx"));
  EXPECT_EQ("\rx", RestAfterOne("a\n\rx"));
  EXPECT_EQ("\r\nx", RestAfterOne("a,\r\nx"));
}

TEST(Field, BareMayEndWithTheFile) {
  EXPECT_EQ("text a", ReadOne("a"));
  EXPECT_EQ("number 12", ReadOne("12"));
}

TEST(Field, BareLosesSpacesAtItsEnd) {
  EXPECT_EQ("text a b", ReadOne(" a b  ,x"));
  EXPECT_EQ("number 7", ReadOne("7   \r\n"));
  EXPECT_EQ("empty", ReadOne("   ,x"));
}

TEST(Field, BareKeepsQuotesInItsMiddle) { EXPECT_EQ("text a\"b\"", ReadOne("a\"b\",x")); }

TEST(Field, BareWithoutCharactersIsEmpty) {
  EXPECT_EQ("empty", ReadOne(",x"));
  EXPECT_EQ("empty", ReadOne("\r\nx"));
  EXPECT_EQ("x", RestAfterOne("\r\nx"));
}

TEST(Field, BareMayHoldNulAndHighBytes) { EXPECT_EQ("text \0\x80\xff"s, ReadOne("\0\x80\xff,"s)); }

TEST(Records, AppearanceIsFiveFields) {
  MenuReader reader("1,\"Tahoma\",8.25,-1,0\r\nx", "a.menu");
  const AppearanceRecord record = reader.ReadAppearance();
  EXPECT_EQ("number 1", Tell(record.smallIcons));
  EXPECT_EQ("text Tahoma", Tell(record.fontName));
  EXPECT_EQ("number 8.25", Tell(record.fontSize));
  EXPECT_EQ("number -1", Tell(record.fontBold));
  EXPECT_EQ("number 0", Tell(record.fontItalic));
  EXPECT_EQ(22u, reader.offset());
}

TEST(Records, ItemIsSixFields) {
  MenuReader reader("\"a, b\",\"C:\\t.exe\",\"/x\",\"C:\\\",\"i.dll\",3\r\nx", "a.menu");
  EXPECT_EQ((std::vector<std::string>{"text a, b", "text C:\\t.exe", "text /x", "text C:\\",
                                      "text i.dll", "number 3"}),
            Tell(reader.ReadItem()));
  EXPECT_FALSE(reader.AtEnd());
}

TEST(Records, SeparatorIsFiveEmptyTextsAndAnEmptyIndex) {
  MenuReader reader("\"\",\"\",\"\",\"\",\"\",\r\nx", "a.menu");
  EXPECT_EQ((std::vector<std::string>{"text ", "text ", "text ", "text ", "text ", "empty"}),
            Tell(reader.ReadItem()));
  EXPECT_EQ(17u, reader.offset());
}

TEST(Records, DirectoryPointerIsFiveFieldsFlagsInTheFilesOrder) {
  MenuReader reader("\"D:\\x\\\",\"*.txt\",1,0,2\r\n", "a.menu");
  const DirectoryPointerRecord record = reader.ReadDirectoryPointer();
  EXPECT_EQ("text D:\\x\\", Tell(record.folderPath));
  EXPECT_EQ("text *.txt", Tell(record.filePattern));
  EXPECT_EQ("number 1", Tell(record.showFolders));
  EXPECT_EQ("number 0", Tell(record.hideKnownExtensions));
  EXPECT_EQ("number 2", Tell(record.showHiddenFiles));
  EXPECT_TRUE(reader.AtEnd());
}

TEST(Records, GoOnWithTheNextLineWhereOneHoldsTooFewFields) {
  MenuReader reader("a,b\r\nc,d,e,6\r\n", "a.menu");
  EXPECT_EQ(
      (std::vector<std::string>{"text a", "text b", "text c", "text d", "text e", "number 6"}),
      Tell(reader.ReadItem()));
}

TEST(Records, LeaveTheRestOfALineWithTooManyFields) {
  MenuReader reader("1,2,3,4,5,6,7,8\r\n", "a.menu");
  reader.ReadItem();
  EXPECT_EQ(12u, reader.offset());
}

TEST(PastTheEnd, EachMissingFieldIsNamed) {
  const auto readType = [](MenuReader& reader) { reader.ReadTypeLine(); };
  const auto readAppearance = [](MenuReader& reader) { reader.ReadAppearance(); };
  const auto readItem = [](MenuReader& reader) { reader.ReadItem(); };
  const auto readDirectory = [](MenuReader& reader) { reader.ReadDirectoryPointer(); };
  const struct {
    void (*read)(MenuReader&);
    const char* record;
    std::vector<const char*> fields;
  } kRecords[] = {
      {readType, "the type line", {"menu type"}},
      {readAppearance,
       "the appearance line",
       {"smallIcons", "fontName", "fontSize", "fontBold", "fontItalic"}},
      {readItem, "entry 1", {"caption", "target", "arguments", "startIn", "iconFile", "iconIndex"}},
      {readDirectory,
       "the directory line",
       {"folderPath", "filePattern", "showFolders", "hideKnownExtensions", "showHiddenFiles"}},
  };
  for (const auto& record : kRecords) {
    std::string bytes;
    for (const char* field : record.fields) {
      MenuReader reader(bytes, "C:\\a.menu");
      EXPECT_EQ("Cannot read "s + record.record + ", field " + field +
                    ", of the file:\nC:\\a.menu\n\nThe file ends too early (at byte offset " +
                    std::to_string(bytes.size()) + ").",
                MessageOf(reader, record.read));
      bytes += "\"x\",";
    }
    MenuReader reader(bytes, "C:\\a.menu");
    EXPECT_EQ("read", MessageOf(reader, record.read));
  }
}

TEST(PastTheEnd, EntriesAreCounted) {
  MenuReader reader("1,2,3,4,5,6\r\n1,2,3,4,5,6\r\n\"a\",\"b", "C:\\a.menu");
  reader.ReadItem();
  reader.ReadItem();
  EXPECT_EQ(
      "Cannot read entry 3, field target, of the file:\nC:\\a.menu\n\n"
      "The file ends too early (at byte offset 32).",
      MessageOf(reader, [](MenuReader& r) { r.ReadItem(); }));
}

TEST(PastTheEnd, SpacesAloneAreNoField) {
  MenuReader reader("   ", "C:\\a.menu");
  EXPECT_EQ(
      "Cannot read the type line, field menu type, of the file:\nC:\\a.menu\n\n"
      "The file ends too early (at byte offset 3).",
      MessageOf(reader, [](MenuReader& r) { r.ReadTypeLine(); }));
}

TEST(PastTheEnd, AnUnclosedQuoteIsAFailure) {
  MenuReader reader("\"USER", "C:\\a.menu");
  EXPECT_EQ(
      "Cannot read the type line, field menu type, of the file:\nC:\\a.menu\n\n"
      "The file ends too early (at byte offset 5).",
      MessageOf(reader, [](MenuReader& r) { r.ReadTypeLine(); }));
}

TEST(PastTheEnd, LeavesValuesEmptyWhereAsked) {
  MenuReader reader("1,2\r\n", "a.menu", PastEnd::LeavesEmpty);
  EXPECT_EQ((std::vector<std::string>{"number 1", "number 2", "empty", "empty", "empty", "empty"}),
            Tell(reader.ReadItem()));
  EXPECT_EQ((std::vector<std::string>{"empty", "empty", "empty", "empty", "empty", "empty"}),
            Tell(reader.ReadItem()));
}

TEST(PastTheEnd, LeavesWhatAnUnclosedQuoteHoldsWhereAsked) {
  MenuReader reader("1,\"caption, target", "a.menu", PastEnd::LeavesEmpty);
  EXPECT_EQ((std::vector<std::string>{"number 1", "text caption, target", "empty", "empty", "empty",
                                      "empty"}),
            Tell(reader.ReadItem()));
}

}  // namespace
}  // namespace menufile
