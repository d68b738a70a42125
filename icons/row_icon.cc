#include "editor/form2.h"
#include "win32/shell_file.h"

namespace editor {

void Form2::ShowRowIcon(int row) {
  const HiddenRow& hidden = items_.Hidden(row);
  iconic1_.Clear();
  if (const HICON icon = IconOfText(hidden.text)) {
    iconic1_.Draw(icon);
    return;
  }
  const win32::ShellFile shell(hidden.tag);
  if (shell.images != nullptr) {
    iconic1_.Draw(shell.images, shell.imageIndex);
  }
}

}  // namespace editor
