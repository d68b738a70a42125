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

// Pages through the icons of a file: a picture box with one icon, a scroll bar whose
// position is that icon's index, and a label with the number of icons.
//
// The browser owns the current icon, which its box shows, until it shows another or
// TakeIcon() is called. On purpose, closing the window does not release the current
// icon: the one of the appearance page, and the one of a Select Icon window closed
// without OK, stay until the process ends.
class IconBrowser {
 public:
  IconBrowser() = default;
  IconBrowser(const IconBrowser&) = delete;
  IconBrowser& operator=(const IconBrowser&) = delete;
  ~IconBrowser() { current_.release(); }

  // Borrows the controls. Their parent has to pass WM_DRAWITEM of the box to
  // picture().Paint(). The plan creates the scroll bar disabled.
  void Attach(HWND pictureBox, HWND scrollBar, HWND countLabel);

  // The file whose icons are shown, in the ANSI code page: an icon file, a program or a
  // library.
  const std::string& source() const { return source_; }
  // Sets the file. Index() returns `index` until the scroll bar moves if it is negative.
  void SetSource(std::string path, int index = 0) {
    source_ = std::move(path);
    index_ = std::min(index, 0);
  }

  win32::PictureBox& picture() { return picture_; }
  HICON current() const { return current_.get(); }
  // The index of the chosen icon: the position of the scroll bar, or a negative resource
  // id until the bar is moved.
  int Index() const;

  // The number of icons in the source; 0 if it cannot be read.
  struct IconCount {
    int icons = 0;
    bool isAll = true;  // false if there are more than fit into a signed 16-bit index
  };
  // Counts the icons by extracting one after the other. Afterwards there is no current
  // icon.
  IconCount CountIcons();
  // The message for a source with too many icons.
  std::wstring TooManyIcons() const;

  // Shows the number of icons, enables the scroll bar and moves it to `index`. If that is
  // negative, it is a resource id: the bar moves to 0, and the box shows that icon, or
  // the first one if there is no such icon.
  void ShowIcons(int count, int index);

  // Shows the icon at the position of the scroll bar, or an empty box if there is none.
  void ShowIconAt();

  // The same, but does nothing if the box shows that icon already.
  void ShowIconAtNewPosition();

  // Moves the scroll bar. `wide` is the WPARAM of WM_MOUSEWHEEL.
  void TurnByWheel(WPARAM wide) { win32::TurnScrollBar(scrollBar_, wide); }

  // Lets the user choose another source and shows its first icon. A file without icons
  // becomes the source, too, after a message.
  void SelectIconSourceFile(HWND owner);

  // Draws the current icon on the colour of the desktop. The box keeps this background.
  void ShowPreviewOnDesktopColour();

  // Returns the current icon; the caller owns it. The box still shows it.
  win32::UniqueIcon TakeIcon() { return std::move(current_); }

 private:
  int Position() const;

  win32::PictureBox picture_;
  HWND scrollBar_ = nullptr;
  HWND countLabel_ = nullptr;
  std::string source_;
  win32::UniqueIcon current_;
  int index_ = 0;  // the index of current_
};

}  // namespace icons

#endif  // CORVALIS_ICONS_ICON_BROWSER_H_
