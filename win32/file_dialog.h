#ifndef CORVALIS_WIN32_FILE_DIALOG_H_
#define CORVALIS_WIN32_FILE_DIALOG_H_

#include <windows.h>

#include <optional>
#include <string>

namespace win32 {

// Lets the user choose a file in the standard dialog, which leaves the current
// directory as it is. `filter` is pairs of a name and patterns, each ended by a
// NUL, and one more NUL at the end. `initial` stands in the name box at first.
//
// Returns the full path; nothing when the user cancelled, or when the dialog failed.
std::optional<std::wstring> ChooseFile(HWND owner, const wchar_t* title, const wchar_t* filter,
                                       const std::wstring& initial);

// When ChooseFile() returned nothing: whether the dialog failed; otherwise the
// user cancelled it.
bool FileDialogFailed();

}  // namespace win32

#endif  // CORVALIS_WIN32_FILE_DIALOG_H_
