#include "win32/layout.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <list>
#include <map>

#include "tests/windows/message_watch.h"
#include "tests/windows/window_tour.h"
#include "win32/scale.h"

namespace {

// The DPI and the colours of this run; tests/tools/scaling_test.sh runs several.
int ExpectedDpi() {
  const char* dpi = std::getenv("CORVALIS_TEST_DPI");
  return dpi == nullptr ? 96 : std::atoi(dpi);
}

// The relative luminance of a colour, from 0 to 1.
double Luminance(COLORREF colour) {
  const auto part = [](BYTE value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(GetRValue(colour)) + 0.7152 * part(GetGValue(colour)) +
         0.0722 * part(GetBValue(colour));
}

// The contrast ratio of two colours, from 1 to 21.
double Contrast(COLORREF one, COLORREF other) {
  const double a = Luminance(one) + 0.05;
  const double b = Luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

SIZE TextSize(HWND control, const std::string& text, int width) {
  const win32::WindowDc dc(control);
  const win32::SelectedObject font(
      dc.get(), reinterpret_cast<HGDIOBJ>(SendMessageA(control, WM_GETFONT, 0, 0)));
  RECT rect{0, 0, width, 0};
  DrawTextA(dc.get(), text.c_str(), static_cast<int>(text.size()), &rect,
            DT_CALCRECT | (width == 0 ? DT_SINGLELINE : DT_WORDBREAK));
  return {rect.right, rect.bottom};
}

}  // namespace

// Tests the layout of all pages at the present DPI and with the present colours.
class LayoutTest : public WindowTour {
 protected:
  static int Height(HWND control) {
    const RECT rect = Place(control);
    return rect.bottom - rect.top;
  }

  static int Scaled(int pixels) { return MulDiv(pixels, ExpectedDpi(), 96); }

  // Expects that every control is inside the window and that none overlaps another.
  static void ExpectTidy(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    const std::vector<HWND> controls = Shown(window);
    for (const HWND control : controls) {
      const RECT rect = Place(control);
      const int id = GetDlgCtrlID(control);
      EXPECT_LT(rect.left, rect.right) << id;
      EXPECT_LT(rect.top, rect.bottom) << id;
      EXPECT_GE(rect.left, 0) << id;
      EXPECT_GE(rect.top, 0) << id;
      // A Static control makes a line from edge to edge a little longer.
      const LONG spare = id == IDC_FORM3_LINE ? 2 : 0;
      EXPECT_LE(rect.right, client.right + spare) << id;
      EXPECT_LE(rect.bottom, client.bottom) << id;
      for (const HWND other : controls) {
        const RECT otherRect = Place(other);
        RECT common{};
        const bool enclose = IsFrame(control) || IsFrame(other) || id == IDC_FORM2_SSTAB1 ||
                             GetDlgCtrlID(other) == IDC_FORM2_SSTAB1;
        if (control < other && !enclose) {
          EXPECT_FALSE(IntersectRect(&common, &rect, &otherRect))
              << id << " and " << GetDlgCtrlID(other);
        }
      }
    }
  }
};

TEST_F(LayoutTest, RunsWithTheColoursThatAreAskedFor) {
  const char* scheme = std::getenv("CORVALIS_TEST_SCHEME");
  const bool isContrast = scheme != nullptr && std::string(scheme) == "contrast";
  EXPECT_EQ(GetSysColor(COLOR_BTNFACE) == RGB(0, 0, 0), isContrast);
}

TEST_F(LayoutTest, RunsAtTheDpiThatIsAskedFor) {
  VisitAll([](const std::string& page, HWND window) {
    EXPECT_EQ(win32::DpiOf(window), static_cast<UINT>(ExpectedDpi())) << page;
  });
}

TEST_F(LayoutTest, RunsOnTheScreenThatIsAskedFor) {
  const char* screen = std::getenv("CORVALIS_SCREEN");
  const std::string size = std::to_string(GetSystemMetrics(SM_CXSCREEN)) + "x" +
                           std::to_string(GetSystemMetrics(SM_CYSCREEN));
  EXPECT_EQ(size, screen == nullptr ? size : screen);
}

TEST_F(LayoutTest, NoControlOverlapsAnother) {
  VisitAll([](const std::string& page, HWND window) {
    SCOPED_TRACE(page);
    ExpectTidy(window);
    Enlarge(window, 400, 300);
    ExpectTidy(window);
    Enlarge(window, -400, -300);
  });
}

TEST_F(LayoutTest, EveryTextHasRoom) {
  VisitAll([](const std::string& page, HWND window) {
    SCOPED_TRACE(page);
    for (const HWND control : Shown(window)) {
      const std::string text = WindowBytes(control);
      const std::string name = ClassOf(control);
      if (text.empty()) {
        continue;
      }
      const RECT rect = Place(control);
      const int width = rect.right - rect.left;
      if (name == "Edit") {
        // A text may be wider than its box, but not higher.
        RECT inside{};
        GetClientRect(control, &inside);
        EXPECT_GE(inside.bottom, TextSize(control, text, 0).cy) << text;
      } else if (name == "Button") {
        const bool isCheckBox =
            (GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK) == BS_AUTOCHECKBOX;
        const SIZE size = TextSize(control, text, 0);
        EXPECT_GE(width, size.cx + Scaled(isCheckBox ? 20 : 10)) << text;
        EXPECT_GE(rect.bottom - rect.top, size.cy) << text;
      } else {
        const SIZE size = TextSize(control, text, width);
        EXPECT_GE(width, size.cx) << text;
        EXPECT_GE(rect.bottom - rect.top, size.cy) << text;
      }
    }
  });
}

TEST_F(LayoutTest, BoxesScrollSideways) {
  VisitAll([](const std::string& page, HWND window) {
    for (const HWND control : Shown(window)) {
      if (ClassOf(control) == "Edit") {
        EXPECT_NE(GetWindowLongW(control, GWL_STYLE) & ES_AUTOHSCROLL, 0)
            << page << ' ' << GetDlgCtrlID(control);
      }
    }
  });
}

// The edges of the window that the controls keep their distance to. A control that keeps to
// neither of two opposite edges stays in the middle between them.
struct Edges {
  std::string edges;  // of "left top right bottom"
  std::vector<int> controls;
};

const Edges kEdges[] = {
    {"left top",
     {IDC_FORM2_IMAGE4, IDC_FORM2_LABEL13, IDC_FORM2_LABEL14, IDC_FORM2_LIST1_LABEL,
      IDC_FORM2_IMAGE5, IDC_FORM2_LABEL15, IDC_FORM2_DRIVE1_LABEL, IDC_FORM2_DIR1_LABEL,
      IDC_FORM2_IMAGE3, IDC_FORM2_TEXT3_LABEL, IDC_FORM2_PICTURE1, IDC_FORM2_PICTURE2,
      IDC_FORM2_LABEL7, IDC_FORM2_CHECK1}},
    {"top right",
     {IDC_FORM2_COMMAND13, IDC_FORM2_COMMAND2, IDC_FORM2_COMMAND3, IDC_FORM2_COMMAND7,
      IDC_FORM2_COMMAND4, IDC_FORM2_COMMAND8, IDC_FORM2_COMMAND9, IDC_FORM2_COMMAND11,
      IDC_FORM2_COMMAND14, IDC_FORM2_LABEL12, IDC_FORM2_TEXT8, IDC_FORM2_CHECK2, IDC_FORM2_CHECK3,
      IDC_FORM2_CHECK4, IDC_FORM2_COMMAND6, IDC_FORM2_COMMAND10}},
    {"left top right",
     {IDC_FORM2_DRIVE1, IDC_FORM2_FRAME2, IDC_FORM2_TEXT3, IDC_FORM2_FRAME1, IDC_FORM2_HSCROLL1,
      IDC_FORM2_LABEL8}},
    {"left bottom", {IDC_FORM2_ICONIC1, IDC_FORM2_ICONIC1_LABEL, IDC_FORM2_LABEL11}},
    {"left right bottom", {IDC_FORM2_TEXT7}},
    {"right bottom", {IDC_FORM2_COMMAND5, IDC_FORM2_COMMAND12, IDC_FORM2_COMMAND15}},
    {"left top right bottom",
     {IDC_FORM2_SSTAB1, IDC_FORM2_FRAME3, IDC_FORM2_LIST1, IDC_FORM2_FRAME4, IDC_FORM2_DIR1}},
    {"", {IDC_FORM2_IMAGE1, IDC_FORM2_LABEL5}},
};

TEST_F(LayoutTest, EveryControlStaysAtItsEdges) {
  constexpr int kWider = 120;
  constexpr int kHigher = 80;
  ASSERT_TRUE(Open(testing_menus::UserDefinedMenu({})));
  const HWND window = form().window();
  std::map<int, RECT> before;
  for (const HWND control : ControlsOf(window)) {
    before[GetDlgCtrlID(control)] = Place(control);
  }
  Enlarge(window, kWider, kHigher);
  std::size_t expected = 0;
  for (const Edges& edges : kEdges) {
    expected += edges.controls.size();
    // The distances that the first and the second of two opposite edges move.
    const auto first = [](bool toFirst, bool toSecond, int growth) {
      return toFirst ? 0 : toSecond ? growth : growth / 2;
    };
    const auto has = [&](const char* edge) { return edges.edges.find(edge) != std::string::npos; };
    const bool left = has("left"), top = has("top"), right = has("right"), bottom = has("bottom");
    const auto second = [](bool toFirst, bool toSecond, int growth) {
      return toSecond ? growth : toFirst ? 0 : growth / 2;
    };
    for (const int id : edges.controls) {
      SCOPED_TRACE(id);
      const RECT place = Place(Control(id));
      const RECT& old = before[id];
      EXPECT_EQ(place.left - old.left, first(left, right, kWider));
      EXPECT_EQ(place.right - old.right, second(left, right, kWider));
      EXPECT_EQ(place.top - old.top, first(top, bottom, kHigher));
      EXPECT_EQ(place.bottom - old.bottom, second(top, bottom, kHigher));
    }
  }
  EXPECT_EQ(before.size(), expected) << "a control has no edges here";
}

// A control that does not move is not painted, and the window does not paint under its
// controls.
TEST_F(LayoutTest, DraggingTheBorderPaintsNoMoreThanItHasTo) {
  ASSERT_TRUE(Open(testing_menus::UserDefinedMenu({})));
  EXPECT_NE(GetWindowLongW(form().window(), GWL_STYLE) & WS_CLIPCHILDREN, 0);
  EXPECT_NE(GetWindowLongW(Control(IDC_FORM2_SSTAB1), GWL_STYLE) & WS_CLIPSIBLINGS, 0);
  ShowWindow(form().window(), SW_SHOW);
  RunMessages();
  int paints = 0;
  const HWND still[] = {Control(IDC_FORM2_LABEL13), Control(IDC_FORM2_LABEL14),
                        Control(IDC_FORM2_LIST1_LABEL)};
  std::list<MessageWatch> watches;
  for (const HWND control : still) {
    watches.emplace_back(control, [&](UINT message, WPARAM) { paints += message == WM_PAINT; });
  }
  Enlarge(form().window(), 40, 30);
  EXPECT_EQ(paints, 0);
  InvalidateRect(still[0], nullptr, TRUE);
  RunMessages();
  EXPECT_EQ(paints, 1);
}

TEST_F(LayoutTest, BoxesOfOneLineFitIt) {
  VisitAll([](const std::string& page, HWND window) {
    for (const HWND control : Shown(window)) {
      if (ClassOf(control) == "Edit" && GetDlgCtrlID(control) != IDC_FORM2_TEXT3) {
        const int line = TextSize(control, "Xg", 0).cy;
        EXPECT_GE(Height(control), line + 6) << page << ' ' << GetDlgCtrlID(control);
        EXPECT_LE(Height(control), line * 5 / 3) << page << ' ' << GetDlgCtrlID(control);
      }
    }
  });
}

TEST_F(LayoutTest, TheDriveListIsAsHighAsTheBoxBesideIt) {
  VisitAll([this](const std::string& page, HWND window) {
    if (page == "directory") {
      EXPECT_EQ(Height(Control(IDC_FORM2_DRIVE1)), Height(Control(IDC_FORM2_TEXT8)));
      Enlarge(window, 100, 100);
      EXPECT_EQ(Height(Control(IDC_FORM2_DRIVE1)), Height(Control(IDC_FORM2_TEXT8)));
    }
  });
}

COLORREF PaintedFace(HWND tabs, const RECT& page) {
  const win32::WindowDc screen(tabs);
  const win32::UniqueMemoryDc dc(CreateCompatibleDC(screen.get()));
  const win32::UniqueBitmap bitmap(CreateCompatibleBitmap(screen.get(), page.right, page.bottom));
  const win32::SelectedObject selected(dc.get(), bitmap.get());
  const RECT all{0, 0, page.right, page.bottom};
  FillRect(dc.get(), &all, GetSysColorBrush(COLOR_BTNFACE));
  SendMessageW(tabs, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc.get()), PRF_CLIENT);
  return GetPixel(dc.get(), page.right - 8, page.bottom - 8);
}

TEST_F(LayoutTest, TheTabControlEnclosesItsPages) {
  VisitAll([this](const std::string& page, HWND window) {
    if (window != form().window()) {
      return;
    }
    const HWND tabs = Control(IDC_FORM2_SSTAB1);
    RECT face{};
    GetClientRect(tabs, &face);
    SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&face));
    const COLORREF colour = PaintedFace(tabs, face);
    OffsetRect(&face, Place(tabs).left, Place(tabs).top);
    int onThePage = 0;
    for (const HWND control : Shown(window)) {
      const int id = GetDlgCtrlID(control);
      const RECT rect = Place(control);
      if (id == IDC_FORM2_SSTAB1) {
        EXPECT_EQ(GetWindow(control, GW_HWNDNEXT), nullptr) << "in front of what lies on it";
      } else if (id == IDC_FORM2_COMMAND5) {
        EXPECT_GT(rect.top, Place(tabs).bottom) << page;
      } else if (!(IsFrame(control) && GetWindowTextLengthW(control) == 0)) {
        ++onThePage;
        RECT common{};
        IntersectRect(&common, &rect, &face);
        EXPECT_TRUE(EqualRect(&common, &rect)) << page << ' ' << id;
        if (const std::string name = ClassOf(control); name == "Static" || name == "Button") {
          const win32::WindowDc dc(control);
          const LRESULT brush =
              SendMessageW(window, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.get()),
                           reinterpret_cast<LPARAM>(control));
          LOGBRUSH described{};
          GetObjectW(reinterpret_cast<HGDIOBJ>(brush), sizeof described, &described);
          EXPECT_EQ(described.lbColor, colour) << page << ' ' << id;
          EXPECT_EQ(GetBkColor(dc.get()), colour) << page << ' ' << id;
        }
      }
    }
    EXPECT_GE(onThePage, 2) << page;
  });
}

