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
  int button;  // the id of the button with its caption and handler
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

// The command of a key together with the modifier keys that are held now; nullptr if
// there is none.
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

// The row at a point of the list's client area; nothing if no row is there. This does
// not use LB_ITEMFROMPOINT, which has only 16 bits for the row.
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

// The place of a menu that a key opens, in screen coordinates: at the selected row if it
// can be seen, otherwise at the corner of the list.
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

// Opens the menu of the commands. `point` is the place of the mouse click in screen
// coordinates, or nothing for a key. WM_COMMAND of a chosen command looks like the click
// of its button, because the notification code of a menu, 0, equals BN_CLICKED.
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

// The procedure of the system's list boxes, which ListProcedure() calls.
WNDPROC listBoxProcedure = nullptr;

LRESULT CALLBACK ListProcedure(HWND list, UINT message, WPARAM wide, LPARAM data) {
  ItemList& items = *reinterpret_cast<ItemList*>(GetWindowLongPtrW(list, GWLP_USERDATA));
  switch (message) {
    case WM_GETDLGCODE:
      if (wide == VK_RETURN) {  // otherwise Enter would press the default button
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
      if (wide == L'\r') {  // Enter was handled in WM_KEYDOWN
        return 0;
      }
      break;
    case WM_LBUTTONDBLCLK:
      // Below the last row, the list box would report a double-click on another row.
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
  // SetWindowSubclass() would look up its data for each message, and loading a menu of
  // 20,000 entries sends as many messages.
  SetWindowLongPtrW(items.window(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&items));
  listBoxProcedure = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(items.window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ListProcedure)));
}

}  // namespace editor
