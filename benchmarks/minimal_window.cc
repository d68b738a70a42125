// The smallest program that shows a menu: a window with a list that has a row for each
// entry. The editor's start is compared with its start.
#include <windows.h>

#include "benchmarks/fill_list.h"

namespace {

constexpr int kList = 1;

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) {
    PostQuitMessage(0);
    return 0;
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
  WNDCLASSA type{};
  type.lpfnWndProc = WindowProc;
  type.hInstance = instance;
  type.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  type.lpszClassName = "MinimalWindow";
  RegisterClassA(&type);
  const HWND window =
      CreateWindowA(type.lpszClassName, "Minimal Window", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                    CW_USEDEFAULT, 500, 400, nullptr, nullptr, instance, nullptr);
  const HWND list =
      CreateWindowA("LISTBOX", "", WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_BORDER, 10, 10, 460, 340,
                    window, reinterpret_cast<HMENU>(INT_PTR{kList}), instance, nullptr);
  bench::FillList(list);
  ShowWindow(window, show);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return 0;
}
