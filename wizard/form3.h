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

// The New Shortcut wizard. Its first page asks for the target of an entry, the second
// one for the name. Finish adds a new entry to the menu, or changes the entry of
// EditRow().
//
// form3_plan.cc has the plan of its controls.
class Form3 final : public win32::Form {
 public:
  // Starts in add mode with empty boxes. `form2` is borrowed.
  explicit Form3(editor::Form2& form2);

  // Switches to edit mode. `row` is the 0-based row of the entry in the list, and its
  // number in the file.
  void EditRow(int row) { editedRow_ = row; }
  // Fills the boxes with the texts of an entry.
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
  // The bytes of the target, by win32::PathToBytes(); nothing if it has none.
  std::optional<std::string> Target() const;
  // The texts of all boxes. Returns nothing, after a message, if the code page cannot
  // hold one of them.
  std::optional<menufile::EntryTexts> TypedEntry() const;
  // Changes the entry in the file and in the list. Throws menufile::Failure.
  void ChangeEntry(int row, const menufile::EntryTexts& entry);

  editor::Form2& form2_;
  std::optional<int> editedRow_;
  bool addIsUnfinished_ = false;  // the entry of this window was written in part
  // The bytes in the menu file for the boxes.
  win32::ShownBytes target_;
  win32::ShownBytes arguments_;
  win32::ShownBytes startIn_;
  win32::ShownBytes caption_;
  win32::UniqueBitmap banner_;
};

// The pages of the wizard, one bit each.
enum Page : unsigned { kTargetPage = 1, kNamePage = 2 };

inline constexpr const wchar_t* kTargetPrompt =
    L"Type the full path of the item you want to create a shortcut to. Or search for the item by "
    L"clicking Browse.";
inline constexpr const wchar_t* kNamePrompt = L"Type a friendly name for your shortcut.";

// The plan of the window's controls.
extern const win32::FormPlan kForm3Plan;

}  // namespace wizard

#endif  // CORVALIS_WIZARD_FORM3_H_
