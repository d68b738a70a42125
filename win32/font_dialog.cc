#include "win32/font_dialog.h"

#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>

#include <cmath>

#include "win32/dialog_library.h"
#include "win32/handles.h"
#include "win32/window_text.h"

namespace win32 {
namespace {

// One of the dialog's combo boxes, and whether the user has changed it.
struct Box {
  int id;
  std::wstring first = {};  // what it said at first
  bool changed = false;

  HWND In(HWND dialog) const { return GetDlgItem(dialog, id); }
};

struct FontDialog {
  const wchar_t* title = nullptr;
  Box face{cmb1};
  Box style{cmb2};
  Box size{cmb3};
  int depth = 0;  // of notifications within notifications

  void Notice(HWND dialog, int id, WORD event);
};

// The dialog fills its boxes anew when another face is selected and reports that
// as if the user had done it, but while it deals with the report of the face.
void FontDialog::Notice(HWND dialog, int id, WORD event) {
  for (Box* box : {&face, &style, &size}) {
    if (id == box->id) {
      box->changed |= depth == 0 && (event == CBN_SELCHANGE || event == CBN_EDITCHANGE);
    } else if (id == IDOK) {
      box->changed |= WindowText(box->In(dialog)) != box->first;
    }
  }
}

LRESULT CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wide, LPARAM data, UINT_PTR id,
                                 DWORD_PTR state) {
  if (message == WM_COMMAND) {
    FontDialog& fontDialog = *reinterpret_cast<FontDialog*>(state);
    fontDialog.Notice(dialog, LOWORD(wide), HIWORD(wide));
    ++fontDialog.depth;
    const LRESULT result = DefSubclassProc(dialog, message, wide, data);
    --fontDialog.depth;
    return result;
  }
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(dialog, DialogProcedure, id);
  }
  return DefSubclassProc(dialog, message, wide, data);
}

// The first message to it comes when the dialog has been filled.
UINT_PTR CALLBACK Hook(HWND dialog, UINT message, WPARAM, LPARAM data) {
  if (message == WM_INITDIALOG) {
    const LPARAM given = reinterpret_cast<const CHOOSEFONTW*>(data)->lCustData;
    auto* const state = reinterpret_cast<FontDialog*>(given);
    SetWindowTextW(dialog, state->title);
    for (Box* box : {&state->face, &state->style, &state->size}) {
      box->first = WindowText(box->In(dialog));
    }
    SetWindowSubclass(dialog, DialogProcedure, 0, static_cast<DWORD_PTR>(given));
  }
  return 0;
}

}  // namespace

void ChooseScreenFont(HWND owner, const wchar_t* title, FontDescription& font) {
  FontDialog state{title};
  LOGFONTW face{};
  // The dialog reckons with the DPI of the screen as a whole.
  const int dpi = GetDeviceCaps(WindowDc(nullptr).get(), LOGPIXELSY);
  face.lfHeight = -std::lround(font.points * dpi / 72);
  face.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  face.lfItalic = font.italic;
  face.lfCharSet = DEFAULT_CHARSET;
  font.name.copy(face.lfFaceName, LF_FACESIZE - 1);
  CHOOSEFONTW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpLogFont = &face;
  dialog.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_ENABLEHOOK;
  dialog.lCustData = reinterpret_cast<LPARAM>(&state);
  dialog.lpfnHook = Hook;
  if (!DialogFunction<decltype(ChooseFontW)>("ChooseFontW")(&dialog)) {
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
