#ifndef CORVALIS_TESTS_MENUFILE_COMPARE_WITH_LITERAL_H_
#define CORVALIS_TESTS_MENUFILE_COMPARE_WITH_LITERAL_H_

#include <optional>
#include <string_view>

#include "tests/menufile/user_change.h"

namespace menufile {

// The files after a change.
struct LiteralResult {
  std::string menu;
  std::optional<std::string> scratch;  // nothing if it was deleted
  bool failed = false;                 // true if the change reported a failure
  bool noMarker = false;               // true if the menu file had no marker
};

// Makes a change to a menu file, one byte and one field at a time, with nothing but two
// files that have a position. `scratch` is the old scratch file, if there is one.
LiteralResult RewriteLiterally(std::string_view menu, const std::optional<std::string>& scratch,
                               bool scratchCanBeDeleted, const UserChange& operation);

struct Comparison {
  std::string difference;  // empty if there is none
  bool failed = false;     // true if both failed
};

// Makes the change to the same bytes with RewriteMenuFile() and with RewriteLiterally(),
// and compares the files afterwards.
Comparison CompareWithLiteral(std::string_view menu, const std::optional<std::string>& leftover,
                              bool scratchCanBeDeleted, const UserChange& operation);

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_COMPARE_WITH_LITERAL_H_
