#include "editor/list_keys.h"

#include <windows.h>

#include <windowsx.h>

#include <optional>
#include <string>

#include "resources/resource.h"
#include "win32/handles.h"

namespace editor {
namespace {

struct ListCommand {
  int button;  // whose caption and handler it has
  UINT key;    // 0 for none
  bool withControl;
  const wchar_t* keyName;
};

// In the order of the menu, which is that of the buttons.
constexpr ListCommand kCommands[] = {
    {IDC_FORM2_COMMAND2, VK_INSERT, false, L"Insert"},
    {IDC_FORM2_COMMAND3, VK_RETURN, false, L"Enter"},
    {IDC_FORM2_COMMAND7, VK_DELETE, false, L"Delete"},
    {IDC_FORM2_COMMAND4, VK_UP, true, L"Ctrl+Up"},
    {IDC_FORM2_COMMAND8, VK_DOWN, true, L"Ctrl+Down"},
    {IDC_FORM2_COMMAND9, 0, false, L""},
    {IDC_FORM2_COMMAND11, 0, false, L""},
};

struct DestroyPopup {
  void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using UniqueMenu = win32::UniqueHandle<HMENU, DestroyPopup>;

void Click(HWND list, int button) {
  const HWND form = GetParent(list);
  SendMessageW(form, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
               reinterpret_cast<LPARAM>(GetDlgItem(form, button)));
}

// The command that a key stands for, with the modifier keys as they are held now.
const ListCommand* CommandOfKey(WPARAM key) {
  const auto isHeld = [](int modifier) { return GetKeyState(modifier) < 0; };
  if (isHeld(VK_SHIFT) || isHeld(VK_MENU)) {
    return nullptr;
  }
  for (const ListCommand& command : kCommands) {
    if (command.key == key && command.withControl == isHeld(VK_CONTROL)) {
      return &command;
    }
  }
  return nullptr;
}

// True if the handler of the button would do something with the selected row.
bool IsPossible(ItemList& items, int button) {
  const int row = items.Selected();
  switch (button) {
    case IDC_FORM2_COMMAND2:
      return true;
    case IDC_FORM2_COMMAND4:
      return row > 0;
    case IDC_FORM2_COMMAND8:
      return row >= 0 && row < items.Count() - 1;
    case IDC_FORM2_COMMAND11:
      return row >= 0 && !items.Hidden(row).tag.empty();
    default:
      return row >= 0;
  }
}

// The row at a point of the list's client area; nothing where there is none.
// LB_ITEMFROMPOINT counts in 16 bits.
std::optional<int> RowAt(HWND list, POINT point) {
  RECT client{};
  GetClientRect(list, &client);
  const auto height = static_cast<int>(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0));
  if (!PtInRect(&client, point) || height <= 0) {
    return std::nullopt;
  }
  const int row = static_cast<int>(SendMessageW(list, LB_GETTOPINDEX, 0, 0)) + point.y / height;
  const int count = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
  return row < count ? std::optional(row) : std::nullopt;
}

void SelectAsTheUser(HWND list, int row) {
  SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
  SendMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), LBN_SELCHANGE),
               reinterpret_cast<LPARAM>(list));
}

// Where the menu opens when it is asked for by a key: at the selected row where
// that can be seen, else at the corner of the list. On the screen.
POINT PlaceOfMenu(HWND list, int row) {
  RECT client{};
  GetClientRect(list, &client);
  POINT place{client.left, client.top};
  RECT rect{};
  if (row >= 0 &&
      SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&rect)) != LB_ERR &&
      rect.top >= client.top && rect.bottom <= client.bottom) {
    place = {client.left + (rect.bottom - rect.top), rect.bottom};
  }
  ClientToScreen(list, &place);
  return place;
}

std::wstring CaptionOf(HWND list, const ListCommand& command) {
  wchar_t caption[64] = L"";
  GetDlgItemTextW(GetParent(list), command.button, caption, std::size(caption));
  return std::wstring(caption) + (command.key != 0 ? L"\t" : L"") + command.keyName;
}

// `point` is where the mouse was clicked, on the screen; nothing for a key. A
// command that is chosen comes to the parent as the click of a button does: its
// code, 0, is BN_CLICKED.
void OpenMenu(HWND list, ItemList& items, std::optional<POINT> point) {
  if (point) {
    POINT inList = *point;
    ScreenToClient(list, &inList);
    if (const std::optional<int> row = RowAt(list, inList)) {
      SelectAsTheUser(list, *row);
    }
  }
  const UniqueMenu menu(CreatePopupMenu());
  for (const ListCommand& command : kCommands) {
    AppendMenuW(menu.get(),
                MF_STRING | (IsPossible(items, command.button) ? MF_ENABLED : MF_GRAYED),
                static_cast<UINT_PTR>(command.button), CaptionOf(list, command).c_str());
  }
  const POINT place = point ? *point : PlaceOfMenu(list, items.Selected());
  TrackPopupMenu(menu.get(), TPM_LEFTALIGN | TPM_RIGHTBUTTON, place.x, place.y, 0, GetParent(list),
                 nullptr);
}

// That of every list box, which ListProcedure() stands before.
WNDPROC listBoxProcedure = nullptr;

LRESULT CALLBACK ListProcedure(HWND list, UINT message, WPARAM wide, LPARAM data) {
  ItemList& items = *reinterpret_cast<ItemList*>(GetWindowLongPtrW(list, GWLP_USERDATA));
  switch (message) {
    case WM_GETDLGCODE:
      if (wide == VK_RETURN) {  // else it would press the default button
        return DLGC_WANTALLKEYS;
      }
      break;
    case WM_KEYDOWN:
      if (const ListCommand* command = CommandOfKey(wide)) {
        Click(list, command->button);
        return 0;
      }
      break;
    case WM_CHAR:
      if (wide == L'\r') {  // of the key that was answered
        return 0;
      }
      break;
    case WM_LBUTTONDBLCLK:
      // Below the last row it would report the double-click of another one.
      if (!RowAt(list, {GET_X_LPARAM(data), GET_Y_LPARAM(data)})) {
        message = WM_LBUTTONDOWN;
      }
      break;
    case WM_CONTEXTMENU: {
      const POINT point{GET_X_LPARAM(data), GET_Y_LPARAM(data)};
      const bool isFromKey = point.x == -1 && point.y == -1;
      OpenMenu(list, items, isFromKey ? std::nullopt : std::optional(point));
      return 0;
    }
    default:
      break;
  }
  return CallWindowProcW(listBoxProcedure, list, message, wide, data);
}

}  // namespace

void AnswerListKeys(ItemList& items) {
  // SetWindowSubclass() would look for its data anew with each message, and a menu
  // of 20,000 entries is as many messages.
  SetWindowLongPtrW(items.window(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&items));
  listBoxProcedure = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(items.window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ListProcedure)));
}

}  // namespace editor
