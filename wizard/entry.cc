#include "wizard/entry.h"

namespace wizard {

using menufile::Value;

menufile::MenuItemRecord Entry::Record(const menufile::MenuItemRecord& old) const {
  menufile::MenuItemRecord record = old;
  record.caption = Value::Quoted(caption);
  record.target = Value::Quoted(target);
  record.arguments = Value::Quoted(arguments);
  record.startIn = Value::Quoted(startIn);
  return record;
}

void AppendEntry(menufile::MenuAppender& menu, editor::ItemList& items, const Entry& entry) {
  menufile::MenuItemRecord noIcon;
  noIcon.iconIndex = Value::Bare("0");
  menu.Append(entry.Record(noIcon));
  items.Append(entry.caption, entry.target);
}

}  // namespace wizard
