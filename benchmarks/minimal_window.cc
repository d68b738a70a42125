// The least program that shows what a file holds: a window with a list that has
// a row for each line behind the marker. The editor's start is compared with
// its start.
#include <windows.h>

#include <string>

namespace {

constexpr int kList = 1;

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) {
    PostQuitMessage(0);
    return 0;
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

// What stands on the command line between the last two quotes.
std::string FilePath() {
  const std::string line = GetCommandLineA();
  const std::size_t end = line.rfind('"');
  const std::size_t begin = line.rfind('"', end - 1) + 1;
  return line.substr(begin, end - begin);
}

std::string ReadFileWhole(const std::string& path) {
  const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return {};
  }
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD read = 0;
  ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
  CloseHandle(file);
  bytes.resize(read);
  return bytes;
}

// The rows are the lines behind the type line and the appearance line.
void FillList(HWND list) {
  const std::string bytes = ReadFileWhole(FilePath());
  const auto behindLine = [&bytes](std::size_t from) { return bytes.find("\r\n", from) + 2; };
  std::size_t begin = bytes.find("\r\n<START ZOL>\r\n") + 2;
  for (int skipped = 0; skipped < 3; ++skipped) {
    begin = behindLine(begin);
  }
  SendMessageA(list, WM_SETREDRAW, FALSE, 0);
  while (begin < bytes.size()) {
    const std::size_t end = behindLine(begin);
    const std::string line = bytes.substr(begin, end - 2 - begin);
    SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    begin = end;
  }
  SendMessageA(list, WM_SETREDRAW, TRUE, 0);
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
  FillList(list);
  ShowWindow(window, show);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return 0;
}
