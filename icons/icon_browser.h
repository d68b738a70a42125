#ifndef CORVALIS_ICONS_ICON_BROWSER_H_
#define CORVALIS_ICONS_ICON_BROWSER_H_

#include <windows.h>

#include <algorithm>
#include <string>
#include <utility>

#include "win32/handles.h"
#include "win32/mouse_wheel.h"
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
  // `index` is that of an icon to be shown, which counts if it is negative.
  void SetSource(std::string path, int index = 0) {
    source_ = std::move(path);
    index_ = std::min(index, 0);
  }

  win32::PictureBox& picture() { return picture_; }
  HICON current() const { return current_.get(); }
  // The index of the chosen icon: the position of the scroll bar, or minus
  // the number of a resource until the bar is moved.
  int Index() const;

  // How many icons the source has. A source that cannot be read has none.
  struct IconCount {
    int icons = 0;
    bool isAll = true;  // false when there are more than an index of 16 bits can count
  };
  // Extracts one icon of the source after the other until there is none, which
  // leaves no current icon.
  IconCount CountIcons();
  // What the user is told of too many.
  std::wstring TooManyIcons() const;

  // Shows that many icons, enables the scroll bar and moves it to `index`. A
  // negative one is minus the number of a resource, which has no position: its
  // icon is shown, or else the first one, at the start of the bar.
  void ShowIcons(int count, int index);

  // Shows the icon at the position of the scroll bar, or nothing when there is
  // none.
  void ShowIconAt();
  // The same where that is not the one that is shown.
  void ShowIconAtNewPosition();

  // Turns the scroll bar by a WM_MOUSEWHEEL that came to the window.
  void TurnByWheel(WPARAM wide) { win32::TurnScrollBar(scrollBar_, wide); }

  // Lets the user choose another source and shows its first icon. One without
  // icons becomes the source, too, after a message.
  void SelectIconSourceFile(HWND owner);

  // Draws the current icon anew on the colour of the desktop, which the box
  // keeps from then on.
  void ShowPreviewOnDesktopColour();

  // Hands the current icon over; the box goes on showing it.
  win32::UniqueIcon TakeIcon() { return std::move(current_); }

 private:
  int Position() const;

  win32::PictureBox picture_;
  HWND scrollBar_ = nullptr;
  HWND countLabel_ = nullptr;
  std::string source_;
  win32::UniqueIcon current_;
  int index_ = 0;  // of current_
};

}  // namespace icons

#endif  // CORVALIS_ICONS_ICON_BROWSER_H_
