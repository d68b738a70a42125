#include <algorithm>
#include <string>
#include <vector>

#include "editor/form2.h"
#include "menufile/changes.h"
#include "menufile/failure.h"
#include "win32/message_box.h"
#include "win32/shell_file.h"
#include "win32/text.h"
#include "win32/wait_pointer.h"

namespace editor {
namespace {

// The name of a new entry. It is never empty, or the entry would be a separator.
std::string NameOf(const std::string& path) {
  const std::string name = win32::ShellNameOf(path);
  return name.empty() ? win32::LastPartOf(path) : name;
}

// A message with more names would not fit on the screen.
constexpr std::size_t kMostNames = 12;

std::wstring RefusedMessage(const std::vector<std::wstring>& paths) {
  constexpr const wchar_t* kReason =
      L" cannot be added. Its name has characters that a menu file cannot hold.";
  if (paths.size() == 1) {
    return L"File " + paths[0] + kReason;
  }
  std::wstring message =
      L"These files cannot be added. Their names have characters that a menu file cannot hold.\n";
  for (std::size_t i = 0; i < std::min(paths.size(), kMostNames); ++i) {
    message += L"\n" + paths[i];
  }
  if (paths.size() > kMostNames) {
    message += L"\n" + win32::ToText(std::to_string(paths.size() - kMostNames)) + L" more";
  }
  return message;
}

}  // namespace

void Form2::List1Drop() {
  const win32::DroppedFiles dropped = list1Drop_.Take();
  if (!dropped.paths.empty()) {
    try {
      AddDropped(dropped.paths);
    } catch (const menufile::Failure& failure) {
      win32::ShowError(window(), win32::ToText(failure.what()));
    }
  }
  if (!dropped.refused.empty()) {
    win32::ShowError(window(), RefusedMessage(dropped.refused));
  }
}

// The shell may take long to find the names, so this asks for all of them before it opens
// the menu file.
void Form2::AddDropped(const std::vector<std::string>& paths) {
  const win32::WaitPointer wait;
  std::vector<menufile::EntryTexts> entries;
  entries.reserve(paths.size());
  for (const std::string& path : paths) {
    entries.push_back({NameOf(path), path, {}, {}});
  }
  AddEntries(entries, false);
}

}  // namespace editor
