#include "win32/picture_box.h"

#include "win32/layout.h"

namespace win32 {
namespace {

constexpr int kBitsPerPixel = 24;

BITMAPINFOHEADER Header() {
  const SIZE size = PictureBox::Size();
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = size.cx;
  header.biHeight = size.cy;  // positive: bottom row first
  header.biPlanes = 1;
  header.biBitCount = kBitsPerPixel;
  header.biCompression = BI_RGB;
  // A row is padded to a multiple of four bytes.
  const LONG rowBytes = (size.cx * kBitsPerPixel / 8 + 3) / 4 * 4;
  header.biSizeImage = static_cast<DWORD>(rowBytes * size.cy);
  return header;
}

template <typename T>
void AppendBytes(std::string& out, const T& value) {
  out.append(reinterpret_cast<const char*>(&value), sizeof value);
}

LRESULT CALLBACK KeyProcedure(HWND box, UINT message, WPARAM wide, LPARAM data, UINT_PTR id,
                              DWORD_PTR) {
  switch (message) {
    case WM_GETDLGCODE:
      return wide == VK_RETURN ? DLGC_WANTALLKEYS : DLGC_WANTCHARS;
    case WM_KEYDOWN: {
      const bool isHeldDown = (data & 1 << 30) != 0;
      if ((wide == VK_SPACE || wide == VK_RETURN) && !isHeldDown) {
        SendMessageW(GetParent(box), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(box), STN_CLICKED),
                     reinterpret_cast<LPARAM>(box));
      }
      return 0;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_UPDATEUISTATE:
      InvalidateRect(box, nullptr, FALSE);
      break;
    case WM_NCDESTROY:
      RemoveWindowSubclass(box, KeyProcedure, id);
      break;
    default:
      break;
  }
  return DefSubclassProc(box, message, wide, data);
}

}  // namespace

// A device context with the box's bitmap selected into it.
struct PictureBox::Canvas {
  explicit Canvas(HBITMAP bitmap) : dc(CreateCompatibleDC(nullptr)), selected(dc.get(), bitmap) {}

  UniqueMemoryDc dc;
  SelectedObject selected;
};

SIZE PictureBox::Size() { return {GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)}; }

void PictureBox::Attach(HWND control) {
  control_ = control;
  BITMAPINFO info{};
  info.bmiHeader = Header();
  bitmap_.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels_, nullptr, 0));
  Clear();
}

void PictureBox::TakeKeys() const { SetWindowSubclass(control_, KeyProcedure, 0, 0); }

void PictureBox::Clear() {
  const SIZE size = Size();
  const RECT all{0, 0, size.cx, size.cy};
  const Canvas canvas(bitmap_.get());
  HBRUSH const brush =
      background_ == kOfParent
          ? reinterpret_cast<HBRUSH>(SendMessageW(GetParent(control_), WM_CTLCOLORSTATIC,
                                                  reinterpret_cast<WPARAM>(canvas.dc.get()),
                                                  reinterpret_cast<LPARAM>(control_)))
          : GetSysColorBrush(background_);
  FillRect(canvas.dc.get(), &all, brush);
  Refresh();
}

void PictureBox::Draw(HICON icon) {
  DrawIcon(Canvas(bitmap_.get()).dc.get(), 0, 0, icon);
  Refresh();
}

void PictureBox::Draw(HIMAGELIST images, int index) {
  ImageList_Draw(images, index, Canvas(bitmap_.get()).dc.get(), 0, 0, ILD_TRANSPARENT);
  Refresh();
}

void PictureBox::Refresh() const { InvalidateRect(control_, nullptr, FALSE); }

void PictureBox::Paint(const DRAWITEMSTRUCT& item) const {
  const SIZE size = Size();
  // The control may be on a monitor with another DPI than the bitmap's.
  const SIZE shown = SizeOf(item.rcItem);
  SetStretchBltMode(item.hDC, HALFTONE);
  SetBrushOrgEx(item.hDC, 0, 0, nullptr);  // required after setting HALFTONE
  StretchBlt(item.hDC, item.rcItem.left, item.rcItem.top, shown.cx, shown.cy,
             Canvas(bitmap_.get()).dc.get(), 0, 0, size.cx, size.cy, SRCCOPY);
  // Windows hides the focus until the user moves it with the keyboard.
  const LRESULT hidden = SendMessageW(control_, WM_QUERYUISTATE, 0, 0);
  if (GetFocus() == control_ && (hidden & UISF_HIDEFOCUS) == 0) {
    DrawFocusRect(item.hDC, &item.rcItem);
  }
}

std::string PictureBox::BitmapFile() const {
  GdiFlush();  // GDI may not have drawn everything yet
  const BITMAPINFOHEADER info = Header();
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;  // "BM"
  file.bfOffBits = sizeof file + sizeof info;
  file.bfSize = file.bfOffBits + info.biSizeImage;
  std::string bytes;
  bytes.reserve(file.bfSize);
  AppendBytes(bytes, file);
  AppendBytes(bytes, info);
  bytes.append(static_cast<const char*>(pixels_), info.biSizeImage);
  return bytes;
}

}  // namespace win32
