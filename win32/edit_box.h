#ifndef CORVALIS_WIN32_EDIT_BOX_H_
#define CORVALIS_WIN32_EDIT_BOX_H_

#include <windows.h>

namespace win32 {

// Makes an edit control refuse typed or pasted characters that are not in the code
// page, with a balloon or a beep. WM_SETTEXT still sets any text.
void RefuseUnheldCharacters(HWND edit);

}  // namespace win32

#endif  // CORVALIS_WIN32_EDIT_BOX_H_
