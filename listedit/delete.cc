#include "editor/form2.h"
namespace editor {
void Form2::Command7Click() {}
void Form2::Command9Click() {}
}  // namespace editor
