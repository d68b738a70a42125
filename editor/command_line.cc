#include "editor/command_line.h"

#include <windows.h>

#include <algorithm>

#include "menufile/failure.h"

namespace editor {
namespace {

constexpr std::string_view kBlanks = " \t";

// Windows ends the program's name at the next quote when it begins with one,
// else at the next blank.
std::string_view SkipProgramName(std::string_view commandLine) {
  const bool quoted = !commandLine.empty() && commandLine[0] == '"';
  const std::size_t end = quoted ? commandLine.find('"', 1) : commandLine.find_first_of(kBlanks, 0);
  return commandLine.substr(std::min(end, commandLine.size() - 1) + 1);
}

}  // namespace

std::string Arguments() {
  std::string_view arguments = GetCommandLineA();
  if (arguments.empty()) {
    return {};
  }
  arguments = SkipProgramName(arguments);
  arguments.remove_prefix(std::min(arguments.find_first_not_of(kBlanks), arguments.size()));
  return std::string(arguments.substr(0, arguments.find_last_not_of(kBlanks) + 1));
}

std::string MenuFilePath(std::string_view arguments) {
  if (arguments.size() < 2) {
    throw menufile::Failure(
        std::string(arguments), "open a menu file",
        "The program is started with the path of a menu file in double quotes, as in "
        "CorvalisEdit.exe \"C:\\menus\\tools.menu\"");
  }
  return std::string(arguments.substr(1, arguments.size() - 2));
}

}  // namespace editor
