#ifndef CORVALIS_TESTS_MENUFILE_SAMPLE_MENUS_H_
#define CORVALIS_TESTS_MENUFILE_SAMPLE_MENUS_H_

#include <string>
#include <string_view>

namespace menufile {

// Menus that the tests begin with, as an editor writes them.

inline constexpr std::string_view kMarker = "\r\n<START ZOL>\r\n";
inline constexpr std::string_view kAppearanceLine = "1,\"Tahoma\",8.25,-1,0\r\n";
inline constexpr std::string_view kSeparatorLine = "\"\",\"\",\"\",\"\",\"\",\r\n";

// Some bytes that a picture may hold: NUL, line ends of all kinds, a "<", the
// marker in the middle of a line and cut off.
std::string SamplePicture();

// Entry `number` of a menu; each has other fields filled.
std::string ItemLine(int number);

// The picture, the lines that every menu has, and `items` entries of which
// every third is a separator.
std::string UserMenu(int items, std::string_view picture = SamplePicture());
std::string DirectoryMenu(std::string_view picture = SamplePicture());
std::string PreviousVersionMenu(int items);

// What stands behind the picture, marker line included.
std::string Description(std::string_view menu, std::string_view picture = SamplePicture());

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_SAMPLE_MENUS_H_
