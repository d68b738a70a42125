#include "icons/icon_browser.h"

#include <shellapi.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>

#include "win32/file_dialog.h"
#include "win32/icon_file.h"
#include "win32/message_box.h"
#include "win32/text.h"
#include "win32/wait_pointer.h"
#include "win32/window_text.h"

namespace icons {
namespace {

constexpr const wchar_t* kTitle = L"Select a DLL or EXE which includes Icons";
constexpr const wchar_t* kFilter =
    L"Icon Files (*.ico;*.exe;*.dll)\0*.ico;*.exe;*.dll\0"
    L"All files\0*.*\0";

constexpr int kMostIcons = std::numeric_limits<std::int16_t>::max();

// None where the file has no icon of that index, or cannot be read.
win32::UniqueIcon ExtractIconOf(const std::string& path, int index) {
  const HICON icon =
      ExtractIconA(GetModuleHandleW(nullptr), path.c_str(), static_cast<UINT>(index));
  // 1 is no handle either: it says that the file is of no kind that holds icons.
  return win32::UniqueIcon(reinterpret_cast<std::uintptr_t>(icon) > 1 ? icon : nullptr);
}

}  // namespace

void ShowIconCount(HWND label, int count) {
  win32::SetText(label, std::to_wstring(count) + (count == 1 ? L" Icon" : L" Icons"));
}

void IconBrowser::Attach(HWND pictureBox, HWND scrollBar, HWND countLabel) {
  picture_.Attach(pictureBox);
  scrollBar_ = scrollBar;
  countLabel_ = countLabel;
}

int IconBrowser::Index() const {
  return static_cast<int>(SendMessageW(scrollBar_, SBM_GETPOS, 0, 0));
}

// Windows could be asked for the number; what is counted here is what can
// really be shown.
int IconBrowser::CountIcons() {
  const win32::WaitPointer wait;
  current_.reset();
  if (!win32::IsSoundIconFile(source_)) {
    return 0;
  }
  for (int count = 0;; ++count) {
    current_ = ExtractIconOf(source_, count);
    if (!current_) {
      return count;
    }
    current_.reset();
    if (count == kMostIcons) {
      throw std::overflow_error("More than " + std::to_string(kMostIcons) + " icons are in:\n" +
                                source_);
    }
  }
}

void IconBrowser::ShowIcons(int count, int index) {
  ShowIconCount(countLabel_, count);
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = count == 0 ? 0 : count - 1;
  info.nPage = 1;
  info.nPos = index;
  SendMessageW(scrollBar_, SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
  EnableWindow(scrollBar_, TRUE);
  ShowIconAt();
}

void IconBrowser::ShowIconAt() {
  current_.reset();
  picture_.Clear();
  if (win32::IsSoundIconFile(source_)) {
    current_ = ExtractIconOf(source_, Index());
  }
  picture_.Draw(current_.get());
}

void IconBrowser::SelectIconSourceFile(HWND owner) {
  std::optional<std::wstring> chosen =
      win32::ChooseFile(owner, kTitle, kFilter, win32::ToText(source_));
  if (!chosen && win32::FileDialogFailed()) {
    // It does not open with what could not be the name of a file, as "C:\".
    chosen = win32::ChooseFile(owner, kTitle, kFilter, L"");
  }
  if (!chosen) {
    return;
  }
  std::optional<std::string> path = win32::PathToBytes(*chosen);
  if (!path) {
    win32::ShowError(owner, L"File " + *chosen +
                                L" cannot be used. Its name has characters that a menu file "
                                L"cannot hold.");
    return;
  }
  SetSource(*std::move(path));
  current_.reset();
  int count = 0;
  try {
    count = CountIcons();
    if (count == 0) {
      win32::ShowError(owner, L"No Icons found in this file!");
    }
  } catch (const std::overflow_error& tooMany) {
    win32::ShowError(owner, win32::ToText(tooMany.what()));
  }
  ShowIcons(count, 0);
}

void IconBrowser::ShowPreviewOnDesktopColour() {
  picture_.SetBackground(COLOR_BACKGROUND);
  picture_.Clear();
  picture_.Draw(current_.get());
}

}  // namespace icons
