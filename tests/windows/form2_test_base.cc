#include "tests/windows/form2_test_base.h"

#include <commctrl.h>
#include <dlgs.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/windows/code_pages.h"
#include "win32/text.h"

Form2Test::Form2Test() {
  char path[MAX_PATH];
  GetCurrentDirectoryA(MAX_PATH, path);
  formerFolder_ = path;
  GetTempPathA(MAX_PATH, path);
  static int count = 0;
  folder_ = std::string(path) + "corvalis " + std::to_string(GetCurrentProcessId()) + "-" +
            std::to_string(++count) + " " + testing_pages::ThisPage().bytes;
  CreateDirectoryA(folder_.c_str(), nullptr);
  SetCurrentDirectoryA(folder_.c_str());
}

Form2Test::~Form2Test() {
  form_.reset();
  RunMessages();
  SetCurrentDirectoryA(formerFolder_.c_str());
  std::error_code ignored;
  std::filesystem::remove_all(win32::ToText(folder_), ignored);
}

bool Form2Test::Open(const std::string& menuBytes) {
  WriteBytes(MenuPath(), menuBytes);
  return Load();
}

bool Form2Test::Load() {
  form_ = std::make_unique<editor::Form2>(MenuPath(), *files);
  return form_->StartUp();
}

void Form2Test::Press(int buttonId) {
  SendMessageA(Control(buttonId), BM_CLICK, 0, 0);
  RunMessages();
}

void Form2Test::SelectRow(int row) {
  const HWND list = Control(IDC_FORM2_LIST1);
  SendMessageA(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
  SendMessageA(form_->window(), WM_COMMAND, MAKEWPARAM(IDC_FORM2_LIST1, LBN_SELCHANGE),
               reinterpret_cast<LPARAM>(list));
  RunMessages();
}

void Form2Test::SelectTab(int tab) {
  SendMessageA(Control(IDC_FORM2_SSTAB1), TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
  RunMessages();
}

void Form2Test::Type(int editId, const std::string& text) {
  SendMessageA(Control(editId), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  RunMessages();
}

std::optional<int> Form2Test::ExitCode() {
  MSG message;
  return PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && message.message == WM_QUIT
             ? std::optional(static_cast<int>(message.wParam))
             : std::nullopt;
}

void Form2Test::RunMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (!win32::DispatchToForm(message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

// The box may be inside a list of earlier names.
HWND Form2Test::FileNameBox(HWND dialog) {
  const HWND list = GetDlgItem(dialog, cmb13);
  return list != nullptr ? list : GetDlgItem(dialog, edt1);
}

void Form2Test::WithKeys(const std::vector<BYTE>& held, const std::function<void()>& run) {
  const auto set = [&](BYTE state) {
    BYTE keys[256]{};
    GetKeyboardState(keys);
    for (const BYTE key : held) {
      keys[key] = state;
    }
    SetKeyboardState(keys);
  };
  set(0x80);
  run();
  set(0);
}

Texts Form2Test::Rows() {
  Texts rows;
  for (int row = 0; row < form_->items().Count(); ++row) {
    rows.push_back(RowBytes(Control(IDC_FORM2_LIST1), row));
  }
  return rows;
}

int Form2Test::SelectedRow() {
  return static_cast<int>(SendMessageA(Control(IDC_FORM2_LIST1), LB_GETCURSEL, 0, 0));
}

bool Form2Test::IsVisible(int id) {
  return (GetWindowLongA(Control(id), GWL_STYLE) & WS_VISIBLE) != 0;
}

bool Form2Test::IsChecked(int id) {
  return SendMessageA(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

COLORREF Form2Test::PageColour() {
  const HWND label = Control(IDC_FORM2_LIST1_LABEL);
  const win32::WindowDc dc(label);
  SendMessageW(form_->window(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.get()),
               reinterpret_cast<LPARAM>(label));
  return GetBkColor(dc.get());
}

std::vector<editor::HiddenRow> Form2Test::HiddenRows() {
  std::vector<editor::HiddenRow> rows;
  for (int row = 0; row < form_->items().Count(); ++row) {
    rows.push_back(form_->items().Hidden(row));
  }
  return rows;
}

void Form2Test::ExpectBoxes(std::size_t count, const std::string& title, const std::string& text,
                            const Texts& buttons) {
  ASSERT_EQ(answers.Shown().size(), count);
  EXPECT_EQ(answers.Shown().back().title, title);
  EXPECT_EQ(answers.Shown().back().text, text);
  EXPECT_EQ(answers.Shown().back().buttons, buttons);
}

std::vector<COLORREF> Form2Test::Drawn(SIZE size, COLORREF background,
                                       const std::function<void(HDC)>& draw) {
  const win32::WindowDc screen(nullptr);
  const win32::UniqueMemoryDc dc(CreateCompatibleDC(screen.get()));
  const win32::UniqueBitmap bitmap(CreateCompatibleBitmap(screen.get(), size.cx, size.cy));
  const win32::SelectedObject selected(dc.get(), bitmap.get());
  if (background != CLR_INVALID) {
    const RECT all{0, 0, size.cx, size.cy};
    const win32::UniqueBrush brush(CreateSolidBrush(background));
    FillRect(dc.get(), &all, brush.get());
  }
  draw(dc.get());
  std::vector<COLORREF> pixels;
  for (int y = 0; y < size.cy; ++y) {
    for (int x = 0; x < size.cx; ++x) {
      pixels.push_back(GetPixel(dc.get(), x, y));
    }
  }
  return pixels;
}

std::vector<Form2Test::Obstacle> Form2Test::Obstacles() {
  return {{"a read-only menu file", [this] { MakeReadOnly(MenuPath()); },
           [this] { MakeWritable(MenuPath()); }},
          {"a menu file that another program holds", [this] { lock_.emplace(MenuPath()); },
           [this] { lock_.reset(); }},
          {"folders with the names of the scratch files",
           [this] {
             Make("temporaryfile");
             Make("zoltempfileoktodelete");
           },
           [this] {
             EXPECT_TRUE(RemoveDirectoryA(PathOf("temporaryfile").c_str()));
             EXPECT_TRUE(RemoveDirectoryA(PathOf("zoltempfileoktodelete").c_str()));
           },
           false}};
}

bool Form2Test::IsIcon(const std::string& iconText) {
  ICONINFO info{};
  if (!GetIconInfo(editor::IconOfText(iconText), &info)) {
    return false;
  }
  DeleteObject(info.hbmColor);
  DeleteObject(info.hbmMask);
  return true;
}

std::wstring Form2Test::WidePathOf(const std::wstring& name) const {
  return win32::ToText(folder_) + L"\\" + name;
}

std::string Form2Test::ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

void Form2Test::WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

bool Form2Test::Exists(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void Form2Test::MakeReadOnly(const std::string& path) {
  ASSERT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY));
}

void Form2Test::MakeWritable(const std::string& path) {
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}
