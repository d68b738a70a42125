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

TEST(Lines, AppearanceQuotesOnlyTheFontName) {
  EXPECT_EQ("1,\"Tahoma\",8.25,-1,0\r\n", LineOf(Appearance(Value::Bare("1"))));
  EXPECT_EQ(",\"\",,,\r\n", LineOf(AppearanceRecord{}));
}

TEST(Lines, CheckBoxSetAnd10PointBold) {
  EXPECT_EQ("1,\"Arial\",10,-1,0\r\n",
            LineOf(AppearanceRecord{Value::Bare("1"), Value::Quoted("Arial"), Value::Bare("10"),
                                    Value::Bare("-1"), Value::Bare("0")}));
}

TEST(Lines, ItemQuotesFiveFieldsEvenEmptyOnes) {
  EXPECT_EQ("\"a\",\"b, c\",\"\",\"\",\"\",0\r\n",
            LineOf(MenuItemRecord{Value::Quoted("a"), Value::Quoted("b, c"), Value::Quoted(""),
                                  Value(), Value::Bare(""), Value::Bare("0")}));
}

TEST(Lines, SeparatorEndsWithAComma) {
  const std::string line = LineOf(MenuItemRecord{});
  EXPECT_EQ("\"\",\"\",\"\",\"\",\"\",\r\n", line);
  EXPECT_EQ(17u, line.size());
}

TEST(Lines, DirectoryPointerOfANewOne) {
  EXPECT_EQ("\"C:\\\",\"*.*\",1,0,0\r\n",
            LineOf(DirectoryPointerRecord{Value::Quoted("C:\\"), Value::Quoted("*.*"),
                                          Value::Bare("1"), Value::Bare("0"), Value::Bare("0")}));
}

TEST(Lines, NumbersInTextFieldsAreQuotedAsTheirText) {
  EXPECT_EQ("\"7\",\"8.25\",\"1e999\",\"\",\"\",0\r\n",
            LineOf(MenuItemRecord{Value::Bare("007"), Value::Bare("8.250"), Value::Bare("1e999"),
                                  Value(), Value(), Value::Bare("+0")}));
}

TEST(Lines, NothingIsEscaped) {
  EXPECT_EQ("\"a\"b\r\n\0\xff\",\"\",\"\",\"\",\"\",x y\r\n"s,
            LineOf(MenuItemRecord{Value::Quoted("a\"b\r\n\0\xff"s), Value(), Value(), Value(),
                                  Value(), Value::Bare("x y")}));
}

TEST(Lines, SpacesAtTheFrontGoAndThoseBeforeTheLineEndStay) {
  EXPECT_EQ("x,\"Tahoma\",8.25,-1,0\r\n", LineOf(Appearance(Value::Quoted("  x"))));
  EXPECT_EQ(",\"Tahoma\",8.25,-1,0\r\n", LineOf(Appearance(Value::Quoted("  "))));
  EXPECT_EQ(
      "\"\",\"\",\"\",\"\",\"\",x  \r\n",
      LineOf(MenuItemRecord{Value(), Value(), Value(), Value(), Value(), Value::Quoted("x  ")}));
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
