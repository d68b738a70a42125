#include "editor/form2.h"
#include "resources/resource.h"
#include "win32/window_text.h"
namespace editor {
void Form2::Drive1Change() {}
void Form2::Dir1Change() {}
void Form2::Dir1KeyPress() {}
void Form2::Text7Change() {}
void Form2::Command15Click() {}
void Form2::Command13Click() {}
void Form2::Command14Click() {}
void Form2::ShowDirectoryPointer(const menufile::DirectoryPointerRecord& directory) {
  ShowContents(kDirectoryPage);
  win32::SetText(Control(IDC_FORM2_TEXT7), directory.folderPath.Text());
  win32::SetText(Control(IDC_FORM2_TEXT8), directory.filePattern.Text());
}
}  // namespace editor
