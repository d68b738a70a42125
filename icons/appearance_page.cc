#include <exception>
#include <string>
#include <utility>

#include "editor/form2.h"
#include "icons/icon_browser.h"
#include "menufile/failure.h"
#include "menufile/rewrite.h"
#include "resources/resource.h"
#include "win32/message_box.h"

namespace editor {
namespace {

// A box that was drawn by an odd icon might hold the bytes of the marker: no
// one could tell any more where the picture ends.
void CheckPicture(const std::string& picture, const std::string& path) {
  if (picture.find(menufile::kMarkerText) != std::string::npos) {
    throw menufile::Failure(path, "save the picture", "It holds the bytes of the marker line");
  }
}

}  // namespace

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
    const std::string picture = AppearancePicture().BitmapFile();
    CheckPicture(picture, MenuFilePath());
    const std::string size = menufile::FontSizeText(menuFont_.points);
    menufile::AppearanceRecord appearance;
    const bool smallIcons = IsDlgButtonChecked(window(), IDC_FORM2_CHECK1) == BST_CHECKED;
    appearance.smallIcons = menufile::Value::Bare(smallIcons ? "1" : "0");
    const std::string name = fontName_.BytesOf(menuFont_.name).value();
    appearance.fontName = menufile::Value::Quoted(name);
    appearance.fontSize = menufile::Value::Bare(size);
    appearance.fontBold = menufile::Value::Bare(menuFont_.bold ? "-1" : "0");
    appearance.fontItalic = menufile::Value::Bare(menuFont_.italic ? "-1" : "0");
    menufile::MenuChange change;
    change.scratchFile = menufile::kDialogScratchFile;
    // Whatever the file says: this page saves user-defined lists only.
    change.type = menufile::MenuType::UserDefined;
    change.appearance = appearance;
    change.recordRule = menufile::KeepRecord;
    change.picture = picture;
    Rewrite(change);
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
