#ifndef CORVALIS_TESTS_MENUFILE_OPERATION_H_
#define CORVALIS_TESTS_MENUFILE_OPERATION_H_

#include <cstddef>
#include <string>

#include "menufile/rewrite.h"

namespace menufile {

// One change to a menu as the user asks for it, with all that it needs as plain
// text; the fields that a kind does not need are left alone.
struct Operation {
  enum class Kind {
    Keep,  // changes nothing; the editor has no such operation
    MoveUp,
    MoveDown,
    Delete,
    Separator,
    Edit,
    ChangeIcon,
    SaveAppearance,
    SaveDirectory,
    SwitchToDirectory,
    SwitchToUserDefined,
  };

  Kind kind = Kind::Keep;
  std::size_t row = 0;

  // Edit
  std::string caption;
  std::string target;
  std::string arguments;
  std::string startIn;
  // ChangeIcon
  std::string iconFile;
  std::string iconIndex = "0";
  // SaveAppearance
  std::string smallIcons = "0";
  std::string fontName;
  std::string fontSize = "8";
  std::string fontBold = "0";
  std::string fontItalic = "0";
  std::string picture;
  // SaveDirectory
  std::string folderPath;
  std::string filePattern;
  std::string showFolders = "0";
  std::string hideKnownExtensions = "0";
  std::string showHiddenFiles = "0";
};

inline constexpr int kOperationKinds = static_cast<int>(Operation::Kind::SwitchToUserDefined) + 1;

// For messages of tests: "MoveUp".
const char* NameOf(Operation::Kind kind);

// Those that ignore every failure.
bool IgnoresFailures(Operation::Kind kind);
// All but the icon change.
bool DeletesScratchFirst(Operation::Kind kind);
const char* ScratchFileOf(Operation::Kind kind);

// An operation of this kind on `row`, with some text in every field.
Operation MakeOperation(Operation::Kind kind, std::size_t row = 0);

// The operation as RewriteMenuFile() takes it. Borrows from `operation`.
MenuChange ChangeFor(const Operation& operation);

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_OPERATION_H_
