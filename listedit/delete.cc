#include "editor/form2.h"

namespace editor {

void Form2::Command7Click() {
  const int row = items_.Selected();
  if (row < 0) {
    return;
  }
  RewriteList([row](std::size_t counter, const menufile::MenuItemRecord& record,
                    menufile::RecordStream& records) {
    if (counter != static_cast<std::size_t>(row)) {
      records.Write(record);
    }
  });
  items_.Remove(row);
  iconic1_.Clear();
}

}  // namespace editor
