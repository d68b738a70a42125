#include "wizard/form3.h"

#include <utility>

#include "menufile/changes.h"
#include "menufile/failure.h"
#include "resources/resource.h"
#include "win32/edit_box.h"
#include "win32/file_dialog.h"
#include "win32/message_box.h"
#include "win32/route.h"
#include "win32/scaled_bitmap.h"
#include "win32/shell_file.h"
#include "win32/text.h"
#include "win32/window_text.h"
#include "wizard/target.h"

namespace wizard {
namespace {

constexpr win32::Route<Form3> kRoutes[] = {
    {IDC_FORM3_TEXT1, EN_CHANGE, &Form3::Text1Change},
    {IDC_FORM3_TEXT4, EN_CHANGE, &Form3::Text4Change},
    {IDC_FORM3_COMMAND3, BN_CLICKED, &Form3::Command3Click},
    {IDC_FORM3_COMMAND1, BN_CLICKED, &Form3::Command1Click},
    {IDC_FORM3_COMMAND4, BN_CLICKED, &Form3::Command4Click},
    {IDC_FORM3_COMMAND5, BN_CLICKED, &Form3::Command5Click},
    {IDC_FORM3_COMMAND2, BN_CLICKED, &Form3::Command2Click},
    {IDCANCEL, BN_CLICKED, &Form3::Command2Click},  // the Esc key
};

constexpr const wchar_t* kProgramFilter =
    L"Program Files\0*.com;*.exe;*.bat\0"
    L"All files\0*.*\0";

}  // namespace

Form3::Form3(editor::Form2& form2) : Form(kForm3Plan, form2.window(), kTargetPage), form2_(form2) {
  // Not the box of the target: a path gets short names instead.
  for (const int box : {IDC_FORM3_TEXT2, IDC_FORM3_TEXT3, IDC_FORM3_TEXT4}) {
    win32::RefuseUnheldCharacters(Control(box));
  }
  OnArranged();
  Text1Change();
  EnableWindow(Control(IDC_FORM3_COMMAND4), FALSE);
  SetDefaultButton(IDC_FORM3_COMMAND1);
}

void Form3::Fill(const menufile::MenuEntry& entry) {
  const auto fill = [this](int box, const std::string& bytes) {
    // The box is empty already; setting it would report a change.
    if (!bytes.empty()) {
      win32::SetText(Control(box), win32::ToText(bytes));
    }
    return win32::ShownBytes{bytes, Text(box)};
  };
  target_ = fill(IDC_FORM3_TEXT1, entry.target);
  arguments_ = fill(IDC_FORM3_TEXT2, entry.arguments);
  startIn_ = fill(IDC_FORM3_TEXT3, entry.startIn);
  caption_ = fill(IDC_FORM3_TEXT4, entry.caption);
}

void Form3::Text1Change() {
  EnableWindow(Control(IDC_FORM3_COMMAND1), !Text(IDC_FORM3_TEXT1).empty());
}

void Form3::Text4Change() {
  EnableWindow(Control(IDC_FORM3_COMMAND5), !Text(IDC_FORM3_TEXT4).empty());
}

void Form3::Command3Click() {
  const std::optional<std::wstring> file =
      win32::ChooseFile(window(), L"Select Program", kProgramFilter, L"");
  if (!file && win32::FileDialogFailed()) {
    return;
  }
  // After a cancel, the box is emptied.
  win32::SetText(Control(IDC_FORM3_TEXT1), file.value_or(L""));
}

void Form3::Command1Click() {
  const std::wstring typed = Text(IDC_FORM3_TEXT1);
  const std::optional<std::string> target = Target();
  if (!target || !IsAcceptedTarget(typed)) {
    win32::ShowError(window(), L"File " + typed + L" cannot be accessed. Please check the path.");
    return;
  }
  // Show the short names that the path may have got.
  if (!target_.IsShownBy(typed) && win32::ToText(*target) != typed) {
    win32::SetText(Control(IDC_FORM3_TEXT1), win32::ToText(*target));
  }
  ShowPages(kNamePage);
  win32::SetText(Control(IDC_FORM3_LABEL1), kNamePrompt);
  SetDefaultButton(IDC_FORM3_COMMAND5);
  EnableWindow(Control(IDC_FORM3_COMMAND4), TRUE);
  if (!editedRow_) {
    win32::SetText(Control(IDC_FORM3_TEXT4), win32::ToText(win32::ShellNameOf(*target)));
  }
  Text4Change();
  FocusOn(IDC_FORM3_TEXT4);
}

void Form3::Command4Click() {
  ShowPages(kTargetPage);
  win32::SetText(Control(IDC_FORM3_LABEL1), kTargetPrompt);
  // From here on there is no default button: the first page has one only until the
  // first Next.
  SetDefaultButton(0);
  EnableWindow(Control(IDC_FORM3_COMMAND5), TRUE);
  FocusOn(IDC_FORM3_TEXT1);
  EnableWindow(Control(IDC_FORM3_COMMAND4), FALSE);
}

void Form3::Command5Click() {
  const std::optional<menufile::EntryTexts> entry = TypedEntry();
  if (!entry) {
    return;
  }
  try {
    if (editedRow_) {
      ChangeEntry(*editedRow_, *entry);
    } else if (!form2_.AddEntries({*entry}, true) && !addIsUnfinished_) {
      return;  // an earlier change was finished instead; the next press adds the entry
    }
  } catch (const menufile::Failure&) {
    // If the entry was written in part, the next press finishes it.
    addIsUnfinished_ = !editedRow_ && form2_.menu().HasUnfinished();
    return;  // without a message; the wizard stays open
  }
  form2_.CloseChild();
}

void Form3::Command2Click() { form2_.CloseChild(); }

void Form3::OnCommand(int id, UINT event) { win32::Follow<Form3>(kRoutes, *this, id, event); }

void Form3::OnClose() { form2_.CloseChild(); }

void Form3::OnArranged() {
  const HWND picture = Control(IDC_FORM3_PICTURE1);
  RECT area{};
  GetClientRect(picture, &area);
  win32::UniqueBitmap banner = win32::LoadScaledBitmap(IDB_WIZARD, {area.right, area.bottom});
  SendMessageW(picture, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(banner.get()));
  banner_ = std::move(banner);
}

std::wstring Form3::Text(int id) const { return win32::WindowText(Control(id)); }

std::optional<std::string> Form3::Target() const {
  return target_.PathBytesOf(Text(IDC_FORM3_TEXT1));
}

std::optional<menufile::EntryTexts> Form3::TypedEntry() const {
  struct Field {
    const wchar_t* name = nullptr;
    int box = 0;
    std::optional<std::string> bytes;
  };
  const Field fields[] = {
      {L"name", IDC_FORM3_TEXT4, caption_.BytesOf(Text(IDC_FORM3_TEXT4))},
      {L"target", IDC_FORM3_TEXT1, Target()},
      {L"command line", IDC_FORM3_TEXT2, arguments_.BytesOf(Text(IDC_FORM3_TEXT2))},
      {L"start in folder", IDC_FORM3_TEXT3, startIn_.BytesOf(Text(IDC_FORM3_TEXT3))},
  };
  for (const Field& field : fields) {
    if (!field.bytes) {
      win32::ShowError(window(), std::wstring(L"The ") + field.name + L" " + Text(field.box) +
                                     L" cannot be saved. It has characters that a menu file "
                                     L"cannot hold.");
      return std::nullopt;
    }
  }
  return menufile::EntryTexts{*fields[0].bytes, *fields[1].bytes, *fields[2].bytes,
                              *fields[3].bytes};
}

void Form3::ChangeEntry(int row, const menufile::EntryTexts& entry) {
  if (!form2_.Rewrite(menufile::EditEntry(static_cast<std::size_t>(row), entry))) {
    return;
  }
  // Until the file is loaded again, the row has the icon of the new target, even if the
  // entry has an icon file. It keeps the tag of the old target.
  form2_.items().Rename(row, entry.caption);
  form2_.items().SetIcon(row, editor::ExtractLargeIcon(entry.target, 0));
}

}  // namespace wizard
