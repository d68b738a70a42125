#include <windows.h>

#include <shellapi.h>

#include <cstdlib>

#include "tests/windows/form2_test_base.h"
#include "tests/windows/icon_files.h"
#include "tests/windows/related_window.h"
#include "win32/scaled_bitmap.h"

using namespace testing_menus;

namespace {

using Pixels = std::vector<COLORREF>;

SIZE SizeOf(HICON icon) {
  ICONINFO info{};
  GetIconInfo(icon, &info);
  BITMAP bitmap{};
  GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
  DeleteObject(info.hbmColor);
  DeleteObject(info.hbmMask);
  return {bitmap.bmWidth, bitmap.bmHeight};
}

class PicturesTest : public Form2Test {
 protected:
  static Pixels PixelsOf(HICON icon) {
    const SIZE size = SizeOf(icon);
    return Drawn(size, CLR_INVALID, [&](HDC dc) {
      DrawIconEx(dc, 0, 0, icon, size.cx, size.cy, 0, nullptr, DI_NORMAL);
    });
  }

  // Expects that the icon equals that of an icon file of the project, in its size.
  static void ExpectShows(HICON icon, const std::string& file) {
    ASSERT_NE(icon, nullptr) << file;
    const SIZE size = SizeOf(icon);
    const std::string path = CORVALIS_PROJECT_FOLDER "/resources/" + file;
    const win32::UniqueIcon expected(static_cast<HICON>(
        LoadImageA(nullptr, path.c_str(), IMAGE_ICON, size.cx, size.cy, LR_LOADFROMFILE)));
    ASSERT_TRUE(expected) << path;
    EXPECT_EQ(PixelsOf(icon), PixelsOf(expected.get())) << file;
  }

  void ExpectPicture(int id, const std::string& file) {
    ExpectShows(reinterpret_cast<HICON>(SendMessageW(Control(id), STM_GETICON, 0, 0)), file);
  }

  static void ExpectWindowIcon(HWND window, const std::string& file) {
    auto icon = reinterpret_cast<HICON>(SendMessageW(window, WM_GETICON, ICON_BIG, 0));
    if (icon == nullptr) {
      icon = reinterpret_cast<HICON>(GetClassLongPtrW(window, GCLP_HICON));
    }
    ExpectShows(icon, file);
  }
};

TEST_F(PicturesTest, EachPageHasItsPicture) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  ExpectPicture(IDC_FORM2_IMAGE4, "contents.ico");
  ExpectPicture(IDC_FORM2_IMAGE5, "folder.ico");
  ExpectPicture(IDC_FORM2_IMAGE3, "appearance.ico");
  ExpectPicture(IDC_FORM2_IMAGE1, "default_menu.ico");
}

// The shell shows a program with its first icon.
TEST_F(PicturesTest, EachWindowHasTheProgramsIcon) {
  char program[MAX_PATH] = "";  // has the resources of the finished program
  GetModuleFileNameA(nullptr, program, MAX_PATH);
  const win32::UniqueIcon first(ExtractIconA(nullptr, program, 0));
  ExpectShows(first.get(), "application.ico");
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("Entry", "C:\\windows\\notepad.exe")})));
  ExpectWindowIcon(form().window(), "application.ico");
  const auto child = [this](const char* name, int button) {
    SelectRow(0);
    Press(button);
    const HWND window = ThreadWindow(name);
    ASSERT_NE(window, nullptr) << name;
    ExpectWindowIcon(window, "application.ico");
    SendMessageW(window, WM_CLOSE, 0, 0);
    RunMessages();
  };
  child("Form3", IDC_FORM2_COMMAND3);
  child("Form4", IDC_FORM2_COMMAND11);
}

// The box may be on a monitor of another DPI than when its picture was made.
TEST_F(PicturesTest, APreviewShowsAllOfItsPictureInABoxOfAnySize) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  constexpr COLORREF kColour = RGB(10, 60, 200);
  WriteBytes(PathOf("a.ico"), testing_icons::IconFile(kColour));
  const win32::UniqueIcon icon(static_cast<HICON>(
      LoadImageA(nullptr, PathOf("a.ico").c_str(), IMAGE_ICON, 0, 0, LR_LOADFROMFILE)));
  form().iconic1().Draw(icon.get());
  for (const LONG side : {16L, 40L, 64L}) {
    const Pixels pixels = Drawn({side, side}, CLR_INVALID, [&](HDC dc) {
      DRAWITEMSTRUCT item{};
      item.hwndItem = Control(IDC_FORM2_ICONIC1);
      item.hDC = dc;
      item.rcItem = {0, 0, side, side};
      SendMessageW(form().window(), WM_DRAWITEM, IDC_FORM2_ICONIC1,
                   reinterpret_cast<LPARAM>(&item));
    });
    // At an eighth of the way from one corner to the other, in the middle, and before the end.
    const auto at = [&](LONG eighths) {
      return pixels[static_cast<std::size_t>(side * eighths / 8 * (side + 1))];
    };
    EXPECT_EQ(at(1), testing_icons::kWhite) << side;
    EXPECT_EQ(at(4), kColour) << side;
    EXPECT_EQ(at(7), PageColour()) << side;
  }
}

// At half its size, each pixel is near the mean of the four pixels that it stands for.
TEST_F(PicturesTest, AScaledBitmapShowsAllOfThePicture) {
  const win32::UniqueBitmap whole(static_cast<HBITMAP>(
      LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDB_WIZARD), IMAGE_BITMAP, 0, 0, 0)));
  BITMAP info{};
  GetObjectW(whole.get(), sizeof info, &info);
  const SIZE size{info.bmWidth, info.bmHeight};
  const SIZE half{size.cx / 2, size.cy / 2};
  const auto pixels = [](HBITMAP bitmap, SIZE extent) {
    return Drawn(extent, CLR_INVALID, [&](HDC dc) {
      const win32::UniqueMemoryDc from(CreateCompatibleDC(dc));
      const win32::SelectedObject selected(from.get(), bitmap);
      BitBlt(dc, 0, 0, extent.cx, extent.cy, from.get(), 0, 0, SRCCOPY);
    });
  };
  const Pixels large = pixels(whole.get(), size);
  const win32::UniqueBitmap scaled = win32::LoadScaledBitmap(IDB_WIZARD, half);
  const Pixels small = pixels(scaled.get(), half);
  const auto light = [](COLORREF c) { return GetRValue(c) + GetGValue(c) + GetBValue(c); };
  int different = 0;
  for (int y = 0; y < half.cy; ++y) {
    for (int x = 0; x < half.cx; ++x) {
      LONG sum = 0;
      for (const LONG i : {0L, 1L, size.cx, size.cx + 1}) {
        sum += light(large[static_cast<std::size_t>(2 * y * size.cx + 2 * x + i)]);
      }
      different +=
          std::abs(sum / 4 - light(small[static_cast<std::size_t>(y * half.cx + x)])) > 120;
    }
  }
  EXPECT_LT(different, half.cx * half.cy / 20);
}

}  // namespace
