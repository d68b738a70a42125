#include "tests/windows/outside/outside_test_base.h"

#include <windows.h>

#include <commctrl.h>
#include <dlgs.h>

#include <filesystem>
#include <fstream>

using outside::WaitUntil;

OutsideTest::OutsideTest() {
  char path[MAX_PATH] = "";
  GetTempPathA(MAX_PATH, path);
  static int count = 0;
  folder_ = std::string(path) + "corvalis outside " + std::to_string(GetCurrentProcessId()) + "-" +
            std::to_string(++count);
  CreateDirectoryA(folder_.c_str(), nullptr);
}

OutsideTest::~OutsideTest() {
  program_.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void OutsideTest::StartOn(const std::string& menuPath, const std::string& currentFolder) {
  program_.reset();
  program_ = std::make_unique<outside::Program>(menuPath, currentFolder);
  ASSERT_TRUE(program_->Started());
  ASSERT_NE(program_->WaitForFirst(), nullptr) << "the program shows nothing";
}

void OutsideTest::Start(const std::string& menuBytes) {
  WriteBytes(MenuPath(), menuBytes);
  StartAsItStands();
  WaitForForm2();
}

void OutsideTest::WaitForForm2() {
  form2_ = program_->WaitFor("Form2");
  ASSERT_NE(form2_, nullptr) << "the program shows no window";
}

void OutsideTest::Press(int buttonId) { EXPECT_TRUE(outside::Press(form2_, buttonId)); }

HWND OutsideTest::WaitForDialog(const std::string& title) {
  HWND dialog = nullptr;
  EXPECT_TRUE(WaitUntil([&] {
    dialog = program_->Find("#32770");
    return dialog != nullptr && outside::Text(dialog) == title;
  })) << "no dialog \""
      << title << "\"";
  return dialog;
}

void OutsideTest::Answer(const std::string& title, const std::string& text, int buttonId) {
  const HWND box = WaitForDialog(title);
  EXPECT_EQ(outside::Text(box, outside::kMessageTextId), text);
  outside::Click(box, buttonId);
  EXPECT_TRUE(program_->WaitUntilGone("#32770"));
}

void OutsideTest::ChooseFile(HWND window, int buttonId, const std::string& title,
                             const std::string& path) {
  outside::Click(window, buttonId);
  const HWND dialog = WaitForDialog(title);
  // The name box may be inside a list of earlier names.
  outside::Type(dialog, GetDlgItem(dialog, cmb13) != nullptr ? cmb13 : edt1, path);
  outside::Click(dialog, IDOK);
  EXPECT_TRUE(program_->WaitUntilGone("#32770"));
}

bool OutsideTest::WaitForText(HWND window, int id, const std::string& text) {
  return WaitUntil([&] { return outside::Text(window, id) == text; });
}

void OutsideTest::ScrollTo(HWND window, int barId, int position) {
  SendMessageA(window, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, position),
               reinterpret_cast<LPARAM>(GetDlgItem(window, barId)));
}

HWND OutsideTest::OpenWizard(int buttonId) {
  outside::Click(form2_, buttonId);
  const HWND wizard = program_->WaitFor("Form3");
  EXPECT_NE(wizard, nullptr);
  return wizard;
}

void OutsideTest::Next(HWND wizard) {
  outside::Click(wizard, IDC_FORM3_COMMAND1);
  EXPECT_TRUE(
      WaitUntil([&] { return IsWindowVisible(GetDlgItem(wizard, IDC_FORM3_TEXT4)) != FALSE; }));
}

void OutsideTest::Finish(HWND wizard) {
  outside::Click(wizard, IDC_FORM3_COMMAND5);
  EXPECT_TRUE(program_->WaitUntilGone("Form3"));
  EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(form2_) != FALSE; }));
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == form2_; }));
}

void OutsideTest::SelectTab(int tab) {
  SendMessageA(Control(IDC_FORM2_SSTAB1), TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
}

void OutsideTest::ShowAppearancePage() {
  SelectTab(1);
  EXPECT_TRUE(WaitUntil([&] { return IsWindowVisible(Control(IDC_FORM2_COMMAND12)) != FALSE; }));
}

void OutsideTest::ClickPreview() {
  const HWND preview = Control(IDC_FORM2_PICTURE1);
  SendMessageA(preview, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  SendMessageA(preview, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
}

HWND OutsideTest::OpenFontDialog() {
  outside::Click(form2_, IDC_FORM2_COMMAND6);
  return WaitForDialog("Select Font");
}

void OutsideTest::ChooseFont(HWND dialog, const char* name, int styleRow, const char* size) {
  const auto find = [&](int box, const char* text) {
    return SendDlgItemMessageA(dialog, box, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                               reinterpret_cast<LPARAM>(text));
  };
  const auto select = [&](int box, LRESULT row) {
    const HWND combo = GetDlgItem(dialog, box);
    ASSERT_NE(row, CB_ERR) << box;
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(box, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
  };
  select(cmb1, find(cmb1, name));
  select(cmb2, styleRow);
  select(cmb3, find(cmb3, size));
  outside::Click(dialog, IDOK);
  EXPECT_TRUE(program_->WaitUntilGone("#32770"));
}

void OutsideTest::ExpectCleanEnd() {
  outside::CloseWindow(form2_);
  const std::optional<DWORD> code = program_->WaitForExit();
  ASSERT_TRUE(code.has_value()) << "the program goes on running";
  EXPECT_EQ(*code, 0U);
  for (const char* scratch : {"temporaryfile", "zoltempfileoktodelete"}) {
    EXPECT_FALSE(Exists(PathOf(scratch))) << scratch;
  }
}

std::string OutsideTest::BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
  file.seekg(0);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

void OutsideTest::WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}
