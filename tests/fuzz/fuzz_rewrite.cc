// Makes any change to any menu file, with any old scratch file. The rewrite has to leave
// the same bytes as RewriteLiterally().
//
// The input is the kind of the change, its row, flags, the old scratch file and, if the
// flags say so, the texts of the change. The rest is the menu file.

#include "tests/fuzz/fuzz_input.h"
#include "tests/menufile/compare_with_literal.h"

namespace {

using namespace menufile;

constexpr unsigned kHasLeftover = 1;
constexpr unsigned kCannotBeDeleted = 2;
constexpr unsigned kHasTexts = 4;
constexpr unsigned kLongLeftover = 8;

void ReadTexts(FuzzInput& input, UserChange& operation) {
  for (std::string* text :
       {&operation.texts.caption, &operation.texts.target, &operation.texts.arguments,
        &operation.texts.startIn, &operation.iconFile, &operation.appearance.fontName,
        &operation.appearance.picture, &operation.directory.folderPath,
        &operation.directory.filePattern}) {
    *text = input.Text();
  }
  // These are always numbers.
  operation.iconIndex = std::to_string(input.Byte());
  operation.appearance.smallIcons = input.Byte() % 2 == 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const auto kind = static_cast<UserChange::Kind>(input.Byte() % kUserChanges);
  UserChange operation = SampleChange(kind, input.Byte());
  const unsigned flags = input.Byte();
  std::optional<std::string> leftover;
  if (flags & kHasLeftover) {
    leftover = input.Text();
    if (flags & kLongLeftover) {
      leftover->resize(leftover->size() + 1000, 'L');
    }
  }
  if (flags & kHasTexts) {
    ReadTexts(input, operation);
  }
  const std::string menu = input.Rest();
  const Comparison comparison =
      CompareWithLiteral(menu, leftover, (flags & kCannotBeDeleted) == 0, operation);
  if (!comparison.difference.empty()) {
    std::fprintf(stderr, "%s, row %zu: %s\n", NameOf(kind), operation.row,
                 comparison.difference.c_str());
  }
  Require(comparison.difference.empty(), "the rewrite is as the literal one");
  return 0;
}
