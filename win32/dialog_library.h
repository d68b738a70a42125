#ifndef CORVALIS_WIN32_DIALOG_LIBRARY_H_
#define CORVALIS_WIN32_DIALOG_LIBRARY_H_

#include <windows.h>

namespace win32 {

// Finds a function of comdlg32.dll, the library of the common dialogs. The first call
// loads it: it loads the printing system, too, which would slow each start of the
// program. Throws std::runtime_error if it cannot be loaded.
FARPROC FindDialogFunction(const char* name);

// The same with the function's type, from its declaration in the Windows headers.
template <typename F>
F* DialogFunction(const char* name) {
  return reinterpret_cast<F*>(reinterpret_cast<void*>(FindDialogFunction(name)));
}

}  // namespace win32

#endif  // CORVALIS_WIN32_DIALOG_LIBRARY_H_
