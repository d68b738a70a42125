#ifndef CORVALIS_WIZARD_FORM3_H_
#define CORVALIS_WIZARD_FORM3_H_

#include <windows.h>

#include <optional>
#include <string>

#include "editor/form2.h"
#include "menufile/changes.h"
#include "menufile/loader.h"
#include "win32/form.h"
#include "win32/handles.h"
#include "win32/text.h"

namespace wizard {

// The New Shortcut wizard: asks for the target of an entry on its first page
// and for its name on the second, then adds the entry to the menu or, told
// which one to edit, changes that one.
//
// The plan of its controls stands in form3_plan.cc.
class Form3 final : public win32::Form {
 public:
  // In add mode, with empty boxes. The editor window is borrowed.
  explicit Form3(editor::Form2& form2);

  // The entry to edit: its place among the entries of the file, which is its
  // row in the list, from 0.
  void EditRow(int row) { editedRow_ = row; }
  void Fill(const menufile::MenuEntry& entry);

  void Text1Change();
  void Text4Change();
  void Command3Click();  // Browse...
  void Command1Click();  // Next >
  void Command4Click();  // < Back
  void Command5Click();  // Finish
  void Command2Click();  // Cancel

 private:
  void OnCommand(int id, UINT event) override;
  void OnClose() override;
  void OnArranged() override;

  std::wstring Text(int id) const;
  // With short names where the code page needs them.
  std::optional<std::string> Target() const;
  // Nothing, after a message, when a menu file cannot hold what one of the boxes
  // says.
  std::optional<menufile::EntryTexts> TypedEntry() const;
  // What Finish does to the file and to the list. Throws menufile::Failure.
  void ChangeEntry(int row, const menufile::EntryTexts& entry);

  editor::Form2& form2_;
  std::optional<int> editedRow_;
  bool addIsUnfinished_ = false;  // the entry of this window was written in part
  // What the menu file has for the boxes.
  win32::ShownBytes target_;
  win32::ShownBytes arguments_;
  win32::ShownBytes startIn_;
  win32::ShownBytes caption_;
  win32::UniqueBitmap banner_;
};

// Which controls are shown, as bits.
enum Page : unsigned { kTargetPage = 1, kNamePage = 2 };

inline constexpr const wchar_t* kTargetPrompt =
    L"Type the full path of the item you want to create a shortcut to. Or search for the item by "
    L"clicking Browse.";
inline constexpr const wchar_t* kNamePrompt = L"Type a friendly name for your shortcut.";

// The plan of the window's controls.
extern const win32::FormPlan kForm3Plan;

}  // namespace wizard

#endif  // CORVALIS_WIZARD_FORM3_H_
