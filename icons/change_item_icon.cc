#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "editor/form2.h"
#include "icons/form4.h"

namespace editor {

void Form2::ChangeItemIcon() {
  const int row = items_.Selected();
  if (row < 0 || items_.Hidden(row).tag.empty()) {
    return;
  }
  std::string bytes;
  const std::optional<menufile::MenuItemRecord> entry = ReadEntry(row, bytes);
  if (!entry) {
    return;
  }
  const menufile::Value& source = entry->iconFile.IsEmpty() ? entry->target : entry->iconFile;
  auto form4 = std::make_unique<icons::Form4>(*this);
  form4->HandOver({row, source.Text(), entry->iconIndex.Integer()});
  OpenChild(std::move(form4));
}

}  // namespace editor
