#ifndef CORVALIS_WIN32_MESSAGE_BOX_H_
#define CORVALIS_WIN32_MESSAGE_BOX_H_

#include <windows.h>

#include <string>

namespace win32 {

// The program's message boxes. `owner` may be nullptr. A hidden owner counts as
// nullptr. A CR or LF in the text begins a new line.

// Shows a box with the title "Error!" and an OK button.
void ShowError(HWND owner, const std::wstring& text);

// Shows a box with the title "Query?" and the buttons Yes and No. Returns true for Yes.
bool AskYesOrNo(HWND owner, const std::wstring& text);

// Shows a box with an OK button.
void ShowInformation(HWND owner, const std::wstring& text, const std::wstring& title);

}  // namespace win32

#endif  // CORVALIS_WIN32_MESSAGE_BOX_H_
