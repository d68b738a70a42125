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

TEST(MarkerLine, IsAWholeLineWithExactlyTheMarker) {
  const struct {
    const char* rule;
    std::string bytes;
    std::optional<std::string> rest;
  } kFiles[] = {
      {"comes after the picture", "picture\r\n<START ZOL>\r\n\"USERDEF\"", "\"USERDEF\""},
      {"may be the first line", "<START ZOL>\r\nrest", "rest"},
      {"may be the first line", "\r\n<START ZOL>\r\nrest", "rest"},
      {"may end with the file", "x\r\n<START ZOL>", ""},
      {"may end with the file", "x\r\n<START ZOL>\r", ""},
      {"may end with the file", "x\r\n<START ZOL>\r\n", ""},
      {"a lone CR ends a line", "x\r<START ZOL>\rrest", "rest"},
      {"a lone CR ends a line", "x\r\r<START ZOL>\r\rrest", "\rrest"},
      {"a lone LF ends no line", "x\n<START ZOL>\r\n", std::nullopt},
      {"a lone LF ends no line", "\n<START ZOL>\r\n", std::nullopt},
      {"a lone LF ends no line", "x\r\n\n<START ZOL>\r\n", std::nullopt},
      {"a lone LF ends no line", "x\r\n<START ZOL>\n", std::nullopt},
      {"a lone LF ends no line", "x\r\n<START ZOL>\n\r\n", std::nullopt},
      {"has nothing before it", "x\r\n <START ZOL>\r\n", std::nullopt},
      {"has nothing after it", "x\r\n<START ZOL> \r\n", std::nullopt},
      {"has no quotes", "x\r\n\"<START ZOL>\"\r\n", std::nullopt},
      {"has no NUL before it", "x\r\n\0<START ZOL>\r\n"s, std::nullopt},
      {"is in this case", "\r\n<start zol>\r\n", std::nullopt},
      {"is in this case", "\r\n<Start Zol>\r\n", std::nullopt},
      {"the first one counts", "a\r\n<START ZOL>\r\n<START ZOL>\r\n", "<START ZOL>\r\n"},
      {"the first one counts", "x<START ZOL>\r\n<START ZOL>x\r\n<START ZOL>\r\n2", "2"},
      {"is missing in an empty file", "", std::nullopt},
  };
  for (const auto& file : kFiles) {
    EXPECT_EQ(file.rest, AfterMarkerLine(file.bytes)) << file.rule;
  }
}

TEST(MarkerLine, APrefixOfTheMarkerIsNone) {
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
