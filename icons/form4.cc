#include "icons/form4.h"

#include <cstddef>
#include <exception>
#include <utility>

#include "menufile/changes.h"
#include "resources/resource.h"
#include "win32/message_box.h"
#include "win32/route.h"

namespace icons {

namespace {

// True if another program has the foreground window. While the focus moves between
// windows, there may be none, or it may be the desktop.
bool IsAnotherProgramInFront() {
  const HWND front = GetForegroundWindow();
  DWORD process = 0;
  return front != nullptr && front != GetDesktopWindow() &&
         GetWindowThreadProcessId(front, &process) != 0 && process != GetCurrentProcessId();
}

}  // namespace

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
  isAfterDialog_ = false;
  win32::Follow<Form4>(kRoutes, *this, id, event);
}

void Form4::OnDrawItem(const DRAWITEMSTRUCT& item) { browser_.picture().Paint(item); }

// The mouse wheel moves the scroll bar from anywhere in the window.
bool Form4::OnMessage(UINT message, WPARAM wide, LPARAM, LRESULT&) {
  if (message != WM_MOUSEWHEEL) {
    return false;
  }
  browser_.TurnByWheel(wide);
  return true;
}

// Each activation starts with the entry's own icon, even if the user comes back from
// another program.
void Form4::OnActivate(bool active) {
  if (!active) {
    isAfterDialog_ = isAfterDialog_ && !IsAnotherProgramInFront();
    return;
  }
  if (isAfterDialog_) {
    return;
  }
  browser_.SetSource(item_.source, item_.index);
  if (item_.source.empty()) {
    return;
  }
  const IconBrowser::IconCount count = browser_.CountIcons();
  if (!count.isAll && !std::exchange(hasToldTooMany_, true)) {
    ShowError(browser_.TooManyIcons());
  }
  if (count.icons > 0) {
    browser_.ShowIcons(count.icons, item_.index < count.icons ? item_.index : 0);
  }
}

// Cancel, Esc and the close box.
void Form4::OnClose() { editor_.CloseChild(); }

void Form4::SelectIconSourceFile() {
  isAfterDialog_ = true;
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
  isAfterDialog_ = true;
  // The first activation comes before Form2::OpenChild() has disabled the editor.
  EnableWindow(editor_.window(), FALSE);
  win32::ShowError(window(), text);
}

}  // namespace icons
