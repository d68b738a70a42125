#include <memory>
#include <string>
#include <utility>

#include "editor/form2.h"
#include "menufile/loader.h"
#include "wizard/form3.h"

namespace editor {

void Form2::Command2Click() { OpenChild(std::make_unique<wizard::Form3>(*this)); }

void Form2::Command3Click() {
  const int row = items_.Selected();
  if (row < 0) {
    return;
  }
  auto child = std::make_unique<wizard::Form3>(*this);
  wizard::Form3& form3 = *child;
  ShowChild(std::move(child));
  form3.EditRow(row);
  FinishOwnChange();
  const std::string path = MenuFilePath();
  const std::string bytes = files_.Open(path, menufile::OpenMode::Read)->ReadAll();
  form3.Fill(menufile::ReadMenuItem(bytes, path, static_cast<std::size_t>(row)));
  EnableWindow(window(), FALSE);
}

}  // namespace editor
