#include "editor/form2.h"
namespace editor {
void Form2::Command2Click() {}
void Form2::Command3Click() {}
void Form2::List1Drop(const std::vector<std::string>&) {}
}  // namespace editor
