#include "win32/message_box.h"

namespace win32 {

void ShowError(HWND owner, const std::string& text) {
  MessageBoxA(owner, text.c_str(), "Error!", MB_OK | MB_ICONERROR);
}

void ShowError(HWND owner, const std::wstring& text) {
  MessageBoxW(owner, text.c_str(), L"Error!", MB_OK | MB_ICONERROR);
}

bool AskYesOrNo(HWND owner, const std::string& text) {
  return MessageBoxA(owner, text.c_str(), "Query?", MB_YESNO | MB_ICONQUESTION) == IDYES;
}

void ShowInformation(HWND owner, const std::string& text, const std::string& title) {
  MessageBoxA(owner, text.c_str(), title.c_str(), MB_OK | MB_ICONINFORMATION);
}

}  // namespace win32
