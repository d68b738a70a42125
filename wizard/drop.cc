#include <string>
#include <vector>

#include "editor/form2.h"
#include "menufile/append.h"
#include "win32/message_box.h"
#include "win32/shell_file.h"
#include "wizard/entry.h"

namespace editor {
namespace {

// Every entry has a name: one without would be a separator.
std::string NameOf(const std::string& path) {
  const std::string name = win32::ShellNameOf(path);
  return name.empty() ? win32::LastPartOf(path) : name;
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
