#include "tests/windows/outside/changes.h"

#include <utility>

#include "resources/resource.h"
#include "tests/windows/outside/drag.h"

namespace outside {
namespace {

using namespace testing_menus;

// Longer texts only make writing slow; they would make a text box slow, too.
constexpr std::size_t kShort = 1000;

// The rows of the entries with short texts and with a target, or with just that target if
// it is given.
std::vector<std::size_t> ShortEntries(const KnownMenu& menu, const std::string& target = "") {
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < menu.entries.size(); ++row) {
    const Entry& entry = menu.entries[row];
    if (!entry.target.empty() && entry.Line().size() < kShort &&
        (target.empty() || entry.target == target)) {
      rows.push_back(row);
    }
  }
  return rows;
}

}  // namespace

const char* NameOf(ChangeKind kind) {
  static constexpr const char* kNames[] = {
      "move up",        "move down",     "delete",      "separator",       "add",
      "drop",           "edit",          "change icon", "save appearance", "switch to directory",
      "save directory", "switch to list"};
  return kNames[static_cast<int>(kind)];
}

Changes::Changes(const Program& program, HWND form2, std::mt19937_64& random,
                 std::string iconLibrary)
    : program_(program), form2_(form2), random_(random), iconLibrary_(std::move(iconLibrary)) {}

bool Changes::IsPossible(ChangeKind kind, const KnownMenu& menu) const {
  switch (kind) {
    case ChangeKind::MoveUp:
    case ChangeKind::MoveDown:
      return !menu.isDirectory && menu.entries.size() > 1;
    case ChangeKind::Separator:
    case ChangeKind::ToDirectory:  // an empty list is switched without a question
      return !menu.isDirectory && !menu.entries.empty();
    case ChangeKind::Add:
    case ChangeKind::Drop:
    case ChangeKind::SaveAppearance:
      return !menu.isDirectory;
    case ChangeKind::Delete:
    case ChangeKind::Edit:
      return !ShortEntries(menu).empty();
    case ChangeKind::ChangeIcon:
      return !ShortEntries(menu, iconLibrary_).empty();
    case ChangeKind::SaveDirectory:
    case ChangeKind::ToList:
      return menu.isDirectory;
  }
  return false;
}

std::optional<PreparedChange> Changes::Prepare(ChangeKind kind, const KnownMenu& menu) {
  KnownMenu after = menu;
  const std::size_t count = menu.entries.size();
  const auto select = [&](std::size_t row) {
    SelectRow(GetDlgItem(form2_, IDC_FORM2_LIST1), static_cast<int>(row));
  };
  switch (kind) {
    case ChangeKind::MoveUp:
    case ChangeKind::MoveDown: {
      const bool isUp = kind == ChangeKind::MoveUp;
      const std::size_t row = Below(count - 1);
      select(isUp ? row + 1 : row);
      std::swap(after.entries[row], after.entries[row + 1]);
      return PreparedChange{std::move(after), form2_,
                            isUp ? IDC_FORM2_COMMAND4 : IDC_FORM2_COMMAND8, nullptr};
    }
    case ChangeKind::Delete: {
      // Delete a short entry, so that the menu stays large.
      const std::size_t row = RandomEntry(menu);
      select(row);
      after.entries.erase(after.entries.begin() + static_cast<std::ptrdiff_t>(row));
      return PreparedChange{std::move(after), form2_, IDC_FORM2_COMMAND7, nullptr};
    }
    case ChangeKind::Separator: {
      const std::size_t row = Below(count);
      select(row);
      after.entries.insert(after.entries.begin() + static_cast<std::ptrdiff_t>(row),
                           testing_menus::Separator());
      return PreparedChange{std::move(after), form2_, IDC_FORM2_COMMAND9, nullptr};
    }
    case ChangeKind::Add:
      return PrepareAdd(std::move(after));
    case ChangeKind::Drop:
      return PrepareDrop(std::move(after));
    case ChangeKind::Edit:
      return PrepareEdit(std::move(after));
    case ChangeKind::ChangeIcon:
      return PrepareChangeIcon(std::move(after));
    case ChangeKind::SaveAppearance:
      return PrepareSaveAppearance(std::move(after));
    case ChangeKind::ToDirectory:
      after.isDirectory = true;
      after.directory = "\"C:\\\",\"*.*\",1,0,0\r\n";
      after.entries.clear();
      return PrepareSwitch(std::move(after), IDC_FORM2_COMMAND13);
    case ChangeKind::SaveDirectory:
      return PrepareSaveDirectory(std::move(after));
    case ChangeKind::ToList:
      after.isDirectory = false;
      after.directory.clear();
      // With an empty path there would be no question.
      Type(form2_, IDC_FORM2_TEXT7, "C:\\");
      return PrepareSwitch(std::move(after), IDC_FORM2_COMMAND14);
  }
  return std::nullopt;
}

