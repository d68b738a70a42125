#ifndef CORVALIS_TESTS_MENUFILE_COMPARE_WITH_LITERAL_H_
#define CORVALIS_TESTS_MENUFILE_COMPARE_WITH_LITERAL_H_

#include <optional>
#include <string_view>

#include "tests/menufile/user_change.h"

namespace menufile {

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
