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

  // As Windows wants it, with the height in pixels of that DPI. The size may be
  // any number; what is drawn has at most 1000 points.
  LOGFONTW InPixels(int dpi) const;
};

// Lets the user choose a screen font in the standard dialog, which starts with
// `font`. Once the user has touched any of its boxes and pressed OK, `font` is
// what the dialog shows, also where that is not what it started with: a size that
// it rounded. A face that this machine lacks stays until another is chosen. When
// nothing was touched, and after a cancel, nothing has changed.
void ChooseScreenFont(HWND owner, const wchar_t* title, FontDescription& font);

}  // namespace win32

#endif  // CORVALIS_WIN32_FONT_DIALOG_H_
