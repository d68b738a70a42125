#include "editor/form2.h"
#include "menufile/changes.h"

namespace editor {

// The list is updated even if the rewrite failed, because moving ignores failures.

void Form2::Command4Click() {
  const int row = items_.Selected();
  if (row < 1 || !Rewrite(menufile::MoveUp(static_cast<std::size_t>(row)))) {
    return;
  }
  items_.ExchangeWithNext(row - 1);
  items_.Select(row - 1);
  List1Click();
}

void Form2::Command8Click() {
  const int row = items_.Selected();
  if (row < 0 || row >= items_.Count() - 1 ||
      !Rewrite(menufile::MoveDown(static_cast<std::size_t>(row)))) {
    return;
  }
  items_.ExchangeWithNext(row);
  items_.Select(row + 1);
  List1Click();
}

}  // namespace editor
