#include "editor/form2.h"
#include "resources/resource.h"
namespace editor {
struct Form2::AppearancePage {
  win32::PictureBox picture1;
};
void Form2::CreateAppearancePage() {
  appearancePage_ = std::make_shared<AppearancePage>();
  appearancePage_->picture1.Attach(Control(IDC_FORM2_PICTURE1));
}
const win32::PictureBox& Form2::AppearancePicture() const { return appearancePage_->picture1; }
void Form2::ChangeItemIcon() {}
void Form2::ShowIconAt() {}
void Form2::SelectIconSourceFile() {}
void Form2::ShowPreviewOnDesktopColour() {}
void Form2::ChangeMenuFont() {}
void Form2::SaveAppearance() {}
}  // namespace editor
