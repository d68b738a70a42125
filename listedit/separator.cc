#include "editor/form2.h"
#include "menufile/changes.h"
#include "menufile/failure.h"

namespace editor {

void Form2::Command9Click() {
  const int row = items_.Selected();
  if (row < 0 || !Rewrite(menufile::Separator(static_cast<std::size_t>(row)))) {
    return;
  }
  const int top = items_.TopRow();
  items_.Clear();
  try {
    if (!LoadMenuFile()) {
      OnClose();
      return;
    }
  } catch (const menufile::Failure&) {
    // Ignored, like a failure of the rewrite. The list shows the entries read so far.
  }
  items_.ScrollTo(top);
  iconic1_.Clear();
}

}  // namespace editor
