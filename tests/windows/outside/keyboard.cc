#include "tests/windows/outside/keyboard.h"

#include "tests/windows/outside/program.h"

namespace outside {
namespace {

INPUT KeyInput(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC));
  // The navigation keys. Those of the number pad have the same codes without this flag.
  const bool isApart = key >= VK_PRIOR && key <= VK_DOWN;
  input.ki.dwFlags = flags | (isApart ? KEYEVENTF_EXTENDEDKEY : 0U);
  return input;
}

}  // namespace

void PressKey(WORD key, const std::vector<WORD>& held) {
  std::vector<INPUT> inputs;
  for (const WORD other : held) {
    inputs.push_back(KeyInput(other, 0));
  }
  inputs.push_back(KeyInput(key, 0));
  inputs.push_back(KeyInput(key, KEYEVENTF_KEYUP));
  for (const WORD other : held) {
    inputs.push_back(KeyInput(other, KEYEVENTF_KEYUP));
  }
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void TypeText(const std::string& text) {
  for (const char letter : text) {
    const SHORT key = VkKeyScanA(letter);
    constexpr SHORT kWithShift = 0x100;
    PressKey(static_cast<WORD>(key & 0xFF),
             (key & kWithShift) != 0 ? std::vector<WORD>{VK_SHIFT} : std::vector<WORD>{});
  }
}

void TypeCharacters(const std::wstring& text) {
  for (const wchar_t half : text) {
    INPUT inputs[2]{};
    for (INPUT& input : inputs) {
      input.type = INPUT_KEYBOARD;
      input.ki.wScan = half;
      input.ki.dwFlags = KEYEVENTF_UNICODE;
    }
    inputs[1].ki.dwFlags |= KEYEVENTF_KEYUP;
    SendInput(2, inputs, sizeof(INPUT));
  }
}

HWND FocusIn(HWND window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
  return info.hwndFocus;
}

bool WaitForFront(HWND window) {
  return WaitUntil([=] { return GetForegroundWindow() == window && FocusIn(window) != nullptr; });
}

}  // namespace outside
