#include "win32/window_text.h"

namespace win32 {

std::string WindowText(HWND window) {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)), '\0');
  // The length asked for above may count more than there is.
  const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void SetText(HWND window, const std::string& text) { SetWindowTextA(window, text.c_str()); }

std::string ListText(HWND list, int row) {
  const LRESULT length = SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0);
  if (length == LB_ERR) {
    return {};
  }
  std::string text(static_cast<std::size_t>(length), '\0');
  const LRESULT copied = SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(row),
                                      reinterpret_cast<LPARAM>(text.data()));
  text.resize(copied == LB_ERR ? 0 : static_cast<std::size_t>(copied));
  return text;
}

std::string ErrorText(DWORD error) {
  char text[512];
  DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                error, 0, text, sizeof text, nullptr);
  while (length > 0 && (text[length - 1] == '\r' || text[length - 1] == '\n' ||
                        text[length - 1] == ' ' || text[length - 1] == '.')) {
    --length;
  }
  return length > 0 ? std::string(text, length) : "Windows error " + std::to_string(error);
}

}  // namespace win32
