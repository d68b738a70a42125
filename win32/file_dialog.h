#ifndef CORVALIS_WIN32_FILE_DIALOG_H_
#define CORVALIS_WIN32_FILE_DIALOG_H_

#include <windows.h>

#include <optional>
#include <string>

namespace win32 {

// Lets the user choose a file in the standard dialog. The current directory stays the
// same. `filter` holds pairs of a name and patterns, each ended by a NUL, and one more
// NUL at the end. `initial` is the first text of the name box.
//
// Returns the full path; nothing if the user cancelled or the dialog failed.
std::optional<std::wstring> ChooseFile(HWND owner, const wchar_t* title, const wchar_t* filter,
                                       const std::wstring& initial);

// To be called after ChooseFile() returned nothing. Returns true if the dialog failed,
// and false if the user cancelled it.
bool FileDialogFailed();

}  // namespace win32

#endif  // CORVALIS_WIN32_FILE_DIALOG_H_
