#include <windows.h>

#include <windowsx.h>

#include <exception>
#include <string>
#include <utility>

#include "editor/form2.h"
#include "icons/icon_browser.h"
#include "menufile/changes.h"
#include "resources/resource.h"
#include "win32/font_dialog.h"
#include "win32/message_box.h"
#include "win32/shell_file.h"

namespace editor {

struct Form2::AppearancePage {
  icons::IconBrowser browser;
  // The menu's font, which the sample `Text3` shows.
  win32::FontDescription font{L"MS Sans Serif", 8.25, false, false};
  win32::ShownBytes fontName;  // the bytes in the menu file
  win32::UniqueFont sampleFont;
};

void Form2::DeleteAppearancePage::operator()(AppearancePage* page) const { delete page; }

void Form2::CreateAppearancePage() {
  appearancePage_.reset(new AppearancePage);
  appearancePage_->browser.Attach(Control(IDC_FORM2_PICTURE1), Control(IDC_FORM2_HSCROLL1),
                                  Control(IDC_FORM2_LABEL8));
  AppearancePicture().TakeKeys();
  ShowSampleFont();
}

const win32::PictureBox& Form2::AppearancePicture() const {
  return appearancePage_->browser.picture();
}

// The mouse wheel moves the scroll bar from anywhere in its frame.
bool Form2::OnMessage(UINT message, WPARAM wide, LPARAM data, LRESULT&) {
  const HWND frame = Control(IDC_FORM2_FRAME1);
  RECT place{};
  if (message != WM_MOUSEWHEEL || !IsWindowVisible(frame) || !GetWindowRect(frame, &place) ||
      !PtInRect(&place, {GET_X_LPARAM(data), GET_Y_LPARAM(data)})) {
    return false;
  }
  appearancePage_->browser.TurnByWheel(wide);
  return true;
}

void Form2::ShowIconAt() { appearancePage_->browser.ShowIconAtNewPosition(); }

void Form2::SelectIconSourceFile() { appearancePage_->browser.SelectIconSourceFile(window()); }

void Form2::ShowPreviewOnDesktopColour() { appearancePage_->browser.ShowPreviewOnDesktopColour(); }

void Form2::ShowAppearance(const menufile::AppearanceRecord& appearance) {
  CheckDlgButton(window(), IDC_FORM2_CHECK1,
                 appearance.smallIcons.Integer() != 0 ? BST_CHECKED : BST_UNCHECKED);
  win32::FontDescription& font = appearancePage_->font;
  font.bold = appearance.fontBold.Integer() != 0;
  font.italic = appearance.fontItalic.Integer() != 0;
  font.name = win32::ToText(appearance.fontName.Text());
  font.points = appearance.fontSize.Number();
  appearancePage_->fontName = {appearance.fontName.Text(), font.name};
  ShowSampleFont();
}

void Form2::ShowSampleFont() {
  const LOGFONTW font = appearancePage_->font.InPixels(static_cast<int>(dpi()));
  win32::UniqueFont created(CreateFontIndirectW(&font));
  SendMessageW(Control(IDC_FORM2_TEXT3), WM_SETFONT, reinterpret_cast<WPARAM>(created.get()), TRUE);
  appearancePage_->sampleFont = std::move(created);
}

void Form2::ChangeMenuFont() {
  win32::FontDescription chosen = appearancePage_->font;
  win32::ChooseScreenFont(window(), L"Select Font", chosen);
  if (!appearancePage_->fontName.BytesOf(chosen.name)) {
    win32::ShowError(window(), L"Font " + chosen.name +
                                   L" cannot be used. Its name has characters that a menu file "
                                   L"cannot hold.");
    return;
  }
  appearancePage_->font = std::move(chosen);
  ShowSampleFont();
}

void Form2::SaveAppearance() {
  try {
    const win32::FontDescription& font = appearancePage_->font;
    menufile::Appearance appearance;
    appearance.smallIcons = IsDlgButtonChecked(window(), IDC_FORM2_CHECK1) == BST_CHECKED;
    appearance.fontName = appearancePage_->fontName.BytesOf(font.name).value();
    appearance.fontPoints = font.points;
    appearance.fontBold = font.bold;
    appearance.fontItalic = font.italic;
    appearance.picture = AppearancePicture().BitmapFile();
    if (!Rewrite(menufile::SaveAppearance(appearance, menu_.path()))) {
      return;
    }
  } catch (const std::exception&) {
    win32::ShowError(window(), L"Error writing to file.");
    OnClose();
    return;
  }
  win32::TellShellOfChange(menu_.path());
  win32::ShowInformation(window(),
                         L"You might have to refresh the desktop for the new icon to show.",
                         L"Corvalis Edit");
}

}  // namespace editor
