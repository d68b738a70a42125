#ifndef CORVALIS_WIN32_WINDOW_TEXT_H_
#define CORVALIS_WIN32_WINDOW_TEXT_H_

#include <windows.h>

#include <string>

namespace win32 {

// The text of a window or control.
std::wstring WindowText(HWND window);

// Sets the text. An edit control then sends EN_CHANGE, as after typing.
void SetText(HWND window, const std::wstring& text);

// The text of a list box row (0-based). Empty if there is no such row.
std::wstring ListText(HWND list, int row);

// The message of Windows for an error code of GetLastError(), without line ends and
// full stop.
std::wstring ErrorText(DWORD error);

}  // namespace win32

#endif  // CORVALIS_WIN32_WINDOW_TEXT_H_
