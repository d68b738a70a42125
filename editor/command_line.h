#ifndef CORVALIS_EDITOR_COMMAND_LINE_H_
#define CORVALIS_EDITOR_COMMAND_LINE_H_

#include <string>
#include <string_view>

namespace editor {

// The arguments of this process as they were typed: its command line after the
// program's name, without the blanks around them, quotes included.
std::wstring Arguments();

// The path of the menu file: `arguments` without their first and last
// character, which are double quotes when the program is started as it is meant
// to be; nothing checks that they are. In bytes, with short names where the code
// page needs them. Throws menufile::Failure when there are fewer than two
// characters, and win32::TextFailure when there are no bytes for the path.
std::string MenuFilePath(std::wstring_view arguments);

// What to add to the message when there is no menu file at that path: that it has
// to stand in double quotes, if `arguments` are anything but one text in them.
// Else nothing.
std::wstring HintAtQuotes(std::wstring_view arguments);

}  // namespace editor

#endif  // CORVALIS_EDITOR_COMMAND_LINE_H_
