#ifndef CORVALIS_EDITOR_LIST_KEYS_H_
#define CORVALIS_EDITOR_LIST_KEYS_H_

#include "editor/item_list.h"

namespace editor {

// Makes the item list answer keys and the mouse. Enter and a double-click edit the
// selected row, Delete deletes it, Ctrl+Up and Ctrl+Down move it, and Insert adds a
// row. The menu key, Shift+F10 and a right click open a menu of the commands; a right
// click selects its row first.
//
// Each sends the parent window the click of the command's button. `items` is borrowed
// and has to be attached to its list box.
void AnswerListKeys(ItemList& items);

}  // namespace editor

#endif  // CORVALIS_EDITOR_LIST_KEYS_H_
