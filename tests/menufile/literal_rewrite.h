#ifndef CORVALIS_TESTS_MENUFILE_LITERAL_REWRITE_H_
#define CORVALIS_TESTS_MENUFILE_LITERAL_REWRITE_H_

#include <optional>
#include <string>
#include <string_view>

#include "tests/menufile/user_change.h"

namespace menufile {

// What an operation leaves of the two files.
struct LiteralResult {
  std::string menu;
  std::optional<std::string> scratch;  // nothing when it was deleted
  bool failed = false;                 // and told so
  bool noMarker = false;               // the picture ended with the file
};

// The rewrite of a menu file, one byte and one field at a time, as an editor
// does it that knows two files with read and write positions and nothing of
// what the rewrite is to achieve. `scratch` is what a scratch file holds that
// is there already.
LiteralResult RewriteLiterally(std::string_view menu, const std::optional<std::string>& scratch,
                               bool scratchCanBeDeleted, const UserChange& operation);

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_LITERAL_REWRITE_H_
