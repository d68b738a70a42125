#include "tests/windows/outside/program.h"

#include <iterator>

#include "tests/windows/outside/host.h"

namespace outside {
namespace {

constexpr const char* kDialogClass = "#32770";

struct Search {
  DWORD process;
  std::string windowClass;  // empty: any form or dialog box
  HWND found;
};

bool IsWanted(const std::string& windowClass, const std::string& wanted) {
  return wanted.empty() ? windowClass == "Form2" || windowClass == kDialogClass
                        : windowClass == wanted;
}

BOOL CALLBACK Look(HWND window, LPARAM data) {
  Search& search = *reinterpret_cast<Search*>(data);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process == search.process && IsWindowVisible(window) &&
      IsWanted(ClassOf(window), search.windowClass)) {
    search.found = window;
    return FALSE;
  }
  return TRUE;
}

// With a timeout, so that a hanging window does not hang the test.
LRESULT Send(HWND window, UINT message, WPARAM wide, LPARAM data) {
  DWORD_PTR result = 0;
  SendMessageTimeoutA(window, message, wide, data, SMTO_NORMAL, kPatience, &result);
  return static_cast<LRESULT>(result);
}

}  // namespace

bool WaitUntil(const std::function<bool()>& condition, DWORD milliseconds) {
  const ULONGLONG end = GetTickCount64() + milliseconds;
  while (!condition()) {
    if (GetTickCount64() > end) {
      return false;
    }
    Sleep(20);
  }
  return true;
}

std::string EditorPath() { return BuildFolder() + "\\windows\\CorvalisEdit.exe"; }

Program::Program(const CommandLine& line, const std::string& folder) {
  std::string commandLine =
      (line.name.empty() ? '"' + EditorPath() + '"' : line.name) + ' ' + line.arguments;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  CreateProcessA((line.copy.empty() ? EditorPath() : line.copy).c_str(), commandLine.data(),
                 nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(), &startup, &process_);
}

Program::Program(const std::wstring& menuPath, const std::wstring& folder) {
  const std::string editor = EditorPath();
  std::wstring commandLine =
      L"\"" + std::wstring(editor.begin(), editor.end()) + L"\" \"" + menuPath + L"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(),
                 &startup, &process_);
}

Program::~Program() {
  if (Started()) {
    Kill();
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
}

HWND Program::Find(const std::string& windowClass) const {
  Search search{process_.dwProcessId, windowClass, nullptr};
  EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND Program::WaitFor(const std::string& windowClass) const {
  HWND window = nullptr;
  WaitUntil([&] { return (window = Find(windowClass)) != nullptr || WaitForExit(0); });
  return window;
}

bool Program::WaitUntilGone(const std::string& windowClass) const {
  return WaitUntil([&] { return Find(windowClass) == nullptr; });
}

HWND Program::WaitForFirst() const { return WaitFor(""); }

bool Program::IsDialog(HWND window) { return ClassOf(window) == kDialogClass; }

std::optional<DWORD> Program::WaitForExit(DWORD milliseconds) const {
  DWORD code = 0;
  if (WaitForSingleObject(process_.hProcess, milliseconds) != WAIT_OBJECT_0 ||
      !GetExitCodeProcess(process_.hProcess, &code)) {
    return std::nullopt;
  }
  return code;
}

void Program::Kill() {
  if (!WaitForExit(0)) {
    TerminateProcess(process_.hProcess, 0xDEAD);
    WaitForExit();
  }
}

void Click(HWND window, int buttonId) {
  PostMessageA(GetDlgItem(window, buttonId), BM_CLICK, 0, 0);
}

bool Press(HWND window, int buttonId) {
  DWORD_PTR result = 0;
  return SendMessageTimeoutA(GetDlgItem(window, buttonId), BM_CLICK, 0, 0, SMTO_NORMAL, kPatience,
                             &result) != 0;
}

void Type(HWND window, int editId, const std::string& text) {
  Send(GetDlgItem(window, editId), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

std::string Text(HWND window) {
  char text[4096] = "";
  Send(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
  return text;
}

std::string Text(HWND window, int id) { return Text(GetDlgItem(window, id)); }

// Only the wide function reads the text of a row from another process.
std::vector<std::string> ListRows(HWND list) {
  std::vector<std::string> rows;
  const LRESULT count = Send(list, LB_GETCOUNT, 0, 0);
  for (LRESULT row = 0; row < count; ++row) {
    wchar_t wide[4096] = L"";
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(wide));
    char text[4096] = "";
    WideCharToMultiByte(CP_ACP, 0, wide, -1, text, sizeof text, nullptr, nullptr);
    rows.push_back(text);
  }
  return rows;
}

int SelectedRow(HWND list) { return static_cast<int>(Send(list, LB_GETCURSEL, 0, 0)); }

void SelectRow(HWND list, int row) {
  Send(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
  Send(GetParent(list), WM_COMMAND,
       MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(list)), LBN_SELCHANGE),
       reinterpret_cast<LPARAM>(list));
}

bool WaitUntilIdle(HWND window) {
  DWORD_PTR result = 0;
  return SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &result) != 0;
}

void CloseWindow(HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0); }

}  // namespace outside
