#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "editor/form2.h"
#include "menufile/changes.h"
#include "menufile/failure.h"
#include "resources/resource.h"
#include "win32/edit_box.h"
#include "win32/message_box.h"
#include "win32/text.h"
#include "win32/wait_pointer.h"
#include "win32/window_text.h"

namespace editor {
namespace {

using menufile::DirectoryPointerRecord;
using menufile::Value;

constexpr std::wstring_view kCannotBeSaved =
    L" cannot be saved. It has characters that a menu file cannot hold.";

// The bytes of a path that the box shows as `shown`. The box may have appended a
// backslash, and then the bytes get one, too. They do not if the path ends with a lone
// lead byte: the backslash would become the second byte of a character.
win32::ShownBytes PathInBox(const std::string& path, const std::wstring& shown) {
  const std::string longer = path + "\\";
  return {win32::ToText(longer) == shown ? longer : path, shown};
}

bool ConfirmLoss(HWND owner) {
  return win32::AskYesOrNo(owner,
                           L"Changing menu type will lose existing data.\r"
                           L"Do you wish to continue?");
}

}  // namespace

void Form2::CreateDirectoryPage() {
  dir1_.Attach(Control(IDC_FORM2_DIR1));
  win32::ReportEnter(dir1_.window());
  // No limit of the length, so that there is always room for the backslash.
  SendMessageW(Control(IDC_FORM2_TEXT7), EM_SETLIMITTEXT, 0, 0);
  SendMessageW(Control(IDC_FORM2_TEXT8), EM_SETLIMITTEXT, 0, 0);
  win32::RefuseUnheldCharacters(Control(IDC_FORM2_TEXT8));
}

void Form2::StartDirectoryPage() {
  if (dir1_.Path().empty()) {
    dir1_.Start();
    win32::FillDriveList(Control(IDC_FORM2_DRIVE1));
    ShowDrive(dir1_.Path());
  }
}

bool Form2::ShowDrive(const std::wstring& path) {
  const HWND drive1 = Control(IDC_FORM2_DRIVE1);
  if (win32::IsOnServer(path)) {
    SendMessageW(drive1, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
  } else {
    win32::SelectDrive(drive1, path);
  }
  const std::wstring former = std::exchange(drive_, win32::SelectedDrive(drive1));
  return drive_ != former;
}

void Form2::ShowDirectoryPointer(const DirectoryPointerRecord& directory) {
  StartDirectoryPage();
  ShowContents(kDirectoryPage);
  const std::string folderPath = directory.folderPath.Text();
  const std::wstring path = win32::ToText(folderPath);
  dir1_.AlwaysList(path);
  // For a folder on a server, setting the text of the box below moves the list.
  if (!win32::IsOnServer(path)) {
    const bool isOtherDrive = ShowDrive(path);
    // If the folder is not there, the lists go to its drive.
    if (dir1_.SetPath(path) || (isOtherDrive && dir1_.SetPath(drive_))) {
      Dir1Change();
    }
  }
  // Set the text only if it differs: an empty box must stay empty, without a backslash.
  if (const HWND text7 = Control(IDC_FORM2_TEXT7); win32::WindowText(text7) != path) {
    win32::SetText(text7, path);
  }
  const HWND text8 = Control(IDC_FORM2_TEXT8);
  win32::SetText(text8, win32::ToText(directory.filePattern.Text()));
  folderPath_ = PathInBox(folderPath, win32::WindowText(Control(IDC_FORM2_TEXT7)));
  filePattern_ = {directory.filePattern.Text(), win32::WindowText(text8)};
  const auto check = [this](int id, const Value& flag) {
    CheckDlgButton(window(), id, flag.Integer() != 0 ? BST_CHECKED : BST_UNCHECKED);
  };
  check(IDC_FORM2_CHECK2, directory.showFolders);
  check(IDC_FORM2_CHECK4, directory.hideKnownExtensions);
  check(IDC_FORM2_CHECK3, directory.showHiddenFiles);
}

// Drives may have been added or removed.
void Form2::Drive1DropDown() { win32::FillDriveList(Control(IDC_FORM2_DRIVE1)); }

void Form2::Drive1Change() {
  const std::wstring drive = win32::SelectedDrive(Control(IDC_FORM2_DRIVE1));
  // Ignore the choice of the drive that was selected before.
  if (std::exchange(drive_, drive) != drive && dir1_.SetPath(drive)) {
    Dir1Change();
  }
}

void Form2::Dir1Change() { win32::SetText(Control(IDC_FORM2_TEXT7), dir1_.Path()); }

void Form2::OpenSelectedFolder() {
  if (dir1_.OpenSelected()) {
    Dir1Change();
  }
}

void Form2::Text7Change() {
  const HWND text7 = Control(IDC_FORM2_TEXT7);
  if (win32::WindowText(text7).ends_with(L'\\')) {
    // Not while the user types: each key would access a server.
    if (GetFocus() != text7) {
      FollowServerPath();
    }
    return;
  }
  DWORD first = 0;
  DWORD last = 0;
  SendMessageW(text7, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
  const int end = GetWindowTextLengthW(text7);
  SendMessageW(text7, EM_SETSEL, static_cast<WPARAM>(end), end);
  // This calls Text7Change() again, which then finds the backslash.
  SendMessageW(text7, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"\\"));
  SendMessageW(text7, EM_SETSEL, first, static_cast<LPARAM>(last));
}

void Form2::Text7LostFocus() { FollowServerPath(); }

void Form2::FollowServerPath() {
  const std::wstring path = win32::WindowText(Control(IDC_FORM2_TEXT7));
  const bool isThere = path == dir1_.Path() || path == dir1_.Path() + L"\\";
  if (std::exchange(followedPath_, path) == path || isThere || !win32::IsOnServer(path)) {
    return;
  }
  const win32::WaitPointer wait;
  if (dir1_.SetPath(path)) {
    ShowDrive(path);
  }
}

bool Form2::RewriteSilently(const menufile::MenuChange& change) {
  try {
    return Rewrite(change);
  } catch (const menufile::Failure&) {
    return false;
  }
}

void Form2::Command15Click() {
  const HWND text7 = Control(IDC_FORM2_TEXT7);
  const std::wstring path = win32::WindowText(text7);
  const std::optional<std::string> folderPath = folderPath_.PathBytesOf(path);
  const std::wstring pattern = win32::WindowText(Control(IDC_FORM2_TEXT8));
  const std::optional<std::string> filePattern = filePattern_.BytesOf(pattern);
  if (!folderPath || !filePattern) {
    win32::ShowError(window(), folderPath
                                   ? L"The file pattern " + pattern + std::wstring(kCannotBeSaved)
                                   : L"The path " + path + std::wstring(kCannotBeSaved));
    return;
  }
  // Show the short names that the path may have got.
  if (!folderPath_.IsShownBy(path) && win32::ToText(*folderPath) != path) {
    win32::SetText(text7, win32::ToText(*folderPath));
  }
  const auto isChecked = [this](int id) { return IsDlgButtonChecked(window(), id) == BST_CHECKED; };
  RewriteSilently(
      menufile::SaveDirectory({*folderPath, *filePattern, isChecked(IDC_FORM2_CHECK2),
                               isChecked(IDC_FORM2_CHECK4), isChecked(IDC_FORM2_CHECK3)}));
}

void Form2::Command13Click() {
  if (items_.Count() > 0 && !ConfirmLoss(window())) {
    return;
  }
  if (!RewriteSilently(menufile::SwitchToDirectory())) {
    return;
  }
  items_.Clear();
  items_.SetIcon(0, nullptr);
  items_.DestroyUnusedIcons();
  items_.Hidden(0).text.clear();
  iconic1_.Clear();
  SwitchContents(kDirectoryPage, IDC_FORM2_COMMAND14);
}

void Form2::Command14Click() {
  if (!win32::WindowText(Control(IDC_FORM2_TEXT7)).empty() && !ConfirmLoss(window())) {
    return;
  }
  if (RewriteSilently(menufile::SwitchToUserDefined())) {
    SwitchContents(kItemPage, IDC_FORM2_COMMAND13);
  }
}

// The focused button is about to be hidden: the focus moves to its counterpart on
// the other page.
void Form2::SwitchContents(Page page, int button) {
  const bool hasFocus = IsChild(window(), GetFocus()) != FALSE;
  ShowContents(page);
  if (hasFocus) {
    SendMessageW(window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(button)), TRUE);
  }
}

}  // namespace editor
