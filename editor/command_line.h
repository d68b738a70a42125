#ifndef CORVALIS_EDITOR_COMMAND_LINE_H_
#define CORVALIS_EDITOR_COMMAND_LINE_H_

#include <string>
#include <string_view>

namespace editor {

// The command line of this process after the program's name, without the blanks
// around it. Quotes stay.
std::wstring Arguments();

// The path of the menu file: `arguments` without the first and the last character.
// These should be double quotes, but nothing checks that. The path is in the ANSI code
// page, by win32::PathToBytes(). Throws menufile::Failure if `arguments` has fewer than
// two characters, and win32::TextFailure if the code page cannot hold the path.
std::string MenuFilePath(std::wstring_view arguments);

// A hint for the message that the menu file cannot be opened: its path has to stand in
// double quotes. Empty if `arguments` is one text in double quotes.
std::wstring HintAtQuotes(std::wstring_view arguments);

}  // namespace editor

#endif  // CORVALIS_EDITOR_COMMAND_LINE_H_
