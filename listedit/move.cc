#include "editor/form2.h"
namespace editor {
void Form2::Command4Click() {}
void Form2::Command8Click() {}
}  // namespace editor
