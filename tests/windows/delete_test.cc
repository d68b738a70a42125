#include "tests/windows/icon_files.h"
#include "tests/windows/list_test_base.h"

using namespace testing_menus;

namespace {

constexpr int kDelete = IDC_FORM2_COMMAND7;

const std::string kA = ItemLine("Alpha", "C:\\a.exe", "-a", "C:\\");
const std::string kB = ItemLine("Beta", "C:\\b.exe", "", "", "C:\\x.ico", "7");
const std::string kC = ItemLine("Gamma", "C:\\c.exe");

}  // namespace

class DeleteTest : public ListTest {};

TEST_F(DeleteTest, RemovesEachRow) {
  const Texts lines{kA, kSeparatorLine, kB, kC};
  for (int row = 0; row < 4; ++row) {
    ASSERT_TRUE(OpenLines(lines));
    std::vector<RowState> state = State();
    SelectRow(row);
    Press(kDelete);
    Texts left = lines;
    left.erase(left.begin() + row);
    state.erase(state.begin() + row);
    ExpectSettled(left);
    EXPECT_EQ(State(), state);
    EXPECT_EQ(SelectedRow(), -1);
    EXPECT_TRUE(PreviewIsClear());
  }
}

TEST_F(DeleteTest, TheOnlyEntryLeavesItsHiddenRow) {
  for (const bool hasIcon : {false, true}) {
    ASSERT_TRUE(OpenLines({hasIcon ? IconLine("With", "C:\\c.exe") : kC}));
    const std::string icon = HiddenIcon(0);
    ASSERT_EQ(IsIcon(icon), hasIcon);
    SelectRow(0);
    ASSERT_TRUE(!hasIcon || !PreviewIsClear());
    Press(kDelete);
    ExpectSettled({});
    EXPECT_TRUE(Rows().empty());
    EXPECT_FALSE(IsIcon(icon));
    EXPECT_EQ(HiddenIcon(0), hasIcon ? icon : "0");
    EXPECT_EQ(HiddenTag(0), "C:\\c.exe");
    EXPECT_TRUE(PreviewIsClear());
  }
}

TEST_F(DeleteTest, ReleasesTheIconOfTheRowAlone) {
  WriteBytes(PathOf("other.ico"), testing_icons::IconFile(RGB(1, 2, 3)));
  ASSERT_TRUE(OpenLines({IconLine("One", "C:\\1"),
                         ItemLine("Two", "C:\\2", "", "", PathOf("other.ico"), "0"),
                         IconLine("Three", "C:\\3")}));
  const std::vector<RowState> state = State();
  SelectRow(1);
  Press(kDelete);
  EXPECT_FALSE(IsIcon(state[1].icon));
  EXPECT_TRUE(IsIcon(state[0].icon));
  EXPECT_TRUE(IsIcon(state[2].icon));
  EXPECT_EQ(State(), (std::vector<RowState>{state[0], state[2]}));
}

TEST_F(DeleteTest, AnIconOfSeveralRowsGoesWithTheLastOfThem) {
  // The last one has no icon of its own and gets that of the row above.
  ASSERT_TRUE(OpenLines({IconLine("One", "C:\\1"), IconLine("Two", "C:\\2"), kB}));
  const std::string icon = HiddenIcon(0);
  EXPECT_EQ(HiddenIcon(1), icon);
  EXPECT_EQ(HiddenIcon(2), icon);
  for (int left = 3; left > 0; --left) {
    EXPECT_TRUE(IsIcon(icon)) << left;
    SelectRow(0);
    EXPECT_FALSE(PreviewIsClear()) << left;
    Press(kDelete);
  }
  EXPECT_FALSE(IsIcon(icon));
}

TEST_F(DeleteTest, NothingSelectedDoesNothing) {
  const std::string menu = testing_menus::UserDefinedMenu({" " + kA, kC});
  ASSERT_TRUE(Open(menu));
  form().iconic1().Draw(LoadIconA(nullptr, MAKEINTRESOURCEA(32512)));  // any
  Press(kDelete);
  EXPECT_EQ(MenuBytes(), menu);
  EXPECT_EQ(Rows(), (Texts{"Alpha", "Gamma"}));
  EXPECT_FALSE(PreviewIsClear());
}

TEST_F(DeleteTest, OneAfterAnotherUntilNoneIsLeft) {
  Texts lines{kA, kSeparatorLine, kSeparatorLine, kB, kC};
  ASSERT_TRUE(OpenLines(lines));
  while (!lines.empty()) {
    SelectRow(0);
    Press(kDelete);
    lines.erase(lines.begin());
    ExpectSettled(lines);
    EXPECT_EQ(Rows().size(), lines.size());
    // With nothing selected a second press does nothing.
    Press(kDelete);
    ExpectSettled(lines);
  }
}
