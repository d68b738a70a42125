#include "win32/dialog_library.h"

#include <stdexcept>

namespace win32 {

FARPROC FindDialogFunction(const char* name) {
  static const HMODULE library = LoadLibraryW(L"comdlg32.dll");
  const FARPROC function = library != nullptr ? GetProcAddress(library, name) : nullptr;
  if (function == nullptr) {
    throw std::runtime_error("The dialogs of Windows could not be loaded.");
  }
  return function;
}

}  // namespace win32
