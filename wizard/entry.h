#ifndef CORVALIS_WIZARD_ENTRY_H_
#define CORVALIS_WIZARD_ENTRY_H_

#include <string>

#include "editor/item_list.h"
#include "menufile/append.h"
#include "menufile/records.h"

namespace wizard {

// What the user says about an entry, in the bytes of the file. The rest of it, its icon, is chosen
// elsewhere.
struct Entry {
  std::string caption;
  std::string target;
  std::string arguments;
  std::string startIn;

  // The record of this entry, with the icon of `old`. It borrows from both.
  menufile::MenuItemRecord Record(const menufile::MenuItemRecord& old) const;
};

// Adds a new entry, without an icon of its own, behind the last one: in the
// file, and then in the list. Throws menufile::Failure when the file could not
// be written; the list is as it was then.
void AppendEntry(menufile::MenuAppender& menu, editor::ItemList& items, const Entry& entry);

}  // namespace wizard

#endif  // CORVALIS_WIZARD_ENTRY_H_
