#include "tests/windows/dialog_answers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "tests/windows/related_window.h"
#include "win32/window_text.h"

namespace {

// The id of the Static control with the text of a message box.
constexpr int kMessageTextId = 0xFFFF;

// Their captions are in the user's language.
std::string ButtonName(int id) {
  return id == IDOK    ? "OK"
         : id == IDYES ? "Yes"
         : id == IDNO  ? "No"
                       : "button " + std::to_string(id);
}

// True for a visible window of the program.
bool IsShownForm(HWND window) {
  return IsWindowVisible(window) && ClassOf(window).starts_with("Form");
}

}  // namespace

DialogAnswers* DialogAnswers::current_ = nullptr;

DialogAnswers::DialogAnswers()
    : hook_(SetWindowsHookExA(WH_CBT, Hook, nullptr, GetCurrentThreadId())) {
  current_ = this;
}

DialogAnswers::~DialogAnswers() {
  UnhookWindowsHookEx(hook_);
  current_ = nullptr;
  EXPECT_TRUE(answers_.empty()) << answers_.size() << " message boxes did not come";
  EXPECT_TRUE(drives_.empty()) << drives_.size() << " dialogs did not come";
}

void DialogAnswers::Answer(std::vector<int> buttons) {
  answers_.insert(answers_.end(), buttons.begin(), buttons.end());
}

void DialogAnswers::OnDialog(std::function<void(HWND)> drive) {
  drives_.push_back(std::move(drive));
}

// At the time of the hook, a dialog is not filled yet. So a timer handles it after its
// message loop has started.
LRESULT CALLBACK DialogAnswers::Hook(int code, WPARAM wide, LPARAM data) {
  if (code == HCBT_ACTIVATE && current_ != nullptr) {
    const HWND window = reinterpret_cast<HWND>(wide);
    std::vector<HWND>& opened = current_->opened_;
    if (ClassOf(window) == "#32770" &&
        std::find(opened.begin(), opened.end(), window) == opened.end()) {
      opened.push_back(window);
      SetTimer(window, 0x7E57, 10, Tick);
    }
  }
  return CallNextHookEx(nullptr, code, wide, data);
}

void CALLBACK DialogAnswers::Tick(HWND dialog, UINT, UINT_PTR timer, DWORD) {
  KillTimer(dialog, timer);
  if (current_ != nullptr) {
    current_->Handle(dialog);
  }
}

void DialogAnswers::Handle(HWND dialog) {
  // Another dialog may get the same handle later.
  opened_.erase(std::remove(opened_.begin(), opened_.end(), dialog), opened_.end());
  const HWND message = GetDlgItem(dialog, kMessageTextId);
  if (message == nullptr) {
    if (drives_.empty()) {
      PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
      return;
    }
    const std::function<void(HWND)> drive = std::move(drives_.front());
    drives_.pop_front();
    drive(dialog);
    return;
  }
  ShownBox box{WindowBytes(dialog), WindowBytes(message), {}, nullptr, {}};
  box.wideText = win32::WindowText(message);
  const HWND owner = RelatedWindow(dialog, GW_OWNER);
  box.owner = owner != nullptr && !IsWindowEnabled(owner) ? owner : nullptr;
  EXPECT_TRUE(box.owner != nullptr || ThreadWindow(nullptr, IsShownForm) == nullptr)
      << "the box belongs to no window: " << box.title << ", " << box.text;
  for (const HWND control : ControlsOf(dialog)) {
    if (ClassOf(control) == "Button") {
      box.buttons.push_back(ButtonName(GetDlgCtrlID(control)));
    }
  }
  shown_.push_back(box);
  int button = GetDlgItem(dialog, IDOK) != nullptr ? IDOK : IDNO;
  if (!answers_.empty()) {
    button = answers_.front();
    answers_.pop_front();
  }
  PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
}
