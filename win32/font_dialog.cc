#include "win32/font_dialog.h"

#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "win32/dialog_library.h"
#include "win32/handles.h"
#include "win32/window_text.h"

namespace win32 {
namespace {

constexpr int kFace = cmb1;
constexpr int kBoxes[] = {kFace, cmb2 /* style */, cmb3 /* size */};

struct FontDialog {
  const wchar_t* title = nullptr;
  std::wstring texts = {};  // the first texts of its boxes
  bool isTouched = false;   // true after the user has changed a box
  bool showsFace = false;   // true if the face box was not empty at OK
  int depth = 0;            // the number of notifications being handled, one in another

  void Notice(HWND dialog, int id, WORD event);
};

std::wstring TextsOf(HWND dialog) {
  std::wstring texts;
  for (const int box : kBoxes) {
    texts += WindowText(GetDlgItem(dialog, box)) + L'\n';
  }
  return texts;
}

// When another face is selected, the dialog fills its other boxes again and reports
// that as if the user had done it. Such reports come while it handles the report of
// the face, so they are ignored at a depth above 0.
void FontDialog::Notice(HWND dialog, int id, WORD event) {
  const bool isBox = std::find(std::begin(kBoxes), std::end(kBoxes), id) != std::end(kBoxes);
  isTouched |= isBox && depth == 0 && (event == CBN_SELCHANGE || event == CBN_EDITCHANGE);
  if (id == IDOK) {
    isTouched |= TextsOf(dialog) != texts;
    showsFace = !WindowText(GetDlgItem(dialog, kFace)).empty();
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

// Windows calls this first after it has filled the dialog.
UINT_PTR CALLBACK Hook(HWND dialog, UINT message, WPARAM, LPARAM data) {
  if (message == WM_INITDIALOG) {
    const LPARAM given = reinterpret_cast<const CHOOSEFONTW*>(data)->lCustData;
    auto* const state = reinterpret_cast<FontDialog*>(given);
    SetWindowTextW(dialog, state->title);
    state->texts = TextsOf(dialog);
    SetWindowSubclass(dialog, DialogProcedure, 0, static_cast<DWORD_PTR>(given));
  }
  return 0;
}

}  // namespace

LOGFONTW FontDescription::InPixels(int dpi) const {
  constexpr double kMostPoints = 1000;
  constexpr int kPointsPerInch = 72;
  LOGFONTW font{};
  font.lfHeight = -std::lround(std::clamp(points, 0.0, kMostPoints) * dpi / kPointsPerInch);
  font.lfWeight = bold ? FW_BOLD : FW_NORMAL;
  font.lfItalic = italic;
  font.lfCharSet = DEFAULT_CHARSET;
  // No font has a longer name.
  name.copy(font.lfFaceName, LF_FACESIZE - 1);
  return font;
}

void ChooseScreenFont(HWND owner, const wchar_t* title, FontDescription& font) {
  FontDialog state{title};
  // The dialog uses the DPI of the whole screen.
  LOGFONTW face = font.InPixels(GetDeviceCaps(WindowDc(nullptr).get(), LOGPIXELSY));
  CHOOSEFONTW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpLogFont = &face;
  dialog.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_ENABLEHOOK;
  dialog.lCustData = reinterpret_cast<LPARAM>(&state);
  dialog.lpfnHook = Hook;
  if (!DialogFunction<decltype(ChooseFontW)>("ChooseFontW")(&dialog) || !state.isTouched) {
    return;
  }
  constexpr double kTenthsOfAPoint = 10;
  if (state.showsFace) {
    font.name = face.lfFaceName;
  }
  font.points = dialog.iPointSize / kTenthsOfAPoint;
  font.bold = face.lfWeight >= FW_SEMIBOLD;
  font.italic = face.lfItalic != FALSE;
}

}  // namespace win32
