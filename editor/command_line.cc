#include "editor/command_line.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>

#include "menufile/failure.h"
#include "win32/text.h"

namespace editor {
namespace {

constexpr std::wstring_view kBlanks = L" \t";

// As in Windows, the program's name ends at the second quote if it begins with one, and
// otherwise at the first blank.
std::wstring_view SkipProgramName(std::wstring_view commandLine) {
  const bool quoted = !commandLine.empty() && commandLine[0] == L'"';
  const std::size_t end =
      quoted ? commandLine.find(L'"', 1) : commandLine.find_first_of(kBlanks, 0);
  return commandLine.substr(std::min(end, commandLine.size() - 1) + 1);
}

}  // namespace

std::wstring Arguments() {
  std::wstring_view arguments = GetCommandLineW();
  if (arguments.empty()) {
    return {};
  }
  arguments = SkipProgramName(arguments);
  arguments.remove_prefix(std::min(arguments.find_first_not_of(kBlanks), arguments.size()));
  return std::wstring(arguments.substr(0, arguments.find_last_not_of(kBlanks) + 1));
}

std::string MenuFilePath(std::wstring_view arguments) {
  if (arguments.size() < 2) {
    throw menufile::Failure(
        win32::ToBytes(arguments).value_or(""), "open a menu file",
        "The program is started with the path of a menu file in double quotes, as in "
        "CorvalisEdit.exe \"C:\\menus\\tools.menu\"");
  }
  const std::wstring_view path = arguments.substr(1, arguments.size() - 2);
  if (const std::optional<std::string> bytes = win32::PathToBytes(path)) {
    return *bytes;
  }
  throw win32::TextFailure(L"Cannot open the file:\n" + std::wstring(path) +
                           L"\n\nIts name has characters that the programs of this system's "
                           L"code page cannot use.");
}

std::wstring HintAtQuotes(std::wstring_view arguments) {
  const bool isQuoted = arguments.size() > 1 && arguments.find(L'"', 1) == arguments.size() - 1 &&
                        arguments.front() == L'"';
  // If there is no path at all, the message itself names the quotes.
  if (isQuoted || arguments.size() < 2) {
    return {};
  }
  return L"\n\nThe path of the menu file has to stand in double quotes, with nothing after it, "
         L"as in CorvalisEdit.exe \"C:\\menus\\tools.menu\".";
}

}  // namespace editor
