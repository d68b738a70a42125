#include "editor/form2.h"

namespace editor {
namespace {

// Exchanges the entries of a row and the one below it, in the file and in the
// list. The list is brought up to date even when the file could not be.
void ExchangeWithNext(Form2& form, int row) {
  form.RewriteList([row](std::size_t counter, const menufile::MenuItemRecord& record,
                         menufile::RecordStream& records) {
    if (counter == static_cast<std::size_t>(row)) {
      records.Write(records.ReadNext());
    }
    records.Write(record);
  });
  form.items().ExchangeWithNext(row);
}

}  // namespace

void Form2::Command4Click() {
  const int row = items_.Selected();
  if (row < 1) {
    return;
  }
  ExchangeWithNext(*this, row - 1);
  items_.Select(row - 1);
  List1Click();
}

void Form2::Command8Click() {
  const int row = items_.Selected();
  if (row < 0 || row >= items_.Count() - 1) {
    return;
  }
  ExchangeWithNext(*this, row);
  items_.Select(row + 1);
  List1Click();
}

}  // namespace editor
