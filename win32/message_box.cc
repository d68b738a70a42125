#include "win32/message_box.h"

namespace win32 {
namespace {

// A box with a hidden owner has no button in the task bar, so nobody would find it
// behind other windows.
HWND IfVisible(HWND owner) { return IsWindowVisible(owner) ? owner : nullptr; }

}  // namespace

void ShowError(HWND owner, const std::wstring& text) {
  MessageBoxW(IfVisible(owner), text.c_str(), L"Error!", MB_OK | MB_ICONERROR);
}

bool AskYesOrNo(HWND owner, const std::wstring& text) {
  return MessageBoxW(IfVisible(owner), text.c_str(), L"Query?", MB_YESNO | MB_ICONQUESTION) ==
         IDYES;
}

void ShowInformation(HWND owner, const std::wstring& text, const std::wstring& title) {
  MessageBoxW(IfVisible(owner), text.c_str(), title.c_str(), MB_OK | MB_ICONINFORMATION);
}

}  // namespace win32
