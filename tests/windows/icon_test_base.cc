#include "tests/windows/icon_test_base.h"

#include <dlgs.h>

#include "win32/picture_box.h"

using testing_icons::Library;

IconTest::IconTest()
    : one(Write("one.dll", Library({colours[0]}))),
      two(Write("two.dll", Library({colours[0], colours[1]}))),
      twelve(Write("twelve.dll", Library(colours))),
      none(Write("none.dll", Library(colours, 0))) {}

std::string IconTest::Write(const std::string& name, const std::string& bytes) {
  WriteBytes(PathOf(name), bytes);
  return PathOf(name);
}

void IconTest::PressInForm4(int buttonId) {
  SendMessageA(Form4Control(buttonId), BM_CLICK, 0, 0);
  RunMessages();
}

void IconTest::ChooseInDialog(const std::string& path) {
  answers.OnDialog([this, path](HWND dialog) { DriveFileDialog(dialog, path); });
}

void IconTest::CancelDialog() {
  answers.OnDialog([this](HWND dialog) { DriveFileDialog(dialog, std::nullopt); });
}

void IconTest::DriveFileDialog(HWND dialog, const std::optional<std::string>& path) {
  const HWND name = FileNameBox(dialog);
  const HWND filters = GetDlgItem(dialog, cmb1);
  fileDialogs_.push_back({WindowBytes(dialog), WindowBytes(name), WindowBytes(filters)});
  if (path) {
    SetWindowTextA(name, path->c_str());
  }
  PostMessageA(dialog, WM_COMMAND, path ? IDOK : IDCANCEL, 0);
}

void IconTest::Scroll(HWND bar, int request, int position) {
  SendMessageA(GetParent(bar), WM_HSCROLL, MAKEWPARAM(request, position),
               reinterpret_cast<LPARAM>(bar));
  RunMessages();
}

int IconTest::Position(HWND bar) { return static_cast<int>(SendMessageA(bar, SBM_GETPOS, 0, 0)); }

int IconTest::LastPosition(HWND bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE;
  SendMessageA(bar, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(&info));
  EXPECT_EQ(info.nMin, 0);
  return info.nMax;
}

void IconTest::ExpectShown(HWND label, HWND bar, HWND preview, const ShownIcons& shown) {
  EXPECT_EQ(WindowBytes(label), shown.label.value_or(WindowBytes(label)));
  EXPECT_EQ(LastPosition(bar), shown.last.value_or(LastPosition(bar)));
  EXPECT_EQ(Position(bar), shown.position.value_or(Position(bar)));
  EXPECT_TRUE(!shown.preview || Painted(preview) == *shown.preview) << "another preview";
}

std::vector<COLORREF> IconTest::Painted(HWND pictureBox) {
  const SIZE size = win32::PictureBox::Size();
  return Drawn(size, CLR_INVALID, [&](HDC dc) {
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_STATIC;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID(pictureBox));
    item.itemAction = ODA_DRAWENTIRE;
    item.hwndItem = pictureBox;
    item.hDC = dc;
    item.rcItem = {0, 0, size.cx, size.cy};
    SendMessageA(GetParent(pictureBox), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
  });
}

std::vector<COLORREF> IconTest::Showing(COLORREF icon) const {
  return testing_icons::PixelsOf(icon, GetSysColor(COLOR_BTNFACE));
}

std::vector<COLORREF> IconTest::ShowingOnPage(COLORREF icon) {
  return testing_icons::PixelsOf(icon, PageColour());
}

std::vector<COLORREF> IconTest::Empty(int systemColour) {
  const SIZE size = win32::PictureBox::Size();
  return std::vector<COLORREF>(static_cast<std::size_t>(size.cx * size.cy),
                               GetSysColor(systemColour));
}
