#include "win32/scale.h"

#include <algorithm>
#include <map>

#include "tests/windows/message_watch.h"
#include "tests/windows/window_tour.h"
#include "win32/layout.h"

using namespace testing_menus;

namespace {

// Changes the message font of Windows until it is destroyed. No window gets a message.
class AnotherMessageFont {
 public:
  explicit AnotherMessageFont(int pixels) {
    former_.cbSize = sizeof former_;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof former_, &former_, 0);
    NONCLIENTMETRICSW metrics = former_;
    metrics.lfMessageFont.lfHeight = -pixels;
    Set(metrics);
  }
  AnotherMessageFont(const AnotherMessageFont&) = delete;
  AnotherMessageFont& operator=(const AnotherMessageFont&) = delete;
  ~AnotherMessageFont() { Set(former_); }

 private:
  static void Set(NONCLIENTMETRICSW& metrics) {
    EXPECT_TRUE(SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0));
  }
  NONCLIENTMETRICSW former_{};
};

using Places = std::map<int, std::string>;

std::string Described(const RECT& rect) {
  return std::to_string(rect.left) + ' ' + std::to_string(rect.top) + ' ' +
         std::to_string(rect.right) + ' ' + std::to_string(rect.bottom);
}

const std::string kMenu = UserDefinedMenu(
    {ItemLine("A name that is rather long for the list of entries, in any font that it has, "
              "so that the list has to scroll sideways to show all of it, to its very end",
              "C:\\windows\\notepad.exe"),
     ItemLine("Short", "C:\\windows")});

class ScaleTest : public WindowTour {
 protected:
  // The place of each control, and the horizontal extents of the lists.
  static Places PlacesIn(HWND window) {
    Places places;
    for (const HWND control : ControlsOf(window)) {
      if (GetDlgCtrlID(control) == IDC_FORM3_LINE) {
        continue;  // the control makes itself a little longer, once
      }
      const LRESULT extent = SendMessageW(control, LB_GETHORIZONTALEXTENT, 0, 0);
      places[GetDlgCtrlID(control)] =
          Described(Place(control)) +
          (ClassOf(control) == "ListBox" ? ", extent " + std::to_string(extent) : "");
    }
    EXPECT_GE(places.size(), 7U);
    return places;
  }
  static SIZE WindowSize(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return win32::SizeOf(rect);
  }
  static void Resize(HWND window, SIZE size) {
    SetWindowPos(window, nullptr, 0, 0, size.cx, size.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  static RECT WorkArea() {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
  }
  // Sends what Windows sends when the window moves to a monitor with that DPI: the window
  // gets the size that it asks for, or that of the work area.
  static void MoveToDpi(HWND window, int dpi) {
    SIZE size = WindowSize(window);
    EXPECT_TRUE(SendMessageW(window, 0x02E4 /* WM_GETDPISCALEDSIZE */, static_cast<WPARAM>(dpi),
                             reinterpret_cast<LPARAM>(&size)));
    RECT wanted{0, 0, size.cx, size.cy};
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&wanted));
    const SIZE most = win32::SizeOf(WorkArea());
    EXPECT_EQ(WindowSize(window).cx, std::min(size.cx, most.cx));
    EXPECT_EQ(WindowSize(window).cy, std::min(size.cy, most.cy));
  }
};

TEST_F(ScaleTest, AnotherMessageFontMakesAWindowLikeANewOne) {
  ASSERT_TRUE(Open(kMenu));
  const int usual = -win32::MessageFont(form().dpi()).lfHeight;
  const Places before = PlacesIn(form().window());
  Places after;
  SIZE size{};
  {
    const AnotherMessageFont font(usual + 3);
    SendMessageW(form().window(), WM_SETTINGCHANGE, 0, 0);
    after = PlacesIn(form().window());
    size = WindowSize(form().window());
    ASSERT_TRUE(Open(kMenu));
    EXPECT_EQ(WindowSize(form().window()).cx, size.cx);
    EXPECT_EQ(WindowSize(form().window()).cy, size.cy);
    EXPECT_EQ(after, PlacesIn(form().window()));
    EXPECT_NE(after, before);
    // The plan has more room than the icon needs: the icon keeps to its anchored edge,
    // right below the list.
    EXPECT_EQ(Place(Control(IDC_FORM2_ICONIC1)).left, Place(Control(IDC_FORM2_LIST1)).left);
  }
  // The window keeps its size if the font gets smaller.
  SendMessageW(form().window(), WM_SETTINGCHANGE, 0, 0);
  EXPECT_EQ(WindowSize(form().window()).cx, size.cx);
  after = PlacesIn(form().window());
  ASSERT_TRUE(Open(kMenu));
  Resize(form().window(), size);
  EXPECT_EQ(after, PlacesIn(form().window()));
}

