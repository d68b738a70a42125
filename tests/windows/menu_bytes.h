#ifndef CORVALIS_TESTS_WINDOWS_MENU_BYTES_H_
#define CORVALIS_TESTS_WINDOWS_MENU_BYTES_H_

#include <string>
#include <vector>

// Makes menu files without the code under test.
namespace testing_menus {

// The bytes before the marker line if a test does not care about them. They are no real
// picture, but a wrong copy would spoil them.
inline const std::string kPicture = std::string("\0\r\n<\xFFpicture\r<START", 19);

inline const std::string kAppearance = "0,\"Tahoma\",8.25,0,0\r\n";

// A line with five quoted fields and a bare one.
std::string ItemLine(const std::string& caption, const std::string& target,
                     const std::string& arguments = "", const std::string& startIn = "",
                     const std::string& iconFile = "", const std::string& iconIndex = "0");

inline const std::string kSeparatorLine = "\"\",\"\",\"\",\"\",\"\",\r\n";

std::string UserDefinedMenu(const std::vector<std::string>& itemLines,
                            const std::string& appearance = kAppearance,
                            const std::string& picture = kPicture);

std::string DirectoryMenu(const std::string& directoryLine,
                          const std::string& appearance = kAppearance,
                          const std::string& picture = kPicture);

}  // namespace testing_menus

#endif  // CORVALIS_TESTS_WINDOWS_MENU_BYTES_H_
