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
// Text fields stand in double quotes and numbers are bare. There is no escape:
// a text that holds a double quote is written as it is and does not read back.
namespace menufile {

// The line that ends the picture, without its line end.
inline constexpr std::string_view kMarkerText = "<START ZOL>";
// The same with the line ends before and after it, as it is written.
inline constexpr std::string_view kMarkerLine = "\r\n<START ZOL>\r\n";

enum class MenuType {
  UserDefined,       // "USERDEF": the menu shows a list of entries
  DirectoryPointer,  // "DIRPOINT": the menu shows what a folder holds
};

// How the menu looks; the line after the type line.
struct AppearanceRecord {
  Value smallIcons;  // 1 when the menu shows small icons, else 0
  Value fontName;    // face name
  Value fontSize;    // in points, up to four fractional digits
  Value fontBold;    // -1 or 0
  Value fontItalic;  // -1 or 0
};

// One entry of a user-defined menu. One with an empty caption is a separator.
struct MenuItemRecord {
  Value caption;
  Value target;     // file, folder, program or address that the entry opens
  Value arguments;  // for the target's command line
  Value startIn;    // working folder for the target
  Value iconFile;   // file that the entry's icon is taken from; may be empty
  Value iconIndex;  // 0-based, inside iconFile, or inside target if that is empty
};

// Where a directory-pointer menu takes its entries from. The order of the flags
// is the file's; the window shows them in another.
struct DirectoryPointerRecord {
  Value folderPath;   // with drive and trailing backslash
  Value filePattern;  // "*.*" for all files
  Value showFolders;  // the flags are 1 or 0
  Value hideKnownExtensions;
  Value showHiddenFiles;
};

std::string_view TypeKeyword(MenuType type);

// Each appends one line to `out`, with its line end.
void AppendTypeLine(std::string& out, std::string_view keyword);
void AppendLine(std::string& out, const AppearanceRecord& record);
void AppendLine(std::string& out, const MenuItemRecord& record);
void AppendLine(std::string& out, const DirectoryPointerRecord& record);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_RECORDS_H_
