#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_KEYBOARD_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_KEYBOARD_H_

#include <windows.h>

#include <string>
#include <vector>

namespace outside {

// Presses keys as a keyboard does: they go to whatever window is in front.
//
// A virtual key, with others held down meanwhile.
void PressKey(WORD key, const std::vector<WORD>& held = {});
// What an American keyboard has keys for.
void TypeText(const std::string& text);
// Characters that no key has, as a screen keyboard sends them.
void TypeCharacters(const std::wstring& text);

// The control of another program's window that has the focus.
HWND FocusIn(HWND window);

// Waits until the window is in front, and takes keys.
bool WaitForFront(HWND window);

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_KEYBOARD_H_
