#include <exception>
#include <string>
#include <utility>

#include "editor/form2.h"
#include "icons/icon_browser.h"
#include "menufile/changes.h"
#include "resources/resource.h"
#include "win32/message_box.h"

namespace editor {
struct Form2::AppearancePage {
  icons::IconBrowser browser;
};

void Form2::CreateAppearancePage() {
  appearancePage_ = std::make_shared<AppearancePage>();
  appearancePage_->browser.Attach(Control(IDC_FORM2_PICTURE1), Control(IDC_FORM2_HSCROLL1),
                                  Control(IDC_FORM2_LABEL8));
  AppearancePicture().TakeKeys();
}

const win32::PictureBox& Form2::AppearancePicture() const {
  return appearancePage_->browser.picture();
}

void Form2::ShowIconAt() { appearancePage_->browser.ShowIconAt(); }

void Form2::SelectIconSourceFile() { appearancePage_->browser.SelectIconSourceFile(window()); }

void Form2::ShowPreviewOnDesktopColour() { appearancePage_->browser.ShowPreviewOnDesktopColour(); }

void Form2::ChangeMenuFont() {
  win32::FontDescription chosen = menuFont_;
  win32::ChooseScreenFont(window(), L"Select Font", chosen);
  if (!fontName_.BytesOf(chosen.name)) {
    win32::ShowError(window(), L"Font " + chosen.name +
                                   L" cannot be used. Its name has characters that a menu file "
                                   L"cannot hold.");
    return;
  }
  menuFont_ = chosen;
  ShowSampleFont();
}

void Form2::SaveAppearance() {
  try {
    menufile::Appearance appearance;
    appearance.smallIcons = IsDlgButtonChecked(window(), IDC_FORM2_CHECK1) == BST_CHECKED;
    appearance.fontName = fontName_.BytesOf(menuFont_.name).value();
    appearance.fontPoints = menuFont_.points;
    appearance.fontBold = menuFont_.bold;
    appearance.fontItalic = menuFont_.italic;
    appearance.picture = AppearancePicture().BitmapFile();
    if (!Rewrite(menufile::SaveAppearance(appearance, menu_.path()))) {
      return;
    }
  } catch (const std::exception&) {
    win32::ShowError(window(), L"Error writing to file.");
    OnClose();
    return;
  }
  win32::ShowInformation(window(),
                         L"You might have to refresh the desktop for the new icon to show.",
                         L"Corvalis Edit");
}

}  // namespace editor
