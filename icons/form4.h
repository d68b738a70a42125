#ifndef CORVALIS_ICONS_FORM4_H_
#define CORVALIS_ICONS_FORM4_H_

#include <windows.h>

#include <string>

#include "editor/form2.h"
#include "icons/icon_browser.h"
#include "win32/form.h"

namespace icons {

// The entry that gets another icon, and its present icon.
struct ItemIcon {
  int row = 0;         // of the item list, 0-based
  std::string source;  // the file of the icon, in the ANSI code page
  int index = 0;       // 0-based, or a negative resource id
};

// The Select Icon window. The user pages through the icons of a file for one entry of
// the menu, and may choose another file. OK writes file and index into the entry's
// record.
class Form4 final : public win32::Form {
 public:
  // `editor` is borrowed. It calls HandOver(), then Form2::OpenChild().
  explicit Form4(editor::Form2& editor);

  void HandOver(ItemIcon item) { item_ = std::move(item); }

 private:
  void OnCommand(int id, UINT event) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;
  bool OnMessage(UINT message, WPARAM wide, LPARAM data, LRESULT& result) override;
  void OnActivate(bool active) override;
  void OnClose() override;

  void ShowIconAt() { browser_.ShowIconAtNewPosition(); }  // HScroll1
  void SelectIconSourceFile();                             // Command2
  void ApplyItemIcon();                                    // Command1
  void ShowError(const std::wstring& text);

  editor::Form2& editor_;
  ItemIcon item_;
  IconBrowser browser_;
  // True from opening a dialog or message box until the next command: activations
  // meanwhile are ignored. There may be several, because some window managers move the
  // focus around before this window has it again.
  bool isAfterDialog_ = false;
  bool hasToldTooMany_ = false;
};

// The plan of the window's controls (icons/form4_plan.cc).
extern const win32::FormPlan kForm4Plan;

}  // namespace icons

#endif  // CORVALIS_ICONS_FORM4_H_
