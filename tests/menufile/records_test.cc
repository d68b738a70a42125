#include "menufile/records.h"

#include <gtest/gtest.h>

#include <string>

#include "menufile/reader.h"

namespace menufile {
namespace {

using namespace std::string_literals;

template <typename Record>
std::string LineOf(const Record& record) {
  std::string out = "before";
  AppendLine(out, record);
  EXPECT_EQ("before", out.substr(0, 6));
  return out.substr(6);
}

AppearanceRecord Appearance(Value smallIcons) {
  return {smallIcons, Value::Quoted("Tahoma"), Value::Bare("8.25"), Value::Bare("-1"),
          Value::Bare("0")};
}

TEST(Lines, MarkerLineIs15Bytes) {
  EXPECT_EQ("\r\n<START ZOL>\r\n", kMarkerLine);
  EXPECT_EQ(15u, kMarkerLine.size());
  EXPECT_EQ("<START ZOL>", kMarkerText);
}

TEST(Lines, TypeLine) {
  std::string out = "x";
  AppendTypeLine(out, TypeKeyword(MenuType::UserDefined));
  AppendTypeLine(out, TypeKeyword(MenuType::DirectoryPointer));
  EXPECT_EQ("x\"USERDEF\"\r\n\"DIRPOINT\"\r\n", out);
}

TEST(Lines, AreTheseBytes) {
  const Value empty;
  const auto text = [](std::string bytes) { return Value::Quoted(bytes); };
  const auto bare = [](const char* characters) { return Value::Bare(characters); };
  const struct {
    const char* rule;
    std::string line;
    std::string expected;
  } kLines[] = {
      {"only the font name is quoted", LineOf(Appearance(bare("1"))), "1,\"Tahoma\",8.25,-1,0\r\n"},
      {"only the font name is quoted", LineOf(AppearanceRecord{}), ",\"\",,,\r\n"},
      {"small icons, and 10 points bold",
       LineOf(AppearanceRecord{bare("1"), text("Arial"), bare("10"), bare("-1"), bare("0")}),
       "1,\"Arial\",10,-1,0\r\n"},
      {"five fields are quoted, even empty ones",
       LineOf(MenuItemRecord{text("a"), text("b, c"), text(""), empty, bare(""), bare("0")}),
       "\"a\",\"b, c\",\"\",\"\",\"\",0\r\n"},
      {"a separator ends with a comma", LineOf(MenuItemRecord{}), "\"\",\"\",\"\",\"\",\"\",\r\n"},
      {"a new directory pointer",
       LineOf(DirectoryPointerRecord{text("C:\\"), text("*.*"), bare("1"), bare("0"), bare("0")}),
       "\"C:\\\",\"*.*\",1,0,0\r\n"},
      {"numbers in text fields are quoted as their text",
       LineOf(MenuItemRecord{bare("007"), bare("8.250"), bare("1e999"), empty, empty, bare("+0")}),
       "\"7\",\"8.25\",\"1e999\",\"\",\"\",0\r\n"},
      {"nothing is escaped",
       LineOf(MenuItemRecord{text("a\"b\r\n\0\xff"s), empty, empty, empty, empty, bare("x y")}),
       "\"a\"b\r\n\0\xff\",\"\",\"\",\"\",\"\",x y\r\n"s},
      {"spaces at the front go", LineOf(Appearance(text("  x"))), "x,\"Tahoma\",8.25,-1,0\r\n"},
      {"spaces at the front go", LineOf(Appearance(text("  "))), ",\"Tahoma\",8.25,-1,0\r\n"},
      {"spaces before the line end stay",
       LineOf(MenuItemRecord{empty, empty, empty, empty, empty, text("x  ")}),
       "\"\",\"\",\"\",\"\",\"\",x  \r\n"}};
  for (const auto& line : kLines) {
    EXPECT_EQ(line.expected, line.line) << line.rule;
  }
}

TEST(Lines, AnEntryThatWasReadIsWrittenWithEachChangeOfAField) {
  const std::string line = "\"a\",\"b\",\"c\",\"d\",\"e\",1\r\n";
  MenuReader reader(line, "a.menu");
  const MenuItemRecord read = reader.ReadItem();
  EXPECT_EQ(line, LineOf(read));
  Value MenuItemRecord::*const texts[] = {&MenuItemRecord::caption, &MenuItemRecord::target,
                                          &MenuItemRecord::arguments, &MenuItemRecord::startIn,
                                          &MenuItemRecord::iconFile};
  std::size_t place = 1;
  for (Value MenuItemRecord::*const text : texts) {
    for (const char* changed : {"x", "longer", ""}) {
      MenuItemRecord record = read;
      record.*text = Value::Quoted(changed);
      EXPECT_EQ(std::string(line).replace(place, 1, changed), LineOf(record));
    }
    place += 4;
  }
  for (const char* changed : {"2", "12", ""}) {
    MenuItemRecord record = read;
    record.iconIndex = Value::Bare(changed);
    EXPECT_EQ(std::string(line).replace(place - 1, 1, changed), LineOf(record));
  }
}

TEST(Lines, EveryByteButTheQuoteReadsBackInATextField) {
  std::string text;
  for (int byte = 0; byte < 256; ++byte) {
    if (byte != '"') {
      text += static_cast<char>(byte);
    }
  }
  const Value value = Value::Quoted(text);
  const std::string line =
      LineOf(MenuItemRecord{value, value, value, value, value, Value::Bare("3")});
  MenuReader reader(line, "a.menu");
  const MenuItemRecord read = reader.ReadItem();
  for (const Value* field :
       {&read.caption, &read.target, &read.arguments, &read.startIn, &read.iconFile}) {
    EXPECT_EQ(text, field->Text());
  }
  EXPECT_EQ(3, read.iconIndex.Integer());
  EXPECT_TRUE(reader.AtEnd());
}

}  // namespace
}  // namespace menufile
