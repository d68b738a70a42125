#include "win32/font_dialog.h"

#include <commdlg.h>
#include <dlgs.h>

#include "win32/handles.h"
#include "win32/window_text.h"

namespace win32 {
namespace {

constexpr int kFaceBox = cmb1;
constexpr int kSizeBox = cmb3;

constexpr const char* kDialogProperty = "CorvalisFontDialog";

// One of the dialog's combo boxes: whether it says what it said at first.
struct Box {
  std::string first;
  bool changed = false;

  void Look(HWND dialog, int id) { changed |= WindowText(GetDlgItem(dialog, id)) != first; }
};

struct FontDialog {
  const char* title;
  Box face;
  Box size;

  Box* Of(int id) { return id == kFaceBox ? &face : id == kSizeBox ? &size : nullptr; }
};

// Called by the dialog before it deals with a message itself, but for the first
// one, which comes when the dialog has been filled.
UINT_PTR CALLBACK Hook(HWND dialog, UINT message, WPARAM wide, LPARAM data) {
  if (message == WM_INITDIALOG) {
    FontDialog* const state =
        reinterpret_cast<FontDialog*>(reinterpret_cast<const CHOOSEFONTA*>(data)->lCustData);
    SetPropA(dialog, kDialogProperty, state);
    SetWindowTextA(dialog, state->title);
    state->face.first = WindowText(GetDlgItem(dialog, kFaceBox));
    state->size.first = WindowText(GetDlgItem(dialog, kSizeBox));
    return 0;
  }
  FontDialog* const state = static_cast<FontDialog*>(GetPropA(dialog, kDialogProperty));
  if (state == nullptr) {
    return 0;
  }
  if (message == WM_COMMAND) {
    const WORD event = HIWORD(wide);
    Box* const box = state->Of(LOWORD(wide));
    if (box != nullptr && (event == CBN_SELCHANGE || event == CBN_EDITCHANGE)) {
      box->changed = true;
    } else if (wide == MAKEWPARAM(IDOK, BN_CLICKED)) {
      state->face.Look(dialog, kFaceBox);
      state->size.Look(dialog, kSizeBox);
    }
  } else if (message == WM_NCDESTROY) {
    RemovePropA(dialog, kDialogProperty);
  }
  return 0;
}

}  // namespace

void ChooseScreenFont(HWND owner, const char* title, FontDescription& font) {
  FontDialog state{title, {}, {}};
  LOGFONTA face{};
  // The dialog reckons with the DPI of the screen as a whole.
  const int dpi = GetDeviceCaps(WindowDc(nullptr).get(), LOGPIXELSY);
  face.lfHeight = -static_cast<LONG>(font.points * dpi / 72 + 0.5);
  face.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  face.lfItalic = font.italic;
  face.lfCharSet = DEFAULT_CHARSET;
  font.name.copy(face.lfFaceName, LF_FACESIZE - 1);
  CHOOSEFONTA dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpLogFont = &face;
  dialog.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_ENABLEHOOK;
  dialog.lCustData = reinterpret_cast<LPARAM>(&state);
  dialog.lpfnHook = Hook;
  if (!ChooseFontA(&dialog)) {
    return;
  }
  if (state.face.changed) {
    font.name = face.lfFaceName;
  }
  if (state.size.changed) {
    constexpr double kTenthsOfAPoint = 10;
    font.points = dialog.iPointSize / kTenthsOfAPoint;
  }
  font.bold = face.lfWeight >= FW_SEMIBOLD;
  font.italic = face.lfItalic != FALSE;
}

}  // namespace win32
