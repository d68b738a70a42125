// Compares RewriteMenuFile() with RewriteLiterally() on random menus.
#include <gtest/gtest.h>

#include <iostream>
#include <random>
#include <vector>

#include "tests/menufile/compare_with_literal.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using namespace std::string_literals;

class RandomPieces {
 public:
  explicit RandomPieces(std::uint32_t seed) : random_(seed) {}

  std::size_t Below(std::size_t bound) { return random_() % bound; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }

  std::string PictureLike() {
    static const std::vector<std::string> kPieces = {
        "<",    "\r",     "\n", "\r\n", " ",   "\0"s, "\xff", "<START ZOL>", "<START ZOL",
        "ZOL>", "START ", "\"", ",",    "BM6", "<  ", "x",    "START ZOL>"};
    return Joined(kPieces, Below(12));
  }

  std::string FieldLike() {
    static const std::vector<std::string> kPieces = {
        "\"",    "\"a\"", ",",    "\r\n",  "\r",  "\n",  " ",          "007",
        "8.250", "-1",    "+.5",  "1e999", "nan", "abc", "\"\"",       "\0"s,
        "\xe4",  "1e5",   "1e-9", "5.",    "  x", "<",   "\"x,\r\ny\""};
    return Joined(kPieces, Below(14));
  }

  std::string Menu() {
    std::string menu = PictureLike();
    if (OneIn(8)) {
      return menu + FieldLike();
    }
    menu += kMarker;
    if (OneIn(4)) {
      return menu + FieldLike();
    }
    menu += OneIn(4) ? "\"DIRPOINT\"\r\n" : "\"USERDEF\"\r\n";
    menu += OneIn(4) ? FieldLike() : std::string(kAppearanceLine);
    for (std::size_t items = Below(5); items > 0; --items) {
      menu += OneIn(4) ? FieldLike() : ItemLine(static_cast<int>(Below(6)));
    }
    return OneIn(4) ? menu.substr(0, Below(menu.size() + 1)) : menu;
  }

  UserChange AnyOperation() {
    UserChange operation = SampleChange(static_cast<UserChange::Kind>(Below(kUserChanges)),
                                        OneIn(8) ? 1000 : Below(5));
    if (OneIn(3)) {
      operation.texts.caption = FieldLike();
      operation.iconFile = OneIn(2) ? "Icon" : FieldLike();
      operation.appearance.fontName = FieldLike();
      operation.appearance.picture = PictureLike();
      operation.directory.folderPath = FieldLike();
    }
    return operation;
  }

 private:
  std::string Joined(const std::vector<std::string>& pieces, std::size_t count) {
    std::string text;
    for (; count > 0; --count) {
      text += pieces[Below(pieces.size())];
    }
    return text;
  }

  std::mt19937 random_;
};

TEST(LiteralRewrite, GivesTheSameBytes) {
  constexpr std::uint32_t kCases = 60000;
  int rewritten = 0;
  for (std::uint32_t seed = 0; seed < kCases; ++seed) {
    RandomPieces random(seed);
    const std::string menu = random.Menu();
    const UserChange operation = random.AnyOperation();
    std::optional<std::string> leftover;
    if (random.OneIn(2)) {
      leftover = random.OneIn(2) ? random.PictureLike() : std::string(random.Below(600), 'L');
    }
    const Comparison comparison = CompareWithLiteral(menu, leftover, !random.OneIn(4), operation);
    ASSERT_EQ("", comparison.difference)
        << "seed " << seed << ", " << NameOf(operation.kind) << " row " << operation.row
        << "\nmenu " << testing::PrintToString(menu) << "\nleftover "
        << testing::PrintToString(leftover.value_or("(none)"));
    rewritten += comparison.failed ? 0 : 1;
  }
  EXPECT_GT(rewritten, 30000);
  std::cout << "Counted: " << kCases << " rewrites compared, "
            << kCases - static_cast<unsigned>(rewritten) << " of them failing ones\n";
}

}  // namespace
}  // namespace menufile
