#ifndef CORVALIS_TESTS_WINDOWS_MENU_BYTES_H_
#define CORVALIS_TESTS_WINDOWS_MENU_BYTES_H_

#include <string>
#include <vector>

// The bytes of menu files, put together without any of the code under test.
namespace testing_menus {

// What stands before the marker line where a test does not care: no picture
// that anything could show, but with bytes that a careless copy would spoil.
inline const std::string kPicture = std::string("\0\r\n<\xFFpicture\r<START", 19);

inline const std::string kAppearance = "0,\"Tahoma\",8.25,0,0\r\n";

// A line of five quoted fields and a bare one.
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
