#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_KEYBOARD_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_KEYBOARD_H_

#include <windows.h>

#include <string>
#include <vector>

namespace outside {

// These functions press keys like a keyboard: the keys go to the window in front.

// Presses a virtual key; `held` are keys that are held down meanwhile.
void PressKey(WORD key, const std::vector<WORD>& held = {});

// Types characters of an American keyboard.
void TypeText(const std::string& text);

// Types characters that no key has, like a screen keyboard.
void TypeCharacters(const std::wstring& text);

// The focused control in a window of another process.
HWND FocusIn(HWND window);

// Waits until the window is in front and accepts keys.
bool WaitForFront(HWND window);

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_KEYBOARD_H_
