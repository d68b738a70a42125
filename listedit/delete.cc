#include "editor/form2.h"
#include "menufile/changes.h"

namespace editor {

void Form2::Command7Click() {
  const int row = items_.Selected();
  if (row < 0 || !Rewrite(menufile::Delete(static_cast<std::size_t>(row)))) {
    return;
  }
  items_.Remove(row);
  iconic1_.Clear();
}

}  // namespace editor
