#ifndef CORVALIS_MENUFILE_CHANGES_H_
#define CORVALIS_MENUFILE_CHANGES_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "menufile/menu_file.h"
#include "menufile/rewrite.h"

namespace menufile {

// Every change that a user can make to a menu file. RewriteMenuFile() applies a
// MenuChange; AddEntries() applies itself. Texts are in the system's ANSI code page
// and are written unchanged: a text with a double quote does not read back. `row` is
// the 0-based number of an entry; separators count.

// Changes to the list of entries. They ignore every failure.

// Exchanges the entry with the one before it. `row` is at least 1.
MenuChange MoveUp(std::size_t row);
// Exchanges the entry with the one after it.
MenuChange MoveDown(std::size_t row);
MenuChange Delete(std::size_t row);
// Inserts a separator before the entry.
MenuChange Separator(std::size_t row);

// The fields of an entry that the wizard asks for: all but the icon.
struct EntryTexts {
  std::string caption;
  std::string target;
  std::string arguments;
  std::string startIn;
};

// Replaces the texts of the entry, which keeps its icon.
MenuChange EditEntry(std::size_t row, EntryTexts texts);

// Gives the entry the icon `iconIndex` of `iconFile`, both as the file is to hold
// them. If `iconFile` equals the entry's caption, an empty text is stored instead.
MenuChange ChangeIcon(std::size_t row, std::string iconFile, std::string iconIndex);

struct Appearance {
  bool smallIcons = false;
  std::string fontName;
  double fontPoints = 0;
  bool fontBold = false;
  bool fontItalic = false;
  std::string picture;  // the bytes of an icon or bitmap file; the menu file begins with them
};

// The menu becomes a user-defined one, whatever its type was. Throws Failure if the
// font size is not finite, or if a reader would find the marker in the picture.
// `path` is the file that the Failure names.
MenuChange SaveAppearance(const Appearance& appearance, const std::string& path);

struct Directory {
  std::string folderPath;  // with drive and trailing backslash
  std::string filePattern;
  bool showFolders = false;
  bool hideKnownExtensions = false;
  bool showHiddenFiles = false;
};

MenuChange SaveDirectory(const Directory& directory);

// Makes the menu a directory pointer to "C:\". Its entries are dropped.
MenuChange SwitchToDirectory();
// Makes the menu a user-defined one without entries.
MenuChange SwitchToUserDefined();

// Adds entries after the last one. The new entries have no icon of their own. Adds
// all of them, or none and throws Failure. If `deletesScratchFile` is true, the
// scratch file "zoltempfileoktodelete" is deleted first, as EditEntry() does.
ChangeResult AddEntries(MenuFile& menu, const std::vector<EntryTexts>& entries,
                        bool deletesScratchFile);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_CHANGES_H_
