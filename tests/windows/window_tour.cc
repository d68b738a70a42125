#include "tests/windows/window_tour.h"

using namespace testing_menus;

void WindowTour::VisitAll(const Visit& visit) {
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("Notepad", "C:\\windows\\notepad.exe")})));
  SelectRow(0);
  visit("items", form().window());

  Press(IDC_FORM2_COMMAND2);
  VisitChild("target of a new entry", "Form3", 0, visit);
  SendMessageA(GetDlgItem(ThreadWindow("Form3"), IDC_FORM3_TEXT1), WM_SETTEXT, 0,
               reinterpret_cast<LPARAM>("C:\\windows\\notepad.exe"));
  SendMessageA(GetDlgItem(ThreadWindow("Form3"), IDC_FORM3_COMMAND1), BM_CLICK, 0, 0);
  VisitChild("name of a new entry", "Form3", IDC_FORM3_COMMAND2, visit);

  Press(IDC_FORM2_COMMAND3);
  VisitChild("target of an entry", "Form3", 0, visit);
  SendMessageA(GetDlgItem(ThreadWindow("Form3"), IDC_FORM3_COMMAND1), BM_CLICK, 0, 0);
  VisitChild("name of an entry", "Form3", IDC_FORM3_COMMAND2, visit);

  Press(IDC_FORM2_COMMAND11);
  VisitChild("icon of an entry", "Form4", IDC_FORM4_COMMAND3, visit);

  SelectTab(1);
  visit("appearance", form().window());
  SelectTab(2);
  visit("about", form().window());
  ASSERT_TRUE(Open(DirectoryMenu("\"C:\\windows\\\",\"*.*\",1,0,0\r\n")));
  visit("directory", form().window());
}

void WindowTour::VisitChild(const std::string& page, const char* windowClass, int cancelButton,
                            const Visit& visit) {
  RunMessages();
  const HWND window = ThreadWindow(windowClass);
  ASSERT_NE(window, nullptr) << page;
  visit(page, window);
  if (cancelButton != 0) {
    SendMessageA(GetDlgItem(window, cancelButton), BM_CLICK, 0, 0);
    RunMessages();
    ASSERT_EQ(ThreadWindow(windowClass), nullptr) << page;
  }
}

std::vector<HWND> WindowTour::Shown(HWND window) {
  std::vector<HWND> shown;
  for (const HWND control : ControlsOf(window)) {
    if ((GetWindowLongA(control, GWL_STYLE) & WS_VISIBLE) != 0) {
      shown.push_back(control);
    }
  }
  // About has the fewest. A test of no controls would always pass.
  EXPECT_GE(shown.size(), 4U);
  return shown;
}

bool WindowTour::IsFrame(HWND control) {
  return ClassOf(control) == "Button" &&
         (GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

RECT WindowTour::Place(HWND control) {
  RECT rect{};
  GetWindowRect(control, &rect);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

void WindowTour::Enlarge(HWND window, int width, int height) {
  RECT rect{};
  GetWindowRect(window, &rect);
  SetWindowPos(window, nullptr, 0, 0, rect.right - rect.left + width,
               rect.bottom - rect.top + height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  RunMessages();
}