// In a scheme of high contrast, no fixed colour is mixed with the colours of the scheme.
TEST_F(LayoutTest, TextsStandOutFromTheirBackground) {
  VisitAll([](const std::string& page, HWND window) {
    for (const HWND control : Shown(window)) {
      const std::string name = ClassOf(control);
      const UINT message = name == "Edit"      ? WM_CTLCOLOREDIT
                           : name == "ListBox" ? WM_CTLCOLORLISTBOX
                           : name == "Button"  ? WM_CTLCOLORBTN
                                               : WM_CTLCOLORSTATIC;
      const win32::WindowDc dc(control);
      SendMessageA(window, message, reinterpret_cast<WPARAM>(dc.get()),
                   reinterpret_cast<LPARAM>(control));
      EXPECT_GE(Contrast(GetTextColor(dc.get()), GetBkColor(dc.get())), 4.5)
          << page << ' ' << GetDlgCtrlID(control);
    }
  });
}

// Windows sends the message to the window alone, which has to pass it to its controls and to
// be drawn anew.
TEST_F(LayoutTest, NewColoursReachEveryControl) {
  VisitAll([](const std::string& page, HWND window) {
    ShowWindow(window, SW_SHOWNA);
    RunMessages();
    int told = 0;
    const std::vector<HWND> controls = Shown(window);
    std::list<MessageWatch> watches;
    for (const HWND control : controls) {
      watches.emplace_back(control,
                           [&](UINT message, WPARAM) { told += message == WM_SYSCOLORCHANGE; });
    }
    SendMessageA(window, WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_EQ(told, static_cast<int>(controls.size())) << page;
    EXPECT_TRUE(GetUpdateRect(window, nullptr, FALSE)) << page;
  });
}
