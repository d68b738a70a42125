#ifndef CORVALIS_WIN32_DIALOG_LIBRARY_H_
#define CORVALIS_WIN32_DIALOG_LIBRARY_H_

#include <windows.h>

namespace win32 {

// The library of the common dialogs, comdlg32.dll. It is loaded when it is first
// asked for, since it brings the printing system along, which would delay each
// start of the program. Throws std::runtime_error where it cannot be loaded.
FARPROC FindDialogFunction(const char* name);

// A function of it; the type is that of its declaration in the Windows headers.
template <typename F>
F* DialogFunction(const char* name) {
  return reinterpret_cast<F*>(reinterpret_cast<void*>(FindDialogFunction(name)));
}

}  // namespace win32

#endif  // CORVALIS_WIN32_DIALOG_LIBRARY_H_
