#ifndef CORVALIS_MENUFILE_CHANGES_H_
#define CORVALIS_MENUFILE_CHANGES_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "menufile/menu_file.h"
#include "menufile/rewrite.h"

namespace menufile {

// Everything that the user can do to a menu file. Each change but the last is one
// for RewriteMenuFile(). Texts are in the system's ANSI code page and are written as
// they stand: one with a double quote does not read back. `row` counts the entries
// from 0, separators too.

// Changes to the list of entries. They ignore every failure.

// Exchanges the entry with the one before it; `row` is at least 1.
MenuChange MoveUp(std::size_t row);
// Exchanges the entry with the one after it.
MenuChange MoveDown(std::size_t row);
MenuChange Delete(std::size_t row);
// Puts a separator in front of the entry.
MenuChange Separator(std::size_t row);

// What the user says about an entry. The rest of it, its icon, is chosen elsewhere.
struct EntryTexts {
  std::string caption;
  std::string target;
  std::string arguments;
  std::string startIn;
};

// The entry keeps its icon.
MenuChange EditEntry(std::size_t row, EntryTexts texts);

// The entry's icon is the one with that index in `iconFile`. A file whose path is
// just the entry's caption is stored as an empty text.
MenuChange ChangeIcon(std::size_t row, std::string iconFile, std::string iconIndex);

struct Appearance {
  bool smallIcons = false;
  std::string fontName;
  double fontPoints = 0;
  bool fontBold = false;
  bool fontItalic = false;
  std::string picture;  // a picture file, which becomes the head of the menu file
};

// Always makes the menu a user-defined one. Throws Failure, with `path`, when the
// font size is no number or when a reader would find the marker in the picture.
MenuChange SaveAppearance(const Appearance& appearance, const std::string& path);

struct Directory {
  std::string folderPath;  // with drive and trailing backslash
  std::string filePattern;
  bool showFolders = false;
  bool hideKnownExtensions = false;
  bool showHiddenFiles = false;
};

MenuChange SaveDirectory(const Directory& directory);

// Makes the menu a directory pointer to "C:\"; its entries are dropped.
MenuChange SwitchToDirectory();
// Makes the menu an empty user-defined list.
MenuChange SwitchToUserDefined();

// Adds entries without an icon of their own after the last one, as one change: all
// of them or, when it throws Failure, none. If `deletesScratchFile` is true, the
// scratch file "zoltempfileoktodelete" is deleted first, as an edit does.
ChangeResult AddEntries(MenuFile& menu, const std::vector<EntryTexts>& entries,
                        bool deletesScratchFile);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_CHANGES_H_
