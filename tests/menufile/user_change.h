#ifndef CORVALIS_TESTS_MENUFILE_USER_CHANGE_H_
#define CORVALIS_TESTS_MENUFILE_USER_CHANGE_H_

#include <array>
#include <cstddef>
#include <iterator>
#include <span>
#include <string>

#include "menufile/changes.h"

namespace menufile {

// One change to a menu by the user. A kind ignores the fields that it does not need.
struct UserChange {
  enum class Kind {
    Keep,  // writes every record as it was read; the editor has no such change
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
  EntryTexts texts;             // Edit
  std::string iconFile;         // ChangeIcon
  std::string iconIndex = "0";  // ChangeIcon
  Appearance appearance;        // SaveAppearance
  Directory directory;          // SaveDirectory
};

inline constexpr auto kEveryKind = [] {
  std::array<UserChange::Kind, static_cast<int>(UserChange::Kind::SwitchToUserDefined) + 1> kinds{};
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    kinds[i] = static_cast<UserChange::Kind>(i);
  }
  return kinds;
}();
// The kinds that the editor has: all but Keep.
inline constexpr auto kEditorKinds = std::span(kEveryKind).subspan<1>();

inline constexpr int kUserChanges = static_cast<int>(std::size(kEveryKind));

// A menu of the type that such a change is made to.
std::string MenuFor(UserChange::Kind kind);

// The name for messages of tests, such as "MoveUp".
const char* NameOf(UserChange::Kind kind);

// True for the kinds that ignore every failure.
bool IgnoresFailures(UserChange::Kind kind);

// True for all kinds but the icon change.
bool DeletesScratchFirst(UserChange::Kind kind);
const char* ScratchFileOf(UserChange::Kind kind);

// A change of this kind on `row`, with some text in every field.
UserChange SampleChange(UserChange::Kind kind, std::size_t row = 0);

// Makes the change with the editor's procedures.
ChangeResult Make(MenuFile& menu, const UserChange& change);
// The same with a new MenuFile.
ChangeResult Make(FileSystem& files, const std::string& path, const UserChange& change);

// The bytes of a menu file after the change.
std::string Rewritten(const std::string& menu, const UserChange& change);
inline std::string Rewritten(const std::string& menu, UserChange::Kind kind, std::size_t row = 0) {
  return Rewritten(menu, SampleChange(kind, row));
}

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_USER_CHANGE_H_
