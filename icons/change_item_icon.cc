#include <memory>
#include <utility>

#include "editor/form2.h"
#include "icons/form4.h"
#include "menufile/loader.h"

namespace editor {
namespace {

// Where the icon of that row's entry is taken from, by the menu file.
icons::ItemIcon ReadItemIcon(menufile::FileSystem& files, const std::string& path, int row) {
  const std::string bytes = files.Open(path, menufile::OpenMode::Read)->ReadAll();
  const menufile::MenuItemRecord item =
      menufile::ReadMenuItem(bytes, path, static_cast<std::size_t>(row));
  const menufile::Value& source = item.iconFile.IsEmpty() ? item.target : item.iconFile;
  return {row, source.Text(), item.iconIndex.Integer()};
}

}  // namespace

void Form2::ChangeItemIcon() {
  const int row = items_.Selected();
  if (row < 0 || items_.Hidden(row).tag.empty()) {
    return;
  }
  FinishOwnChange();
  auto form4 = std::make_unique<icons::Form4>(*this);
  form4->HandOver(ReadItemIcon(files_, MenuFilePath(), row));
  OpenChild(std::move(form4));
}

}  // namespace editor
