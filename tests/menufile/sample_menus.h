#ifndef CORVALIS_TESTS_MENUFILE_SAMPLE_MENUS_H_
#define CORVALIS_TESTS_MENUFILE_SAMPLE_MENUS_H_

#include <string>
#include <string_view>

namespace menufile {

// Menus for the tests, in the layout of writers.

inline constexpr std::string_view kMarker = "\r\n<START ZOL>\r\n";
inline constexpr std::string_view kAppearanceLine = "1,\"Tahoma\",8.25,-1,0\r\n";
inline constexpr std::string_view kSeparatorLine = "\"\",\"\",\"\",\"\",\"\",\r\n";

// Bytes that a picture may hold: NUL, line ends of all kinds, a "<", the marker in the
// middle of a line, and a prefix of the marker.
std::string SamplePicture();

// The line of entry `number`. Different entries have different fields filled.
std::string ItemLine(int number);

// A user-defined menu with `items` entries, every third one a separator.
std::string UserMenu(int items, std::string_view picture = SamplePicture());
std::string DirectoryMenu(std::string_view picture = SamplePicture());
std::string PreviousVersionMenu(int items);

// The part of a menu after the picture, with the marker line.
std::string Description(std::string_view menu, std::string_view picture = SamplePicture());

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_SAMPLE_MENUS_H_