std::optional<PreparedChange> Changes::PrepareAdd(KnownMenu menu) {
  Click(form2_, IDC_FORM2_COMMAND2);
  const HWND wizard = program_.WaitFor("Form3");
  if (wizard == nullptr) {
    return std::nullopt;
  }
  const Entry entry{Word(), "news:" + Word(), Word(), Word(), "", "0"};
  Type(wizard, IDC_FORM3_TEXT1, entry.target);
  Type(wizard, IDC_FORM3_TEXT2, entry.arguments);
  Type(wizard, IDC_FORM3_TEXT3, entry.startIn);
  Press(wizard, IDC_FORM3_COMMAND1);
  Type(wizard, IDC_FORM3_TEXT4, entry.caption);
  menu.entries.push_back(entry);
  return PreparedChange{std::move(menu), wizard, IDC_FORM3_COMMAND5,
                        [this] { return WaitUntilUsable(); }};
}

PreparedChange Changes::PrepareDrop(KnownMenu menu) {
  constexpr std::size_t kFiles = 3;
  const std::string name = iconLibrary_.substr(iconLibrary_.find_last_of('\\') + 1);
  menu.entries.insert(menu.entries.end(), kFiles, {name, iconLibrary_, "", "", "", "0"});
  const std::vector<std::wstring> paths(kFiles, {iconLibrary_.begin(), iconLibrary_.end()});
  return {std::move(menu), form2_, 0, [this] { return WaitUntilIdle(form2_); },
          [this, paths](const std::function<void()>& before) {
            DragTo(GetDlgItem(form2_, IDC_FORM2_LIST1), DragData::Files(paths), before);
          }};
}

std::optional<PreparedChange> Changes::PrepareEdit(KnownMenu menu) {
  const std::size_t row = RandomEntry(menu);
  SelectRow(GetDlgItem(form2_, IDC_FORM2_LIST1), static_cast<int>(row));
  Click(form2_, IDC_FORM2_COMMAND3);
  const HWND wizard = program_.WaitFor("Form3");
  Entry& entry = menu.entries[row];
  if (wizard == nullptr ||
      !WaitUntil([&] { return Text(wizard, IDC_FORM3_TEXT4) == entry.caption; })) {
    return std::nullopt;
  }
  entry.caption = Word();
  entry.arguments = Word();
  Type(wizard, IDC_FORM3_TEXT2, entry.arguments);
  Press(wizard, IDC_FORM3_COMMAND1);
  Type(wizard, IDC_FORM3_TEXT4, entry.caption);
  return PreparedChange{std::move(menu), wizard, IDC_FORM3_COMMAND5,
                        [this] { return WaitUntilUsable(); }};
}

