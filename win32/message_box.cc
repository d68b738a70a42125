#include "win32/message_box.h"

namespace win32 {

void ShowError(HWND owner, const std::wstring& text) {
  MessageBoxW(owner, text.c_str(), L"Error!", MB_OK | MB_ICONERROR);
}

bool AskYesOrNo(HWND owner, const std::wstring& text) {
  return MessageBoxW(owner, text.c_str(), L"Query?", MB_YESNO | MB_ICONQUESTION) == IDYES;
}

void ShowInformation(HWND owner, const std::wstring& text, const std::wstring& title) {
  MessageBoxW(owner, text.c_str(), title.c_str(), MB_OK | MB_ICONINFORMATION);
}

}  // namespace win32
