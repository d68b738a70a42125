#include <gtest/gtest.h>

#include "menufile/rewrite.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"
#include "tests/menufile/user_change.h"

namespace menufile {
namespace {

using namespace std::string_literals;
using Kind = UserChange::Kind;

class Leftover : public testing::TestWithParam<Kind> {
 protected:
  Leftover() : operation_(SampleChange(GetParam(), 1)), scratch_(ScratchFileOf(GetParam())) {
    files_.Put(kMenuPath, UserMenu(4));
    Make(files_, kMenuPath, operation_);
    clean_ = files_.Get(kMenuPath).value_or("");
    copied_ = clean_.substr(
        GetParam() == Kind::SaveAppearance ? operation_.appearance.picture.size() : 0);
    files_.Put(kMenuPath, UserMenu(4));
  }

  void Rewrite() { Make(files_, kMenuPath, operation_); }

  const UserChange operation_;
  const std::string scratch_;
  std::string clean_;   // the new menu without an old scratch file
  std::string copied_;  // the bytes that the change writes into the scratch file
  MemoryFiles files_;
};

TEST_P(Leftover, ThatIsShorterIsWrittenOver) {
  files_.Put(scratch_, "leftover");
  Rewrite();
  EXPECT_EQ(clean_, files_.Get(kMenuPath));
  EXPECT_EQ(std::nullopt, files_.Get(scratch_));
}

TEST_P(Leftover, ThatIsLongerIsDeletedFirst) {
  files_.Put(scratch_, std::string(2000, 'x'));
  Rewrite();
  const std::string tail =
      DeletesScratchFirst(GetParam()) ? "" : std::string(2000 - copied_.size(), 'x');
  EXPECT_EQ(clean_ + tail, files_.Get(kMenuPath));
  EXPECT_EQ(std::nullopt, files_.Get(scratch_));
}

TEST_P(Leftover, ThatIsLongerAndCannotBeDeletedLeavesItsTailInBothFiles) {
  for (std::size_t more : {1u, 2u, 17u, 1000u}) {
    files_.Put(kMenuPath, UserMenu(4));
    files_.Put(scratch_, std::string(copied_.size() + more, '<'));
    files_.ForbidRemove(scratch_);
    Rewrite();
    EXPECT_EQ(clean_ + std::string(more, '<'), files_.Get(kMenuPath));
    EXPECT_EQ(copied_ + std::string(more, '<'), files_.Get(scratch_));
  }
}

TEST_P(Leftover, OfAnInterruptedChangeDoesNotGetIntoTheMenu) {
  files_.Put(scratch_, UserMenu(40));
  Rewrite();
  EXPECT_EQ(clean_, files_.Get(kMenuPath));
  EXPECT_EQ(std::nullopt, files_.Get(scratch_));
}

TEST_P(Leftover, OfTheSameLengthLeavesNothing) {
  files_.Put(scratch_, std::string(copied_.size(), '\0'));
  files_.ForbidRemove(scratch_);
  Rewrite();
  EXPECT_EQ(clean_, files_.Get(kMenuPath));
  EXPECT_EQ(copied_, files_.Get(scratch_));
}

TEST_P(Leftover, ThatAnotherEditorUsesIsNotTouchedAndNorIsTheMenu) {
  files_.Put(scratch_, "the only copy of another menu");
  files_.HoldByOther(scratch_);
  EXPECT_EQ(IgnoresFailures(GetParam())
                ? "no failure"
                : "Cannot open the file:\n" + scratch_ + "\n\nAnother program uses the file.",
            FailureOf([this] { Rewrite(); }));
  EXPECT_EQ(UserMenu(4), files_.Get(kMenuPath));
  EXPECT_EQ("the only copy of another menu", files_.Get(scratch_));
}

TEST_P(Leftover, AMenuThatAnotherProgramHoldsIsNotTouched) {
  files_.HoldByOther(kMenuPath);
  EXPECT_EQ(IgnoresFailures(GetParam()), FailureOf([this] { Rewrite(); }) == "no failure");
  EXPECT_EQ(UserMenu(4), files_.Get(kMenuPath));
}

INSTANTIATE_TEST_SUITE_P(EveryKind, Leftover, testing::ValuesIn(kEveryKind),
                         [](const auto& info) { return NameOf(info.param); });

TEST(LeftoverOfTheOtherName, IsNotTouched) {
  for (Kind kind : kEveryKind) {
    MemoryFiles files(kMenuPath, UserMenu(4));
    const bool isList = ScratchFileOf(kind) == "temporaryfile"s;
    const char* const other = isList ? "zoltempfileoktodelete" : "temporaryfile";
    files.Put(other, "x");
    Make(files, kMenuPath, SampleChange(kind, 1));
    EXPECT_EQ("x", files.Get(other)) << NameOf(kind);
  }
}

}  // namespace
}  // namespace menufile
