#include <memory>
#include <optional>
#include <utility>

#include "editor/form2.h"
#include "wizard/form3.h"

namespace editor {

void Form2::Command2Click() { OpenChild(std::make_unique<wizard::Form3>(*this)); }

void Form2::Command3Click() {
  const int row = items_.Selected();
  if (row < 0) {
    return;
  }
  const std::optional<menufile::MenuEntry> entry = ReadEntry(row);
  if (!entry) {
    return;
  }
  auto child = std::make_unique<wizard::Form3>(*this);
  wizard::Form3& form3 = *child;
  ShowChild(std::move(child));
  form3.EditRow(row);
  form3.Fill(*entry);
  EnableWindow(window(), FALSE);
}

}  // namespace editor
