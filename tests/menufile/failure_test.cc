#include "menufile/failure.h"

#include <gtest/gtest.h>

namespace menufile {
namespace {

TEST(Failure, TellsFileDoingReasonAndOffset) {
  const Failure failure("C:\\a.menu", "read entry 3, field startIn, of the file",
                        "The file ends too early", 2310);
  EXPECT_STREQ(
      "Cannot read entry 3, field startIn, of the file:\nC:\\a.menu\n\n"
      "The file ends too early (at byte offset 2310).",
      failure.what());
  EXPECT_EQ("C:\\a.menu", failure.path());
  EXPECT_EQ("read entry 3, field startIn, of the file", failure.doing());
  EXPECT_EQ("The file ends too early", failure.reason());
  EXPECT_EQ(2310u, failure.offset());
}

TEST(Failure, TellsNoOffsetWhereThereIsNone) {
  const Failure failure("C:\\a.menu", "open the file", "Access is denied");
  EXPECT_STREQ("Cannot open the file:\nC:\\a.menu\n\nAccess is denied.", failure.what());
  EXPECT_EQ(std::nullopt, failure.offset());
}

}  // namespace
}  // namespace menufile
