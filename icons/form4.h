#ifndef CORVALIS_ICONS_FORM4_H_
#define CORVALIS_ICONS_FORM4_H_

#include <windows.h>

#include <string>

#include "editor/form2.h"
#include "icons/icon_browser.h"
#include "win32/form.h"

namespace icons {

// The entry that gets another icon, and where its icon is taken from so far.
struct ItemIcon {
  int row = 0;  // of the item list
  std::string source;
  int index = 0;
};

// The Select Icon window: the user pages through the icons of a file for one
// entry of the menu, and may choose another file; OK writes file and index into
// the entry's record.
class Form4 final : public win32::Form {
 public:
  // `editor` is borrowed. It opens this window (Form2::OpenChild()) once it has
  // handed over the entry.
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
  // A dialog or message box of this window is open, or nothing was done here since
  // it closed: coming back from it is not what activates the window. Some window
  // managers pass the focus around before the window has it again.
  bool isAfterDialog_ = false;
  bool hasToldTooMany_ = false;
};

// The plan of the window's controls (icons/form4_plan.cc).
extern const win32::FormPlan kForm4Plan;

}  // namespace icons

#endif  // CORVALIS_ICONS_FORM4_H_