TEST_F(ScaleTest, AChangeOfOtherSettingsIsNoneOfTheLayout) {
  ASSERT_TRUE(Open(kMenu));
  int told = 0;
  const MessageWatch watch(Control(IDC_FORM2_LIST1), [&](UINT message, WPARAM) {
    told += message == WM_SETFONT || message == WM_WINDOWPOSCHANGING;
  });
  SendMessageW(form().window(), WM_SETTINGCHANGE, SPI_SETWORKAREA, 0);
  EXPECT_EQ(told, 0);
  {
    const AnotherMessageFont font(-win32::MessageFont(form().dpi()).lfHeight + 2);
    SendMessageW(form().window(), WM_SETTINGCHANGE, 0, 0);
    EXPECT_GE(told, 2);
  }
}

TEST_F(ScaleTest, AnotherDpiLaysOutAnewAndBack) {
  VisitAll([](const std::string& page, HWND window) {
    SCOPED_TRACE(page);
    const int usual = static_cast<int>(win32::DpiOf(window));
    const Places before = PlacesIn(window);
    const SIZE size = WindowSize(window);
    for (const int dpi : {usual * 5 / 4, usual * 3 / 2}) {
      MoveToDpi(window, dpi);
      const auto scaled = static_cast<UINT>(dpi);
      const LOGFONTW wanted = win32::MessageFont(scaled);
      const SIZE icon = win32::StandardIconSize(scaled);
      EXPECT_NE(icon.cx, win32::StandardIconSize(static_cast<UINT>(usual)).cx);
      int checked = 0;
      for (const HWND control : Shown(window)) {
        const int id = GetDlgCtrlID(control);
        if (id == IDC_FORM2_TEXT3) {
          continue;
        }
        ++checked;
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof font,
                   &font);
        if (GetWindowTextLengthW(control) > 0) {
          EXPECT_EQ(font.lfHeight, wanted.lfHeight) << id;
        }
        const LONG type = GetWindowLongW(control, GWL_STYLE) & SS_TYPEMASK;
        if (ClassOf(control) == "Static" && (type == SS_ICON || type == SS_OWNERDRAW)) {
          RECT inside{};
          GetClientRect(control, &inside);
          EXPECT_EQ(inside.right, icon.cx) << id;
          EXPECT_EQ(inside.bottom, icon.cy) << id;
          if (type == SS_ICON) {
            ICONINFO info{};
            ASSERT_TRUE(GetIconInfo(
                reinterpret_cast<HICON>(SendMessageW(control, STM_GETICON, 0, 0)), &info));
            BITMAP bitmap{};
            GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
            EXPECT_EQ(bitmap.bmWidth, icon.cx) << id;
            DeleteObject(info.hbmColor);
            DeleteObject(info.hbmMask);
          }
        }
      }
      EXPECT_GE(checked, 4);
    }
    MoveToDpi(window, usual);
    EXPECT_EQ(PlacesIn(window), before);
    EXPECT_EQ(WindowSize(window).cx, size.cx);
    EXPECT_EQ(WindowSize(window).cy, size.cy);
  });
}

