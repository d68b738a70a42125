#include "tests/windows/editor_process.h"

namespace {

constexpr DWORD kPatience = 30000;

// The id that MessageBoxA() gives the Static control with its text.
constexpr int kMessageTextId = 0xFFFF;

// CorvalisEdit.exe, two folders above this program.
std::string ProgramPath() {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, sizeof path);
  std::string folder = path;
  for (int up = 0; up < 3; ++up) {
    folder.resize(folder.rfind('\\'));
  }
  return folder + "\\CorvalisEdit.exe";
}

struct WindowSearch {
  DWORD process;
  HWND found;
};

BOOL CALLBACK FindWindowOf(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<WindowSearch*>(data);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != search.process || !IsWindowVisible(window)) {
    return TRUE;
  }
  const std::string name = EditorProcess::ClassOf(window);
  if (name != "Form2" && name != "#32770") {
    return TRUE;
  }
  search.found = window;
  return FALSE;
}

}  // namespace

EditorProcess::EditorProcess(const std::string& arguments, const std::string& folder,
                             const std::string& name) {
  std::string commandLine = (name.empty() ? "\"" + ProgramPath() + "\"" : name) + " " + arguments;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  CreateProcessA(ProgramPath().c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                 folder.c_str(), &startup, &process_);
}

EditorProcess::~EditorProcess() {
  TerminateProcess(process_.hProcess, 99);
  WaitForSingleObject(process_.hProcess, kPatience);
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

HWND EditorProcess::WaitForWindow() const {
  for (DWORD waited = 0; waited < kPatience; waited += 20) {
    WindowSearch search{process_.dwProcessId, nullptr};
    EnumWindows(FindWindowOf, reinterpret_cast<LPARAM>(&search));
    if (search.found != nullptr) {
      return search.found;
    }
    if (WaitForSingleObject(process_.hProcess, 20) != WAIT_TIMEOUT) {
      break;
    }
  }
  return nullptr;
}

DWORD EditorProcess::WaitForEnd() const {
  WaitForSingleObject(process_.hProcess, kPatience);
  DWORD code = kStillRuns;
  GetExitCodeProcess(process_.hProcess, &code);
  return code;
}

std::string EditorProcess::ClassOf(HWND window) {
  char name[64] = "";
  GetClassNameA(window, name, sizeof name);
  return name;
}

std::string EditorProcess::TextOf(HWND window) {
  // Another process' control has to be asked by a message.
  char text[2048] = "";
  SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
  return text;
}

std::string EditorProcess::MessageOf(HWND messageBox) {
  return TextOf(GetDlgItem(messageBox, kMessageTextId));
}
