#ifndef CORVALIS_ICONS_ICON_BROWSER_H_
#define CORVALIS_ICONS_ICON_BROWSER_H_

#include <windows.h>

#include <string>
#include <utility>

#include "win32/handles.h"
#include "win32/picture_box.h"

namespace icons {

// Sets the label to "0 Icons", "1 Icon", "2 Icons" and so on.
void ShowIconCount(HWND label, int count);

// Pages through the icons of a file: a picture box with one icon, a scroll bar
// whose position is that icon's index, and a label with the number of icons.
//
// The browser owns the icon that its box shows, the current one, until it shows
// another or TakeIcon() hands it over. Two icons are left to the end of the
// process on purpose, for nothing releases a current icon when its window
// closes: that of the appearance page, and that of a Select Icon window which
// was closed other than by OK.
class IconBrowser {
 public:
  IconBrowser() = default;
  IconBrowser(const IconBrowser&) = delete;
  IconBrowser& operator=(const IconBrowser&) = delete;
  ~IconBrowser() { current_.release(); }

  // Borrows the controls, whose parent has to pass WM_DRAWITEM of the box on to
  // picture(). The scroll bar starts disabled.
  void Attach(HWND pictureBox, HWND scrollBar, HWND countLabel);

  // The file whose icons are shown: an icon file, a program or a library.
  const std::string& source() const { return source_; }
  void SetSource(std::string path) { source_ = std::move(path); }

  win32::PictureBox& picture() { return picture_; }
  HICON current() const { return current_.get(); }
  int Index() const;  // the position of the scroll bar

  // Extracts one icon of the source after the other until there is none, which
  // leaves no current icon. A source that cannot be read has none. Throws
  // std::overflow_error when there are more than an index of 16 bits can count.
  int CountIcons();

  // Shows that many icons, enables the scroll bar and moves it to `index`.
  void ShowIcons(int count, int index);

  // Shows the icon at the position of the scroll bar, or nothing when there is
  // none.
  void ShowIconAt();

  // Lets the user choose another source and shows its first icon. One without
  // icons becomes the source, too, after a message.
  void SelectIconSourceFile(HWND owner);

  // Draws the current icon anew on the colour of the desktop, which the box
  // keeps from then on.
  void ShowPreviewOnDesktopColour();

  // Hands the current icon over; the box goes on showing it.
  win32::UniqueIcon TakeIcon() { return std::move(current_); }

 private:
  win32::PictureBox picture_;
  HWND scrollBar_ = nullptr;
  HWND countLabel_ = nullptr;
  std::string source_;
  win32::UniqueIcon current_;
};

}  // namespace icons

#endif  // CORVALIS_ICONS_ICON_BROWSER_H_
