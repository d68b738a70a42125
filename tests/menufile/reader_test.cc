// Tests how fields and records are read after the marker line.
#include "menufile/reader.h"

#include <gtest/gtest.h>

#include "tests/menufile/memory_files.h"

namespace menufile {
namespace {

using namespace std::string_literals;
using Fields = std::vector<std::string>;
using PastEnd = MenuReader::PastEnd;

std::string Tell(const Value& value) {
  const char* const kKinds[] = {"empty", "number ", "text "};
  return kKinds[static_cast<int>(value.kind())] + value.Text();
}

Fields Tell(const MenuItemRecord& r) {
  return {Tell(r.caption), Tell(r.target),   Tell(r.arguments),
          Tell(r.startIn), Tell(r.iconFile), Tell(r.iconIndex)};
}

std::string TooEarly(const std::string& record, const std::string& field, std::size_t offset) {
  return "Cannot read " + record + ", field " + field +
         ", of the file:\nC:\\a.menu\n\nThe file ends too early (at byte offset " +
         std::to_string(offset) + ").";
}

TEST(Field, HasThisValueAndTheseBytesAfterIt) {
  const struct {
    const char* rule;
    std::string bytes;
    std::string value;
    std::string rest;
  } kFields[] = {
      {"spaces before it are skipped", "   \"a\"\r\n", "text a", ""},
      {"spaces before it are skipped", "  7\r\n", "number 7", ""},
      {"a tab before it belongs to it", "\t7\r\n", "text \t7", ""},
      {"a tab before it belongs to it", "\t\"a\"\r\n", "text \t\"a\"", ""},
      {"quotes keep every byte", "\" a, b \r\n\0\xff \",x"s, "text  a, b \r\n\0\xff "s, "x"},
      {"a quoted one may be empty", "\"\",x", "text ", "x"},
      {"bytes after the closing quote are skipped", "\"a\" b \"c\",x", "text a", "x"},
      {"bytes after the closing quote are skipped", "\"a\" b\r\nx", "text a", "x"},
      {"bytes after the closing quote are skipped", "\"a\" b\nx", "text a", "x"},
      {"bytes after the closing quote are skipped", "\"a\" b", "text a", ""},
      {"a bare one ends at a comma", "a,x", "text a", "x"},
      {"a bare one ends at CR", "a\rx", "text a", "x"},
      {"a bare one ends at LF", "a\nx", "text a", "x"},
      {"a bare one ends at CR LF", "a\r\nx", "text a", "x"},
      {"LF CR are two ends", "a\n\rx", "text a", "\rx"},
      {"a comma and CR LF are two ends", "a,\r\nx", "text a", "\r\nx"},
      {"a bare one may end with the file", "a", "text a", ""},
      {"a bare one may end with the file", "12", "number 12", ""},
      {"spaces at the end of a bare one are skipped", " a b  ,x", "text a b", "x"},
      {"spaces at the end of a bare one are skipped", "7   \r\n", "number 7", ""},
      {"a bare one of spaces is empty", "   ,x", "empty", "x"},
      {"a bare one keeps quotes in its middle", "a\"b\",x", "text a\"b\"", "x"},
      {"a bare one without characters is empty", ",x", "empty", "x"},
      {"a bare one without characters is empty", "\r\nx", "empty", "x"},
      {"a bare one may hold NUL and high bytes", "\0\x80\xff,"s, "text \0\x80\xff"s, ""},
  };
  for (const auto& field : kFields) {
    MenuReader reader(field.bytes, "a.menu");
    EXPECT_EQ(field.value, Tell(reader.ReadTypeLine())) << field.rule;
    EXPECT_EQ(field.rest, field.bytes.substr(reader.offset())) << field.rule;
  }
}

TEST(Field, HasNoEscapeForAQuote) {
  MenuReader reader("\"say \"hi, you\"\",2,3,4,5,6\r\n", "a.menu");
  EXPECT_EQ((Fields{"text say ", "text you\"\"", "number 2", "number 3", "number 4", "number 5"}),
            Tell(reader.ReadItem()));
}

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
  EXPECT_EQ(
      (Fields{"text a, b", "text C:\\t.exe", "text /x", "text C:\\", "text i.dll", "number 3"}),
      Tell(reader.ReadItem()));
  EXPECT_FALSE(reader.AtEnd());
}

TEST(Records, SeparatorIsFiveEmptyTextsAndAnEmptyIndex) {
  MenuReader reader("\"\",\"\",\"\",\"\",\"\",\r\nx", "a.menu");
  EXPECT_EQ((Fields{"text ", "text ", "text ", "text ", "text ", "empty"}),
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
  EXPECT_EQ((Fields{"text a", "text b", "text c", "text d", "text e", "number 6"}),
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
      EXPECT_EQ(TooEarly(record.record, field, bytes.size()),
                FailureOf([&] { record.read(reader); }));
      bytes += "\"x\",";
    }
    MenuReader reader(bytes, "C:\\a.menu");
    EXPECT_NO_THROW(record.read(reader));
  }
}

TEST(PastTheEnd, EntriesAreCounted) {
  MenuReader reader("1,2,3,4,5,6\r\n1,2,3,4,5,6\r\n\"a\",\"b", "C:\\a.menu");
  reader.ReadItem();
  reader.ReadItem();
  EXPECT_EQ(TooEarly("entry 3", "target", 32), FailureOf([&] { reader.ReadItem(); }));
}

TEST(PastTheEnd, SpacesAndAnUnclosedQuoteAreNoField) {
  for (const std::string bytes : {"   ", "\"USER"}) {
    MenuReader reader(bytes, "C:\\a.menu");
    EXPECT_EQ(TooEarly("the type line", "menu type", bytes.size()),
              FailureOf([&] { reader.ReadTypeLine(); }));
  }
}

TEST(PastTheEnd, LeavesValuesEmptyWhereAsked) {
  MenuReader reader("1,2\r\n", "a.menu", PastEnd::LeavesEmpty);
  EXPECT_EQ((Fields{"number 1", "number 2", "empty", "empty", "empty", "empty"}),
            Tell(reader.ReadItem()));
  EXPECT_EQ((Fields{"empty", "empty", "empty", "empty", "empty", "empty"}),
            Tell(reader.ReadItem()));
}

TEST(PastTheEnd, LeavesWhatAnUnclosedQuoteHoldsWhereAsked) {
  MenuReader reader("1,\"caption, target", "a.menu", PastEnd::LeavesEmpty);
  EXPECT_EQ((Fields{"number 1", "text caption, target", "empty", "empty", "empty", "empty"}),
            Tell(reader.ReadItem()));
}

}  // namespace
}  // namespace menufile
