#ifndef CORVALIS_EDITOR_COMMAND_LINE_H_
#define CORVALIS_EDITOR_COMMAND_LINE_H_

#include <string>
#include <string_view>

namespace editor {

// The arguments of this process as they were typed: its command line behind the
// program's name and the blanks around, quotes included.
std::string Arguments();

// The path of the menu file: `arguments` without their first and last
// character, which are double quotes when the program is started as it is meant
// to be; nothing checks that they are. Throws menufile::Failure when there are
// fewer than two characters.
std::string MenuFilePath(std::string_view arguments);

}  // namespace editor

#endif  // CORVALIS_EDITOR_COMMAND_LINE_H_
