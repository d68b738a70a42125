#include "tests/windows/window_tour.h"

#include <utility>

#include "tests/windows/related_window.h"

using testing_menus::DirectoryMenu;
using testing_menus::ItemLine;
using testing_menus::UserDefinedMenu;

void WindowTour::VisitAll(const Visit& visit) {
  ASSERT_TRUE(Open(UserDefinedMenu({ItemLine("Notepad", "C:\\windows\\notepad.exe")})));
  SelectRow(0);
  visit("items", form().window());

  Press(IDC_FORM2_COMMAND2);
  VisitChild("target of a new entry", "Form3", 0, visit);
  SendMessageA(GetDlgItem(Find("Form3"), IDC_FORM3_TEXT1), WM_SETTEXT, 0,
               reinterpret_cast<LPARAM>("C:\\windows\\notepad.exe"));
  SendMessageA(GetDlgItem(Find("Form3"), IDC_FORM3_COMMAND1), BM_CLICK, 0, 0);
  VisitChild("name of a new entry", "Form3", IDC_FORM3_COMMAND2, visit);

  Press(IDC_FORM2_COMMAND3);
  VisitChild("target of an entry", "Form3", 0, visit);
  SendMessageA(GetDlgItem(Find("Form3"), IDC_FORM3_COMMAND1), BM_CLICK, 0, 0);
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

void WindowTour::VisitChild(const std::string& page, const std::string& windowClass,
                            int cancelButton, const Visit& visit) {
  RunMessages();
  const HWND window = Find(windowClass);
  ASSERT_NE(window, nullptr) << page;
  visit(page, window);
  if (cancelButton != 0) {
    SendMessageA(GetDlgItem(window, cancelButton), BM_CLICK, 0, 0);
    RunMessages();
    ASSERT_EQ(Find(windowClass), nullptr) << page;
  }
}

std::vector<HWND> WindowTour::Shown(HWND window) {
  std::vector<HWND> shown;
  for (HWND control = RelatedWindow(window, GW_CHILD); control != nullptr;
       control = RelatedWindow(control, GW_HWNDNEXT)) {
    if ((GetWindowLongA(control, GWL_STYLE) & WS_VISIBLE) != 0) {
      shown.push_back(control);
    }
  }
  // About has the fewest. A test of no controls would always pass.
  EXPECT_GE(shown.size(), 4U);
  return shown;
}

std::string WindowTour::Class(HWND control) {
  char name[32] = "";
  GetClassNameA(control, name, sizeof name);
  return name;
}

bool WindowTour::IsFrame(HWND control) {
  return Class(control) == "Button" &&
         (GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

RECT WindowTour::Place(HWND control) {
  RECT rect{};
  GetWindowRect(control, &rect);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

HWND WindowTour::Find(const std::string& windowClass) {
  std::pair<std::string, HWND> search{windowClass, nullptr};
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM data) -> BOOL {
        auto& [name, found] = *reinterpret_cast<std::pair<std::string, HWND>*>(data);
        if (Class(window) == name) {
          found = window;
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.second;
}
