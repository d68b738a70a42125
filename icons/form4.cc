#include "icons/form4.h"

#include <cstddef>
#include <exception>
#include <stdexcept>

#include "menufile/changes.h"
#include "resources/resource.h"
#include "win32/message_box.h"
#include "win32/route.h"
#include "win32/text.h"

namespace icons {
namespace {

// Some window managers pass the focus around before the window that had a dialog
// open has it again: for so many milliseconds that still belongs to the dialog.
constexpr ULONGLONG kFocusSettles = 1000;

}  // namespace

bool Form4::OwnDialog::IsWhereFocusComesFrom() const {
  return isOpen || GetTickCount64() - closedAt < kFocusSettles;
}

// One of them is open while this lives.
class Form4::OwnDialogOpen {
 public:
  explicit OwnDialogOpen(OwnDialog& dialog) : dialog_(dialog) { dialog_.isOpen = true; }
  OwnDialogOpen(const OwnDialogOpen&) = delete;
  OwnDialogOpen& operator=(const OwnDialogOpen&) = delete;
  ~OwnDialogOpen() {
    dialog_.isOpen = false;
    dialog_.closedAt = GetTickCount64();
  }

 private:
  OwnDialog& dialog_;
};

Form4::Form4(editor::Form2& editor) : Form(kForm4Plan, editor.window()), editor_(editor) {
  browser_.Attach(Control(IDC_FORM4_PICTURE1), Control(IDC_FORM4_HSCROLL1),
                  Control(IDC_FORM4_LABEL1));
  SendMessageW(window(), DM_SETDEFID, IDC_FORM4_COMMAND1, 0);
}

void Form4::OnCommand(int id, UINT event) {
  static constexpr win32::Route<Form4> kRoutes[] = {
      {IDC_FORM4_HSCROLL1, win32::kScrolled, &Form4::ShowIconAt},
      {IDC_FORM4_COMMAND2, BN_CLICKED, &Form4::SelectIconSourceFile},
      {IDC_FORM4_COMMAND1, BN_CLICKED, &Form4::ApplyItemIcon},
      {IDC_FORM4_COMMAND3, BN_CLICKED, &Form4::OnClose},
      {IDCANCEL, BN_CLICKED, &Form4::OnClose},  // the Esc key
  };
  win32::Follow<Form4>(kRoutes, *this, id, event);
}

void Form4::OnDrawItem(const DRAWITEMSTRUCT& item) { browser_.picture().Paint(item); }

// Begins with the entry's own icon, each time: also when the user comes back
// from another program.
void Form4::OnActivate(bool active) {
  if (!active || ownDialog_.IsWhereFocusComesFrom()) {
    return;
  }
  browser_.SetSource(item_.source);
  if (item_.source.empty()) {
    return;
  }
  int count = 0;
  try {
    count = browser_.CountIcons();
  } catch (const std::overflow_error& tooMany) {
    ShowError(win32::ToText(tooMany.what()));
  }
  if (count > 0) {
    const bool exists = item_.index >= 0 && item_.index < count;
    browser_.ShowIcons(count, exists ? item_.index : 0);
  }
}

// Cancel, Esc and the close box.
void Form4::OnClose() { editor_.CloseChild(); }

void Form4::SelectIconSourceFile() {
  const OwnDialogOpen open(ownDialog_);
  browser_.SelectIconSourceFile(window());
}

void Form4::ApplyItemIcon() {
  try {
    if (!editor_.Rewrite(menufile::ChangeIcon(static_cast<std::size_t>(item_.row),
                                              browser_.source(),
                                              std::to_string(browser_.Index())))) {
      editor_.CloseChild();
      return;
    }
  } catch (const std::exception&) {
    ShowError(L"Error writing to file.");
    editor_.CloseChild();
    return;
  }

  const HICON icon = browser_.TakeIcon().release();
  editor_.items().SetIcon(item_.row, icon);
  editor_.iconic1().Clear();
  editor_.iconic1().Draw(icon);
  editor_.CloseChild();
}

void Form4::ShowError(const std::wstring& text) {
  const OwnDialogOpen open(ownDialog_);
  // The first activation comes with being shown, before that was done.
  EnableWindow(editor_.window(), FALSE);
  win32::ShowError(window(), text);
}

}  // namespace icons
