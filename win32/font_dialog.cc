#include "win32/font_dialog.h"

#include <commdlg.h>
#include <dlgs.h>

#include <cmath>

#include "win32/handles.h"
#include "win32/window_text.h"

namespace win32 {
namespace {

constexpr const char* kDialogProperty = "CorvalisFontDialog";

// One of the dialog's combo boxes, and whether the user has changed it.
struct Box {
  int id;
  std::string first = {};  // what it said at first
  bool changed = false;

  HWND In(HWND dialog) const { return GetDlgItem(dialog, id); }

  // The dialog fills its boxes anew when another face is selected and reports
  // that as if the user had done it, who can only be in one.
  void Notify(HWND dialog, WORD event) {
    const HWND focus = GetFocus();
    const bool hasFocus = focus == In(dialog) || IsChild(In(dialog), focus);
    changed |= hasFocus && (event == CBN_SELCHANGE || event == CBN_EDITCHANGE);
  }
};

struct FontDialog {
  const char* title = nullptr;
  Box face{cmb1};
  Box style{cmb2};
  Box size{cmb3};
};

// Called by the dialog before it deals with a message itself, but for the first
// one, which comes when the dialog has been filled.
UINT_PTR CALLBACK Hook(HWND dialog, UINT message, WPARAM wide, LPARAM data) {
  if (message == WM_INITDIALOG) {
    auto* const state =
        reinterpret_cast<FontDialog*>(reinterpret_cast<const CHOOSEFONTA*>(data)->lCustData);
    SetPropA(dialog, kDialogProperty, state);
    SetWindowTextA(dialog, state->title);
    for (Box* box : {&state->face, &state->style, &state->size}) {
      box->first = WindowText(box->In(dialog));
    }
    return 0;
  }
  auto* const state = static_cast<FontDialog*>(GetPropA(dialog, kDialogProperty));
  if (state == nullptr) {
    return 0;
  }
  if (message == WM_COMMAND) {
    for (Box* box : {&state->face, &state->style, &state->size}) {
      if (LOWORD(wide) == box->id) {
        box->Notify(dialog, HIWORD(wide));
      } else if (LOWORD(wide) == IDOK) {
        box->changed |= WindowText(box->In(dialog)) != box->first;
      }
    }
  } else if (message == WM_NCDESTROY) {
    RemovePropA(dialog, kDialogProperty);
  }
  return 0;
}

}  // namespace

void ChooseScreenFont(HWND owner, const char* title, FontDescription& font) {
  FontDialog state{title};
  LOGFONTA face{};
  // The dialog reckons with the DPI of the screen as a whole.
  const int dpi = GetDeviceCaps(WindowDc(nullptr).get(), LOGPIXELSY);
  face.lfHeight = -std::lround(font.points * dpi / 72);
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
  if (state.style.changed) {
    font.bold = face.lfWeight >= FW_SEMIBOLD;
    font.italic = face.lfItalic != FALSE;
  }
}

}  // namespace win32
