#include <memory>
#include <optional>
#include <utility>

#include "editor/form2.h"
#include "icons/form4.h"

namespace editor {

void Form2::ChangeItemIcon() {
  const int row = items_.Selected();
  if (row < 0 || items_.Hidden(row).tag.empty()) {
    return;
  }
  const std::optional<menufile::MenuEntry> entry = ReadEntry(row);
  if (!entry) {
    return;
  }
  auto form4 = std::make_unique<icons::Form4>(*this);
  form4->HandOver({row, entry->iconFile.empty() ? entry->target : entry->iconFile,
                   menufile::Value::Bare(entry->iconIndex).Integer()});
  OpenChild(std::move(form4));
}

}  // namespace editor
