#include "icons/icon_browser.h"

#include <shellapi.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

#include "win32/file_dialog.h"
#include "win32/message_box.h"
#include "win32/text.h"
#include "win32/wait_pointer.h"
#include "win32/window_text.h"
#include "win32/wine_icon_check.h"

namespace icons {
namespace {

constexpr const wchar_t* kTitle = L"Select a DLL or EXE which includes Icons";
constexpr const wchar_t* kFilter =
    L"Icon Files (*.ico;*.exe;*.dll)\0*.ico;*.exe;*.dll\0"
    L"All files\0*.*\0";

constexpr int kMostIcons = std::numeric_limits<std::int16_t>::max();

// Empty if the file has no icon with that 0-based index, or cannot be read.
win32::UniqueIcon ExtractIconOf(const std::string& path, int index) {
  if (!win32::MayExtractIcon(path, index)) {
    return {};
  }
  const HICON icon =
      ExtractIconA(GetModuleHandleW(nullptr), path.c_str(), static_cast<UINT>(index));
  // 1 is no handle: it means that files of this kind hold no icons.
  return win32::UniqueIcon(reinterpret_cast<std::uintptr_t>(icon) > 1 ? icon : nullptr);
}

// Extracts the icon with a negative resource id. ExtractIconA() cannot: for -1 it returns
// the number of icons.
win32::UniqueIcon ExtractResource(const std::string& path, int index) {
  const std::wstring file = win32::ToText(path);
  HICON icon = nullptr;
  UINT id = 0;
  const UINT count = file.size() < MAX_PATH && win32::MayExtractIcon(path, index)
                         ? PrivateExtractIconsW(file.c_str(), index, GetSystemMetrics(SM_CXICON),
                                                GetSystemMetrics(SM_CYICON), &icon, &id, 1, 0)
                         : 0;
  return win32::UniqueIcon(count == 1 ? icon : nullptr);
}

}  // namespace

void ShowIconCount(HWND label, int count) {
  win32::SetText(label, std::to_wstring(count) + (count == 1 ? L" Icon" : L" Icons"));
}

void IconBrowser::Attach(HWND pictureBox, HWND scrollBar, HWND countLabel) {
  picture_.Attach(pictureBox);
  scrollBar_ = scrollBar;
  countLabel_ = countLabel;
  win32::TurnByWheelOver(scrollBar, scrollBar);
  win32::TurnByWheelOver(pictureBox, scrollBar);
}

int IconBrowser::Position() const {
  return static_cast<int>(SendMessageW(scrollBar_, SBM_GETPOS, 0, 0));
}

int IconBrowser::Index() const {
  const int position = Position();
  return position == std::max(index_, 0) ? index_ : position;
}

// Extracts the icons to count them. Windows could return their number, but this counts
// only those that can be shown.
IconBrowser::IconCount IconBrowser::CountIcons() {
  const win32::WaitPointer wait;
  current_.reset();
  for (int count = 0;; ++count) {
    current_ = ExtractIconOf(source_, count);
    if (!current_) {
      return {count, true};
    }
    current_.reset();
    if (count == kMostIcons) {
      return {kMostIcons, false};
    }
  }
}

std::wstring IconBrowser::TooManyIcons() const {
  return L"More than " + std::to_wstring(kMostIcons) + L" icons are in:\n" + win32::ToText(source_);
}

void IconBrowser::ShowIcons(int count, int index) {
  ShowIconCount(countLabel_, count);
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = count == 0 ? 0 : count - 1;
  info.nPage = 1;
  info.nPos = std::max(index, 0);
  SendMessageW(scrollBar_, SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
  EnableWindow(scrollBar_, TRUE);
  ShowIconAt();
  if (index < 0) {
    index_ = index;
    if (win32::UniqueIcon icon = ExtractResource(source_, index)) {
      current_ = std::move(icon);
      picture_.Clear();
      picture_.Draw(current_.get());
    }
  }
}

void IconBrowser::ShowIconAt() {
  current_.reset();
  picture_.Clear();
  index_ = Position();
  current_ = ExtractIconOf(source_, index_);
  picture_.Draw(current_.get());
}

// Each step of the bar is reported twice: when it moved, and when scrolling ended.
void IconBrowser::ShowIconAtNewPosition() {
  if (Index() != index_) {
    ShowIconAt();
  }
}

void IconBrowser::SelectIconSourceFile(HWND owner) {
  std::optional<std::wstring> chosen =
      win32::ChooseFile(owner, kTitle, kFilter, win32::ToText(source_));
  if (!chosen && win32::FileDialogFailed()) {
    // The dialog fails if the initial name cannot be a file, such as "C:\".
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
  const IconCount count = CountIcons();
  if (count.icons == 0) {
    win32::ShowError(owner, L"No Icons found in this file!");
  } else if (!count.isAll) {
    win32::ShowError(owner, TooManyIcons());
  }
  ShowIcons(count.icons, 0);
}

void IconBrowser::ShowPreviewOnDesktopColour() {
  picture_.SetBackground(COLOR_BACKGROUND);
  picture_.Clear();
  picture_.Draw(current_.get());
}

}  // namespace icons
