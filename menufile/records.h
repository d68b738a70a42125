#ifndef CORVALIS_MENUFILE_RECORDS_H_
#define CORVALIS_MENUFILE_RECORDS_H_

#include <string>
#include <string_view>

#include "menufile/value.h"

// The lines of a menu file:
//
//   menu file   = picture CR LF "<START ZOL>" CR LF type line, appearance line,
//                 (item line* | directory line)
//   type line   = '"USERDEF"' CR LF | '"DIRPOINT"' CR LF
//   other lines = field ("," field)* CR LF
//
// Text fields stand in double quotes, numbers are bare. There is no escape: a text
// with a double quote in it is written unchanged and does not read back.
// docs/format.md has the whole format.
namespace menufile {

// The line that ends the picture, without its line end.
inline constexpr std::string_view kMarkerText = "<START ZOL>";
// The marker as it is written, with the line ends before and after it.
inline constexpr std::string_view kMarkerLine = "\r\n<START ZOL>\r\n";

enum class MenuType {
  UserDefined,       // "USERDEF": the menu shows a list of entries
  DirectoryPointer,  // "DIRPOINT": the menu shows what a folder holds
};

// The look of the menu: the line after the type line.
struct AppearanceRecord {
  Value smallIcons;  // 1 if the menu shows small icons, else 0
  Value fontName;    // face name
  Value fontSize;    // in points, up to four fractional digits
  Value fontBold;    // -1 for true, 0 for false
  Value fontItalic;  // -1 for true, 0 for false
};

// One entry of a user-defined menu. An entry with an empty caption is a separator.
struct MenuItemRecord {
  Value caption;
  Value target;     // file, folder, program or address that the entry opens
  Value arguments;  // for the target's command line
  Value startIn;    // working folder for the target
  Value iconFile;   // the file that holds the entry's icon; if empty, the target does
  Value iconIndex;  // the 0-based number of the icon in that file, or a negative resource id
  // The line that the fields were read from, if AppendLine() would write the same bytes
  // for them. Empty otherwise.
  std::string_view line{};
};

// The folder of a directory-pointer menu. The flags stand here in the order of the
// file; the window shows them in another.
struct DirectoryPointerRecord {
  Value folderPath;           // with drive and trailing backslash
  Value filePattern;          // "*.*" for all files
  Value showFolders;          // 1 for true, 0 for false
  Value hideKnownExtensions;  // likewise
  Value showHiddenFiles;      // likewise
};

std::string_view TypeKeyword(MenuType type);

// Each appends one line to `out`, with its line end.
void AppendTypeLine(std::string& out, std::string_view keyword);
void AppendLine(std::string& out, const AppearanceRecord& record);
void AppendLine(std::string& out, const MenuItemRecord& record);
void AppendLine(std::string& out, const DirectoryPointerRecord& record);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_RECORDS_H_
