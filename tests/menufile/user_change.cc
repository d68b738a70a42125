#include "tests/menufile/user_change.h"

#include <stdexcept>

#include "tests/menufile/memory_files.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using Kind = UserChange::Kind;

MenuChange ChangeFor(const UserChange& change, const std::string& path) {
  switch (change.kind) {
    case Kind::MoveUp:
      return MoveUp(change.row);
    case Kind::MoveDown:
      return MoveDown(change.row);
    case Kind::Delete:
      return Delete(change.row);
    case Kind::Separator:
      return Separator(change.row);
    case Kind::Edit:
      return EditEntry(change.row, change.texts);
    case Kind::ChangeIcon:
      return ChangeIcon(change.row, change.iconFile, change.iconIndex);
    case Kind::SaveAppearance:
      return SaveAppearance(change.appearance, path);
    case Kind::SaveDirectory:
      return SaveDirectory(change.directory);
    case Kind::SwitchToDirectory:
      return SwitchToDirectory();
    case Kind::SwitchToUserDefined:
      return SwitchToUserDefined();
    case Kind::Keep:
      break;
  }
  MenuChange keep;
  keep.recordRule = KeepRecord;
  return keep;
}

}  // namespace

std::string MenuFor(Kind kind) {
  const bool ofPointer = kind == Kind::SaveDirectory || kind == Kind::SwitchToUserDefined;
  return ofPointer ? DirectoryMenu() : UserMenu(4);
}

const char* NameOf(Kind kind) {
  static constexpr const char* kNames[kUserChanges] = {"Keep",
                                                       "MoveUp",
                                                       "MoveDown",
                                                       "Delete",
                                                       "Separator",
                                                       "Edit",
                                                       "ChangeIcon",
                                                       "SaveAppearance",
                                                       "SaveDirectory",
                                                       "SwitchToDirectory",
                                                       "SwitchToUserDefined"};
  return kNames[static_cast<int>(kind)];
}

bool IgnoresFailures(Kind kind) {
  return kind == Kind::MoveUp || kind == Kind::MoveDown || kind == Kind::Delete ||
         kind == Kind::Separator;
}

bool DeletesScratchFirst(Kind kind) { return kind != Kind::ChangeIcon; }

const char* ScratchFileOf(Kind kind) {
  return kind == Kind::Edit || kind == Kind::ChangeIcon || kind == Kind::SaveAppearance
             ? "zoltempfileoktodelete"
             : "temporaryfile";
}

UserChange SampleChange(Kind kind, std::size_t row) {
  static constexpr char kPicture[] = "BM new < picture \0 \r\n of its own\r<";
  UserChange change;
  change.kind = kind;
  change.row = row;
  change.texts = {"Edited, anew", "C:\\tools\\edited.exe", "/edited", "C:\\tools"};
  change.iconFile = "C:\\icons\\new.icl";
  change.iconIndex = "12";
  change.appearance = {true, "Courier New", 10,
                       true, false,         std::string(kPicture, sizeof kPicture - 1)};
  change.directory = {"D:\\new folder\\", "*.txt", false, false, true};
  return change;
}

ChangeResult Make(MenuFile& menu, const UserChange& change) {
  return RewriteMenuFile(menu, ChangeFor(change, menu.path()));
}

ChangeResult Make(FileSystem& files, const std::string& path, const UserChange& change) {
  MenuFile menu(files, path);
  return Make(menu, change);
}

std::string Rewritten(const std::string& menu, const UserChange& change) {
  MemoryFiles files("a.menu", menu);
  Make(files, "a.menu", change);
  if (files.Get(ScratchFileOf(change.kind))) {
    throw std::logic_error("a scratch file is left");
  }
  return files.Get("a.menu").value();
}

}  // namespace menufile
