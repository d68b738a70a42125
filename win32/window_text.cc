#include "win32/window_text.h"

#include <iterator>

namespace win32 {

std::wstring WindowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  // GetWindowTextLengthW() may return more than the length of the text.
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void SetText(HWND window, const std::wstring& text) { SetWindowTextW(window, text.c_str()); }

std::wstring ListText(HWND list, int row) {
  const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0);
  if (length == LB_ERR) {
    return {};
  }
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  const LRESULT copied = SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(row),
                                      reinterpret_cast<LPARAM>(text.data()));
  text.resize(copied == LB_ERR ? 0 : static_cast<std::size_t>(copied));
  return text;
}

std::wstring ErrorText(DWORD error) {
  wchar_t text[512];
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  while (length > 0 && (text[length - 1] == L'\r' || text[length - 1] == L'\n' ||
                        text[length - 1] == L' ' || text[length - 1] == L'.')) {
    --length;
  }
  return length > 0 ? std::wstring(text, length) : L"Windows error " + std::to_wstring(error);
}

}  // namespace win32
