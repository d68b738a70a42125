#ifndef CORVALIS_WIN32_FONT_DIALOG_H_
#define CORVALIS_WIN32_FONT_DIALOG_H_

#include <windows.h>

#include <string>

namespace win32 {

// A font as the user names it, whether or not this machine has it.
struct FontDescription {
  std::wstring name;
  double points = 0;
  bool bold = false;
  bool italic = false;
};

// Lets the user choose a screen font in the standard dialog, which starts with
// `font`. What the user does not touch stays as it was, also where the dialog
// cannot show it: a size between two whole points, a face that this machine
// does not have. After a cancel nothing has changed.
void ChooseScreenFont(HWND owner, const wchar_t* title, FontDescription& font);

}  // namespace win32

#endif  // CORVALIS_WIN32_FONT_DIALOG_H_
