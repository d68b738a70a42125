// How the marker line is found, by the loader (a whole line) and by writers
// (the end of a line).
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "menufile/reader.h"

namespace menufile {
namespace {

using namespace std::string_literals;

// What stands behind the marker line, or nothing when there is none.
std::optional<std::string> BehindMarkerLine(std::string_view bytes) {
  MenuReader reader(bytes, "a.menu");
  if (!reader.SkipMarkerLine()) {
    EXPECT_EQ(bytes.size(), reader.offset());
    EXPECT_TRUE(reader.AtEnd());
    return std::nullopt;
  }
  return std::string(bytes.substr(reader.offset()));
}

// What stands before the marker's "<", "|", and what stands behind its line.
std::optional<std::string> AroundMarker(std::string_view bytes) {
  MenuReader reader(bytes, "a.menu");
  const std::optional<std::size_t> marker = reader.SkipMarker();
  if (!marker) {
    EXPECT_TRUE(reader.AtEnd());
    return std::nullopt;
  }
  return std::string(bytes.substr(0, *marker)) + '|' + std::string(bytes.substr(reader.offset()));
}

TEST(MarkerLine, IsFoundBehindThePicture) {
  EXPECT_EQ("\"USERDEF\"", BehindMarkerLine("picture\r\n<START ZOL>\r\n\"USERDEF\""));
}

TEST(MarkerLine, MayBeTheFirstLine) {
  EXPECT_EQ("rest", BehindMarkerLine("<START ZOL>\r\nrest"));
  EXPECT_EQ("rest", BehindMarkerLine("\r\n<START ZOL>\r\nrest"));
}

TEST(MarkerLine, MayEndWithTheFile) {
  EXPECT_EQ("", BehindMarkerLine("x\r\n<START ZOL>"));
  EXPECT_EQ("", BehindMarkerLine("x\r\n<START ZOL>\r"));
  EXPECT_EQ("", BehindMarkerLine("x\r\n<START ZOL>\r\n"));
}

TEST(MarkerLine, ALoneCrEndsALine) {
  EXPECT_EQ("rest", BehindMarkerLine("x\r<START ZOL>\rrest"));
  EXPECT_EQ("\rrest", BehindMarkerLine("x\r\r<START ZOL>\r\rrest"));
}

TEST(MarkerLine, ALoneLfEndsNoLine) {
  EXPECT_EQ(std::nullopt, BehindMarkerLine("x\n<START ZOL>\r\n"));
  EXPECT_EQ(std::nullopt, BehindMarkerLine("\n<START ZOL>\r\n"));
  EXPECT_EQ(std::nullopt, BehindMarkerLine("x\r\n\n<START ZOL>\r\n"));
  EXPECT_EQ(std::nullopt, BehindMarkerLine("x\r\n<START ZOL>\n"));
  EXPECT_EQ(std::nullopt, BehindMarkerLine("x\r\n<START ZOL>\n\r\n"));
}

TEST(MarkerLine, HasNothingBeforeOrBehindIt) {
  EXPECT_EQ(std::nullopt, BehindMarkerLine("x\r\n <START ZOL>\r\n"));
  EXPECT_EQ(std::nullopt, BehindMarkerLine("x\r\n<START ZOL> \r\n"));
  EXPECT_EQ(std::nullopt, BehindMarkerLine("x\r\n\"<START ZOL>\"\r\n"));
  EXPECT_EQ(std::nullopt, BehindMarkerLine("x\r\n\0<START ZOL>\r\n"s));
}

TEST(MarkerLine, IsInThisCase) {
  EXPECT_EQ(std::nullopt, BehindMarkerLine("\r\n<start zol>\r\n"));
  EXPECT_EQ(std::nullopt, BehindMarkerLine("\r\n<Start Zol>\r\n"));
}

TEST(MarkerLine, TheFirstOneCounts) {
  EXPECT_EQ("<START ZOL>\r\n", BehindMarkerLine("a\r\n<START ZOL>\r\n<START ZOL>\r\n"));
  EXPECT_EQ("2", BehindMarkerLine("x<START ZOL>\r\n<START ZOL>x\r\n<START ZOL>\r\n2"));
}

TEST(MarkerLine, IsMissingInAnEmptyFile) { EXPECT_EQ(std::nullopt, BehindMarkerLine("")); }

TEST(MarkerLine, IsMissingWhenCutShort) {
  const std::string_view marker = "<START ZOL>";
  for (std::size_t size = 0; size < marker.size(); ++size) {
    EXPECT_EQ(std::nullopt, BehindMarkerLine("\r\n"s + std::string(marker.substr(0, size))));
    EXPECT_EQ(std::nullopt, BehindMarkerLine(std::string(marker.substr(0, size)) + "\r\n"));
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
