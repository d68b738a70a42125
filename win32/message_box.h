#ifndef CORVALIS_WIN32_MESSAGE_BOX_H_
#define CORVALIS_WIN32_MESSAGE_BOX_H_

#include <windows.h>

#include <string>

namespace win32 {

// The program's message boxes. `owner` may be nullptr; one that is hidden does not
// own the box. A line ends with a single CR or LF.

// Title "Error!" and an OK button.
void ShowError(HWND owner, const std::wstring& text);

// Title "Query?" and the buttons Yes and No; true for Yes.
bool AskYesOrNo(HWND owner, const std::wstring& text);

// An OK button.
void ShowInformation(HWND owner, const std::wstring& text, const std::wstring& title);

}  // namespace win32

#endif  // CORVALIS_WIN32_MESSAGE_BOX_H_
