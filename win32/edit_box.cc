#include "win32/edit_box.h"

#include <commctrl.h>

#include <string>

#include "win32/text.h"

namespace win32 {
namespace {

// A character outside the basic plane comes as two surrogates, one after the other. No
// ANSI code page has such characters but UTF-8, which has them all.
bool IsHeld(wchar_t character) {
  const bool isHalf = IS_SURROGATE_PAIR(character, 0xDC00) || IS_SURROGATE_PAIR(0xD800, character);
  return ToBytes(isHalf ? std::wstring(L"\xD83D\xDE00") : std::wstring(1, character)).has_value();
}

// The part of the clipboard text that a box of one line takes: its first line.
std::wstring ClipboardLine(HWND edit) {
  std::wstring text;
  if (OpenClipboard(edit)) {
    if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
      text = static_cast<const wchar_t*>(GlobalLock(data));
      GlobalUnlock(data);
    }
    CloseClipboard();
  }
  return text.substr(0, text.find_first_of(L"\r\n"));
}

void SayRefused(HWND edit) {
  EDITBALLOONTIP balloon{};
  balloon.cbStruct = sizeof balloon;
  balloon.pszTitle = L"Character Not Available";
  balloon.pszText = L"A menu file cannot hold it: this system's code page does not have it.";
  balloon.ttiIcon = TTI_ERROR;
  if (!SendMessageW(edit, EM_SHOWBALLOONTIP, 0, reinterpret_cast<LPARAM>(&balloon))) {
    MessageBeep(MB_ICONWARNING);
  }
}

LRESULT CALLBACK Procedure(HWND edit, UINT message, WPARAM wide, LPARAM data, UINT_PTR id,
                           DWORD_PTR) {
  const bool isRefused = (message == WM_CHAR && !IsHeld(static_cast<wchar_t>(wide))) ||
                         (message == WM_PASTE && !ToBytes(ClipboardLine(edit)));
  if (isRefused) {
    SayRefused(edit);
    return 0;
  }
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(edit, Procedure, id);
  }
  return DefSubclassProc(edit, message, wide, data);
}

}  // namespace

void RefuseUnheldCharacters(HWND edit) { SetWindowSubclass(edit, Procedure, 0, 0); }

}  // namespace win32
