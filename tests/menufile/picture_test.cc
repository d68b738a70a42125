// Tests that a rewrite keeps the picture, which may hold any bytes, and what it does with
// a file without a marker.
#include <gtest/gtest.h>

#include "menufile/rewrite.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"
#include "tests/menufile/user_change.h"

namespace menufile {
namespace {

using namespace std::string_literals;
using Kind = UserChange::Kind;

void ExpectPictureStays(const std::string& picture) {
  const std::string menu = UserMenu(3, picture);
  ASSERT_EQ(menu, Rewritten(menu, Kind::Keep)) << testing::PrintToString(picture);
}

TEST(Picture, WithALessThanSignInEveryPosition) {
  for (const std::string& filling :
       {"abcdefgh"s, "\r\n\r\n\r\n\r\n"s, "        "s, "\r\r\n\n \0\r\xff"s}) {
    for (std::size_t at = 0; at < filling.size(); ++at) {
      std::string picture = filling;
      picture[at] = '<';
      ExpectPictureStays(picture);
      picture.insert(at, "<");
      ExpectPictureStays(picture);
    }
  }
}

TEST(Picture, WithEveryByteAroundALessThanSign) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string one(1, static_cast<char>(byte));
    ExpectPictureStays(one);
    ExpectPictureStays("<" + one);
    ExpectPictureStays(one + "<");
    ExpectPictureStays("x\r\n<" + one + "\r\n");
  }
}

TEST(Picture, WithLinesOfAllKinds) {
  for (const char* picture :
       {"", "\r", "\n", "\r\n", "\n\r", "<\r", "<\n", "<\r\n", "\r<", "a<b\rc<d\ne<f\r\n",
        "<  \r\n", "<  x  \r\n", "  <", "<<<<", "\r\r\r<"}) {
    ExpectPictureStays(picture);
  }
}

TEST(Picture, WithWhatLooksLikeTheMarker) {
  for (const char* picture :
       {"<START ZOL", "<START ZOL\r\n", "<START ZOL> \r\n", "<START ZOL>\n", "<START ZOL>x\r",
        "<START  ZOL>\r\n", "<start zol>\r\n", "<<START ZOL\r\n", "\r\n<START ZOL>\n<",
        "< START ZOL>\r\n", "START ZOL>\r\n", "\r\n<START\r\n ZOL>\r\n"}) {
    ExpectPictureStays(picture);
  }
}

TEST(Picture, EndsWhereALineEndsWithTheMarkerEvenInItsMiddle) {
  // Writers look only at the end of a line. They read the bytes after it as fields.
  EXPECT_EQ("x<START ZOL>\r\n\"a\"\r\n1,\"T\",8,0,0\r\n",
            Rewritten("x<START ZOL>\r\na\r\n1,T,8,0,0\r\n", Kind::Keep));
}

TEST(Picture, KeepsTheBytesBeforeTheMarkerAndBringsItsLineEndInOrder) {
  EXPECT_EQ("x\r<START ZOL>\r\n\"USERDEF\"\r\n1,\"T\",8,0,0\r\n",
            Rewritten("x\r<START ZOL>\r\"USERDEF\"\r1,T,8,0,0", Kind::Keep));
}

TEST(NewPicture, MayHoldAnyBytes) {
  for (const std::string& picture : {""s, "<"s, "\r\n"s, "\0\xff\r<START"s, SamplePicture()}) {
    UserChange operation = SampleChange(Kind::SaveAppearance);
    operation.appearance.picture = picture;
    EXPECT_EQ(picture + "\r\n<START ZOL>\r\n\"USERDEF\"\r\n1,\"Courier New\",10,-1,0\r\n" +
                  ItemLine(0) + ItemLine(1) + ItemLine(2),
              Rewritten(UserMenu(3), operation));
  }
}

// Without a marker, the whole file is picture, and the lines after it have empty values.
TEST(NoMarker, EmptyLinesAreAppendedWhereFailuresAreIgnored) {
  for (Kind kind : {Kind::MoveUp, Kind::MoveDown, Kind::Delete, Kind::Separator}) {
    EXPECT_EQ("\"USERDEF\"\r\n,\"\",,,\r\n", Rewritten("", kind, 1));
    EXPECT_EQ("old\"USERDEF\"\r\n,\"\",,,\r\n", Rewritten("old", kind, 1));
    EXPECT_EQ("old\r\n\"USERDEF\"\r\n,\"\",,,\r\n", Rewritten("old\r\n", kind, 1));
    EXPECT_EQ(PreviousVersionMenu(2) + "\"USERDEF\"\r\n,\"\",,,\r\n",
              Rewritten(PreviousVersionMenu(2), kind, 1));
  }
}

TEST(NoMarker, ALineEndComesAfterALastLessThanSign) {
  EXPECT_EQ("<\r\n\"USERDEF\"\r\n,\"\",,,\r\n", Rewritten("<", Kind::MoveUp, 1));
  EXPECT_EQ("a\r\nb<\r\n\"USERDEF\"\r\n,\"\",,,\r\n", Rewritten("a\r\nb<", Kind::MoveUp, 1));
  EXPECT_EQ("<a\"USERDEF\"\r\n,\"\",,,\r\n", Rewritten("<a", Kind::MoveUp, 1));
  EXPECT_EQ("<\r\"USERDEF\"\r\n,\"\",,,\r\n", Rewritten("<\r", Kind::MoveUp, 1));
}

TEST(NoMarker, TheResultIsAskedAboutAgain) {
  const std::string rewritten = Rewritten(PreviousVersionMenu(2), Kind::Delete, 0);
  EXPECT_EQ(LoadedMenu::End::Declined, LoadBytes(rewritten).end);
}

TEST(NoMarker, FailsOtherwiseAndTheMenuStays) {
  for (Kind kind : {Kind::Edit, Kind::ChangeIcon, Kind::SaveAppearance, Kind::SaveDirectory,
                    Kind::SwitchToDirectory, Kind::SwitchToUserDefined}) {
    MemoryFiles files(kMenuPath, PreviousVersionMenu(2));
    EXPECT_EQ(
        "Cannot read the type line, field menu type, of the file:\nC:\\menus\\a.menu\n\n"
        "The file ends too early (at byte offset " +
            std::to_string(PreviousVersionMenu(2).size()) + ").",
        FailureOf([&] { Make(files, kMenuPath, SampleChange(kind)); }))
        << NameOf(kind);
    EXPECT_EQ(PreviousVersionMenu(2), files.Get(kMenuPath));
  }
}

}  // namespace
}  // namespace menufile