// The saved picture has the size of the bitmap, not that of the control.
TEST_F(ScaleTest, APictureIsSavedInTheSizeOfItsMaking) {
  ASSERT_TRUE(Open(kMenu));
  const std::string before = form().iconic1().BitmapFile();
  MoveToDpi(form().window(), static_cast<int>(form().dpi()) * 2);
  EXPECT_EQ(form().iconic1().BitmapFile(), before);
  Press(IDC_FORM2_COMMAND12);
  EXPECT_EQ(MenuBytes().find("\r\n<START ZOL>"), before.size());
}

// Fonts for which the plan of every window is larger than the work area.
TEST_F(ScaleTest, EveryControlCanBeReachedWhereThePlanIsTooLarge) {
  const RECT area = WorkArea();
  const AnotherMessageFont font(area.bottom / 9);
  VisitAll([&](const std::string& page, HWND window) {
    SCOPED_TRACE(page);
    // The window manager of the tests has frames of another size.
    const LONG spare = IsWindowVisible(window) ? 2 : 0;
    RECT place{};
    GetWindowRect(window, &place);
    ShowWindow(window, SW_SHOW);
    RunMessages();
    EXPECT_GE(place.left, area.left - spare);
    EXPECT_GE(place.top, area.top - spare);
    EXPECT_LE(place.right, area.right + spare);
    EXPECT_LE(place.bottom, area.bottom + spare);
    MINMAXINFO info{};
    SendMessageW(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_LE(info.ptMinTrackSize.x, area.right - area.left);
    EXPECT_LE(info.ptMinTrackSize.y, area.bottom - area.top);
    const LONG style = GetWindowLongW(window, GWL_STYLE);
    EXPECT_NE(style & (WS_HSCROLL | WS_VSCROLL), 0);
    int reached = 0;
    for (const HWND control : Shown(window)) {
      if ((GetWindowLongW(control, GWL_STYLE) & WS_TABSTOP) == 0 || !IsWindowEnabled(control)) {
        continue;
      }
      ++reached;
      SendMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
      RunMessages();
      ASSERT_EQ(GetFocus(), control) << GetDlgCtrlID(control);
      const RECT rect = Place(control);
      RECT client{};
      GetClientRect(window, &client);
      // The whole control is visible, or its top left part if there is no room for more.
      EXPECT_GE(rect.left, 0) << GetDlgCtrlID(control);
      EXPECT_GE(rect.top, 0) << GetDlgCtrlID(control);
      EXPECT_LT(rect.left, client.right) << GetDlgCtrlID(control);
      EXPECT_LT(rect.top, client.bottom) << GetDlgCtrlID(control);
      EXPECT_TRUE(rect.right <= client.right || rect.left == 0) << GetDlgCtrlID(control);
      EXPECT_TRUE(rect.bottom <= client.bottom || rect.top == 0) << GetDlgCtrlID(control);
    }
    EXPECT_GE(reached, 2);
    // Scroll to the other end and back.
    SendMessageW(window, WM_VSCROLL, SB_TOP, 0);
    SendMessageW(window, WM_HSCROLL, SB_LEFT, 0);
    const Places first = PlacesIn(window);
    SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
    SendMessageW(window, WM_HSCROLL, SB_RIGHT, 0);
    EXPECT_NE(PlacesIn(window), first);
    SendMessageW(window, WM_VSCROLL, SB_TOP, 0);
    SendMessageW(window, WM_HSCROLL, SB_LEFT, 0);
    EXPECT_EQ(PlacesIn(window), first);
  });
}

TEST_F(ScaleTest, AWindowThatFitsDoesNotScroll) {
  VisitAll([](const std::string& page, HWND window) {
    EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL), 0) << page;
  });
}

TEST_F(ScaleTest, AChildOpensInTheMiddleOfItsOwner) {
  VisitAll([this](const std::string& page, HWND window) {
    if (window == form().window()) {
      SetWindowPos(window, nullptr, 150, 90, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
      return;
    }
    RECT owner{};
    RECT child{};
    GetWindowRect(form().window(), &owner);
    GetWindowRect(window, &child);
    EXPECT_NEAR(child.left + child.right, owner.left + owner.right, 1) << page;
    EXPECT_NEAR(child.top + child.bottom, owner.top + owner.bottom, 1) << page;
  });
}

}  // namespace
