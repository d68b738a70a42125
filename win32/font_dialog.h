#ifndef CORVALIS_WIN32_FONT_DIALOG_H_
#define CORVALIS_WIN32_FONT_DIALOG_H_

#include <windows.h>

#include <string>

namespace win32 {

// A font as the user chooses it. This machine need not have it.
struct FontDescription {
  std::wstring name;
  double points = 0;
  bool bold = false;
  bool italic = false;

  // The font for Windows, with its height in pixels at that DPI. `points` may be any
  // number; it is limited to 0 to 1000 here.
  LOGFONTW InPixels(int dpi) const;
};

// Lets the user choose a screen font in the standard dialog, which starts with
// `font`. If the user changed one of its boxes and pressed OK, `font` becomes what the
// dialog shows; that includes a size that the dialog has rounded. A face that this
// machine lacks stays until the user chooses another. After a cancel, or an OK without
// a change, `font` stays as it was.
void ChooseScreenFont(HWND owner, const wchar_t* title, FontDescription& font);

}  // namespace win32

#endif  // CORVALIS_WIN32_FONT_DIALOG_H_