std::optional<PreparedChange> Changes::PrepareChangeIcon(KnownMenu menu) {
  const std::size_t row = RandomEntry(menu, iconLibrary_);
  SelectRow(GetDlgItem(form2_, IDC_FORM2_LIST1), static_cast<int>(row));
  Click(form2_, IDC_FORM2_COMMAND11);
  const HWND form4 = program_.WaitFor("Form4");
  if (form4 == nullptr || !WaitUntil([&] { return Text(form4, IDC_FORM4_LABEL1) == "12 Icons"; })) {
    return std::nullopt;
  }
  const HWND bar = GetDlgItem(form4, IDC_FORM4_HSCROLL1);
  const int index = static_cast<int>(Below(12));
  // A late activation by the window manager moves the bar back, so it has to be seen in its
  // place several times.
  int seen = -1;
  const bool isSet = WaitUntil([&] {
    if (seen < 0 || GetForegroundWindow() != form4 ||
        SendMessageA(bar, SBM_GETPOS, 0, 0) != index) {
      SendMessageA(form4, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, index),
                   reinterpret_cast<LPARAM>(bar));
      seen = 0;
    }
    return ++seen == 5;
  });
  if (!isSet) {
    return std::nullopt;
  }
  menu.entries[row].iconFile = iconLibrary_;
  menu.entries[row].iconIndex = std::to_string(index);
  return PreparedChange{std::move(menu), form4, IDC_FORM4_COMMAND1,
                        [this] { return WaitUntilUsable(); }};
}

std::optional<PreparedChange> Changes::PrepareSaveAppearance(KnownMenu menu) {
  Press(form2_, IDC_FORM2_CHECK1);
  menu.appearance[0] = menu.appearance[0] == '0' ? '1' : '0';
  menu.picture = testing_menus::EmptyPreview();
  return PreparedChange{std::move(menu), form2_, IDC_FORM2_COMMAND12, [this] {
                          const HWND box = program_.WaitFor("#32770");
                          if (box == nullptr || Text(box) != "Corvalis Edit") {
                            return false;
                          }
                          Click(box, IDOK);
                          return program_.WaitUntilGone("#32770") && WaitUntilIdle(form2_);
                        }};
}

std::optional<PreparedChange> Changes::PrepareSaveDirectory(KnownMenu menu) {
  const std::string folder = "C:\\" + Word() + "\\";
  const std::string pattern = "*." + Word();
  Type(form2_, IDC_FORM2_TEXT7, folder);
  Type(form2_, IDC_FORM2_TEXT8, pattern);
  const auto flag = [&](int id) {
    return SendMessageA(GetDlgItem(form2_, id), BM_GETCHECK, 0, 0) == BST_CHECKED ? "1" : "0";
  };
  Press(form2_, IDC_FORM2_CHECK3);
  menu.directory = "\"" + folder + "\",\"" + pattern + "\"," + flag(IDC_FORM2_CHECK2) + "," +
                   flag(IDC_FORM2_CHECK4) + "," + flag(IDC_FORM2_CHECK3) + "\r\n";
  return PreparedChange{std::move(menu), form2_, IDC_FORM2_COMMAND15, nullptr};
}

std::optional<PreparedChange> Changes::PrepareSwitch(KnownMenu after, int button) {
  Click(form2_, button);
  const HWND box = program_.WaitFor("#32770");
  if (box == nullptr || Text(box) != "Query?") {
    return std::nullopt;
  }
  return PreparedChange{std::move(after), box, IDYES, [this] {
                          // The box closes before the program writes.
                          return program_.WaitUntilGone("#32770") && WaitUntilUsable();
                        }};
}

std::size_t Changes::RandomEntry(const KnownMenu& menu, const std::string& target) {
  const std::vector<std::size_t> rows = ShortEntries(menu, target);
  return rows.at(Below(rows.size()));
}

std::size_t Changes::Below(std::size_t count) { return random_() % count; }

std::string Changes::Word() {
  std::string word(1 + Below(40), '\0');
  for (char& c : word) {
    c = static_cast<char>('a' + Below(26));
  }
  return word;
}

bool Changes::WaitUntilUsable() const {
  return WaitUntil([&] {
           return program_.Find("Form3") == nullptr && program_.Find("Form4") == nullptr &&
                  IsWindowEnabled(form2_);
         }) &&
         WaitUntilIdle(form2_);
}

}  // namespace outside
