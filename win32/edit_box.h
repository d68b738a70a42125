#ifndef CORVALIS_WIN32_EDIT_BOX_H_
#define CORVALIS_WIN32_EDIT_BOX_H_

#include <windows.h>

namespace win32 {

// Makes an edit control refuse characters that the code page does not hold
// (ToBytes()), typed or pasted, with a balloon or a beep. A text that is set comes
// in whatever it holds.
void RefuseUnheldCharacters(HWND edit);

}  // namespace win32

#endif  // CORVALIS_WIN32_EDIT_BOX_H_
