#include <string>
#include <vector>

#include "editor/form2.h"
#include "menufile/append.h"
#include "win32/message_box.h"
#include "win32/shell_file.h"
#include "wizard/entry.h"

namespace editor {
namespace {

// Byte by byte one would take the second half of a double-byte character for a
// backslash.
std::string LastPart(const std::string& path) {
  const char* name = path.c_str();
  for (const char* c = name; *c != '\0'; c = CharNextA(c)) {
    if (*c == '\\') {
      name = c + 1;
    }
  }
  return name;
}

// The name that the shell shows for a file. No file name holds a question mark:
// one stands for a character that the code page cannot hold, in the long name of
// a file that `path` names by its short one. Then the short one is shown.
std::string NameOf(const std::string& path) {
  const std::string name = win32::ShellFile(path).displayName;
  return name.find('?') == std::string::npos ? name : LastPart(path);
}

}  // namespace

void Form2::List1Drop() {
  const std::vector<std::string>& paths = list1Drop_.Files().paths;
  if (paths.empty()) {
    return;
  }
  menufile::MenuAppender menu = OpenToAppend();
  for (const std::string& path : paths) {
    wizard::AppendEntry(menu, items_, {NameOf(path), path, {}, {}});
  }
}

void Form2::List1DropRefused() {
  for (const std::wstring& path : list1Drop_.Files().refused) {
    win32::ShowError(window(), L"File " + path +
                                   L" cannot be added. Its name has characters that a menu file "
                                   L"cannot hold.");
  }
}

}  // namespace editor
