#include "tests/windows/wizard_test_base.h"

#include "tests/windows/drag_data.h"

namespace {

constexpr int kControls[] = {IDC_FORM3_PICTURE1, IDC_FORM3_LABEL1,   IDC_FORM3_TEXT1,
                             IDC_FORM3_COMMAND3, IDC_FORM3_LABEL2,   IDC_FORM3_TEXT2,
                             IDC_FORM3_LABEL3,   IDC_FORM3_TEXT3,    IDC_FORM3_TEXT4,
                             IDC_FORM3_COMMAND4, IDC_FORM3_COMMAND1, IDC_FORM3_COMMAND5,
                             IDC_FORM3_COMMAND2};

}  // namespace

void WizardTestBase::OpenAdd() {
  Press(IDC_FORM2_COMMAND2);
  ASSERT_NE(Wizard(), nullptr);
}

void WizardTestBase::OpenEdit(int row) {
  SelectRow(row);
  Press(IDC_FORM2_COMMAND3);
  ASSERT_NE(Wizard(), nullptr);
}

void WizardTestBase::PressWizard(int buttonId) {
  SendMessageA(WizardControl(buttonId), BM_CLICK, 0, 0);
  RunMessages();
}

void WizardTestBase::TypeWizard(int editId, const std::string& text) {
  SendMessageA(WizardControl(editId), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  RunMessages();
}

void WizardTestBase::Key(HWND control, int key) {
  PostMessageA(control, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
  RunMessages();
}

std::string WizardTestBase::WizardText(int id) { return WindowBytes(WizardControl(id)); }

Texts WizardTestBase::Boxes() {
  return {WizardText(kTarget), WizardText(kArguments), WizardText(kStartIn), WizardText(kName)};
}

void WizardTestBase::Next(const std::string& target) {
  TypeWizard(kTarget, target);
  PressWizard(kNext);
}

int WizardTestBase::DefaultButton() {
  const LRESULT answer = SendMessageA(Wizard(), DM_GETDEFID, 0, 0);
  return HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : 0;
}

std::vector<int> WizardTestBase::DrawnAsDefault() {
  std::vector<int> buttons;
  for (const int id : kControls) {
    if (SendMessageA(WizardControl(id), WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) {
      buttons.push_back(id);
    }
  }
  return buttons;
}

void WizardTestBase::ExpectShown(const std::vector<int>& visible) {
  std::vector<int> shown;
  for (const int id : kControls) {
    ASSERT_NE(WizardControl(id), nullptr) << id;
    if (IsWindowVisible(WizardControl(id))) {
      shown.push_back(id);
    }
  }
  EXPECT_EQ(shown, visible);
}

void WizardTestBase::ExpectTargetPage(int defaultButton) {
  ExpectShown({IDC_FORM3_PICTURE1, IDC_FORM3_LABEL1, kTarget, IDC_FORM3_COMMAND3, IDC_FORM3_LABEL2,
               kArguments, IDC_FORM3_LABEL3, kStartIn, kBack, kNext, kCancel});
  EXPECT_EQ(WizardText(IDC_FORM3_LABEL1),
            "Type the full path of the item you want to create a shortcut to. Or search for the "
            "item by clicking Browse.");
  EXPECT_EQ(IsWizardEnabled(kNext), !WizardText(kTarget).empty());
  EXPECT_FALSE(IsWizardEnabled(kBack));
  EXPECT_TRUE(IsWizardEnabled(kFinish));
  EXPECT_TRUE(IsWizardEnabled(IDC_FORM3_COMMAND3));
  EXPECT_TRUE(IsWizardEnabled(kCancel));
  EXPECT_EQ(DefaultButton(), defaultButton);
}

void WizardTestBase::ExpectNamePage(int defaultButton) {
  ExpectShown({IDC_FORM3_PICTURE1, IDC_FORM3_LABEL1, kName, kBack, kFinish, kCancel});
  EXPECT_EQ(WizardText(IDC_FORM3_LABEL1), "Type a friendly name for your shortcut.");
  EXPECT_TRUE(IsWizardEnabled(kBack));
  EXPECT_EQ(IsWizardEnabled(kFinish), !WizardText(kName).empty());
  EXPECT_TRUE(IsWizardEnabled(kCancel));
  EXPECT_EQ(DefaultButton(), defaultButton);
}

void WizardTestBase::ExpectClosed() {
  EXPECT_EQ(Wizard(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(form().window()));
  EXPECT_TRUE(IsWindowVisible(form().window()));
  ExpectFront(form().window());
}

// Under a window manager, no window may be in front for a moment.
void WizardTestBase::ExpectFront(HWND window) {
  const ULONGLONG end = GetTickCount64() + 10000;
  while (GetForegroundWindow() != window && GetTickCount64() < end) {
    RunMessages();
    Sleep(10);
  }
  EXPECT_EQ(GetForegroundWindow(), window);
}

void WizardTestBase::Finish(const std::string& target, const std::string& name,
                            const std::string& arguments, const std::string& startIn) {
  TypeWizard(kTarget, target);
  TypeWizard(kArguments, arguments);
  TypeWizard(kStartIn, startIn);
  PressWizard(kNext);
  TypeWizard(kName, name);
  PressWizard(kFinish);
}

void WizardTestBase::Drop(const std::vector<std::wstring>& paths) {
  DragData* const data = DragData::Files(paths);
  DWORD effect = DROPEFFECT_COPY;
  EXPECT_EQ(Target()->DragEnter(data, MK_LBUTTON, {}, &effect), S_OK);
  EXPECT_EQ(Target()->Drop(data, 0, {}, &effect), S_OK);
  EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_COPY));
  data->Release();
  RunMessages();  // the files are added after the drop
}
