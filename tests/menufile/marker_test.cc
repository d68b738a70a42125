// Tests how the loader finds the marker (a whole line), and how writers find it (the end
// of a line).
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "menufile/reader.h"

namespace menufile {
namespace {

using namespace std::string_literals;

// The bytes after the marker line; nothing if there is none.
std::optional<std::string> AfterMarkerLine(std::string_view bytes) {
  MenuReader reader(bytes, "a.menu");
  if (!reader.SkipMarkerLine()) {
    EXPECT_EQ(bytes.size(), reader.offset());
    EXPECT_TRUE(reader.AtEnd());
    return std::nullopt;
  }
  return std::string(bytes.substr(reader.offset()));
}

// The bytes before the marker, then "|", then the bytes after its line.
std::optional<std::string> AroundMarker(std::string_view bytes) {
  MenuReader reader(bytes, "a.menu");
  const std::optional<std::size_t> marker = reader.SkipMarker();
  if (!marker) {
    EXPECT_TRUE(reader.AtEnd());
    return std::nullopt;
  }
  return std::string(bytes.substr(0, *marker)) + '|' + std::string(bytes.substr(reader.offset()));
}

TEST(MarkerLine, IsFoundAfterThePicture) {
  EXPECT_EQ("\"USERDEF\"", AfterMarkerLine("picture\r\n<START ZOL>\r\n\"USERDEF\""));
}

TEST(MarkerLine, MayBeTheFirstLine) {
  EXPECT_EQ("rest", AfterMarkerLine("<START ZOL>\r\nrest"));
  EXPECT_EQ("rest", AfterMarkerLine("\r\n<START ZOL>\r\nrest"));
}

TEST(MarkerLine, MayEndWithTheFile) {
  EXPECT_EQ("", AfterMarkerLine("x\r\n<START ZOL>"));
  EXPECT_EQ("", AfterMarkerLine("x\r\n<START ZOL>\r"));
  EXPECT_EQ("", AfterMarkerLine("x\r\n<START ZOL>\r\n"));
}

TEST(MarkerLine, ALoneCrEndsALine) {
  EXPECT_EQ("rest", AfterMarkerLine("x\r<START ZOL>\rrest"));
  EXPECT_EQ("\rrest", AfterMarkerLine("x\r\r<START ZOL>\r\rrest"));
}

TEST(MarkerLine, ALoneLfEndsNoLine) {
  EXPECT_EQ(std::nullopt, AfterMarkerLine("x\n<START ZOL>\r\n"));
  EXPECT_EQ(std::nullopt, AfterMarkerLine("\n<START ZOL>\r\n"));
  EXPECT_EQ(std::nullopt, AfterMarkerLine("x\r\n\n<START ZOL>\r\n"));
  EXPECT_EQ(std::nullopt, AfterMarkerLine("x\r\n<START ZOL>\n"));
  EXPECT_EQ(std::nullopt, AfterMarkerLine("x\r\n<START ZOL>\n\r\n"));
}

TEST(MarkerLine, HasNothingBeforeOrAfterIt) {
  EXPECT_EQ(std::nullopt, AfterMarkerLine("x\r\n <START ZOL>\r\n"));
  EXPECT_EQ(std::nullopt, AfterMarkerLine("x\r\n<START ZOL> \r\n"));
  EXPECT_EQ(std::nullopt, AfterMarkerLine("x\r\n\"<START ZOL>\"\r\n"));
  EXPECT_EQ(std::nullopt, AfterMarkerLine("x\r\n\0<START ZOL>\r\n"s));
}

TEST(MarkerLine, IsInThisCase) {
  EXPECT_EQ(std::nullopt, AfterMarkerLine("\r\n<start zol>\r\n"));
  EXPECT_EQ(std::nullopt, AfterMarkerLine("\r\n<Start Zol>\r\n"));
}

TEST(MarkerLine, TheFirstOneCounts) {
  EXPECT_EQ("<START ZOL>\r\n", AfterMarkerLine("a\r\n<START ZOL>\r\n<START ZOL>\r\n"));
  EXPECT_EQ("2", AfterMarkerLine("x<START ZOL>\r\n<START ZOL>x\r\n<START ZOL>\r\n2"));
}

TEST(MarkerLine, IsMissingInAnEmptyFile) { EXPECT_EQ(std::nullopt, AfterMarkerLine("")); }

TEST(MarkerLine, IsMissingWhenCutShort) {
  const std::string_view marker = "<START ZOL>";
  for (std::size_t size = 0; size < marker.size(); ++size) {
    EXPECT_EQ(std::nullopt, AfterMarkerLine("\r\n"s + std::string(marker.substr(0, size))));
    EXPECT_EQ(std::nullopt, AfterMarkerLine(std::string(marker.substr(0, size)) + "\r\n"));
  }
}

TEST(MarkerForWriters, NeedNotBeginTheLine) {
  EXPECT_EQ("x\r\n|rest", AroundMarker("x\r\n<START ZOL>\r\nrest"));
  EXPECT_EQ("xy|rest", AroundMarker("xy<START ZOL>\r\nrest"));
  EXPECT_EQ("x\n|rest", AroundMarker("x\n<START ZOL>\rrest"));
  EXPECT_EQ("<<START|rest", AroundMarker("<<START<START ZOL>\r\nrest"));
}

TEST(MarkerForWriters, EndsTheLine) {
  EXPECT_EQ(std::nullopt, AroundMarker("x\r\n<START ZOL> \r\n"));
  EXPECT_EQ(std::nullopt, AroundMarker("x\r\n<START ZOL>\n"));
  EXPECT_EQ("x<START ZOL>\n|", AroundMarker("x<START ZOL>\n<START ZOL>"));
  EXPECT_EQ("|", AroundMarker("<START ZOL>"));
  EXPECT_EQ(std::nullopt, AroundMarker(""));
  EXPECT_EQ(std::nullopt, AroundMarker("<"));
}

}  // namespace
}  // namespace menufile
