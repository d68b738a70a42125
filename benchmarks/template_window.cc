// Shows a window with the controls of the editor, made from the dialog template
// template_window.dlg beside this program, and fills the list. The editor's start is
// compared with its start.
#include <windows.h>

#include <commctrl.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "benchmarks/fill_list.h"
#include "resources/resource.h"

namespace {

std::vector<char> ReadTemplate() {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  std::string name = path;
  name.replace(name.rfind('.'), std::string::npos, ".dlg");
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM, LPARAM) {
  if (message == WM_INITDIALOG) {
    const HWND tabs = GetDlgItem(dialog, IDC_FORM2_SSTAB1);
    for (int i = 0; i < 3; ++i) {
      wchar_t title[] = L"Contents";
      TCITEMW item{};
      item.mask = TCIF_TEXT;
      item.pszText = title;
      SendMessageW(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    }
    bench::FillList(GetDlgItem(dialog, IDC_FORM2_LIST1));
    return TRUE;
  }
  if (message == WM_CLOSE) {
    PostQuitMessage(0);
  }
  return FALSE;
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  const std::vector<char> bytes = ReadTemplate();
  const HWND dialog = CreateDialogIndirectParamW(
      instance, reinterpret_cast<const DLGTEMPLATE*>(bytes.data()), nullptr, DialogProcedure, 0);
  if (dialog == nullptr) {
    return 1;
  }
  ShowWindow(dialog, show);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (!IsDialogMessageW(dialog, &message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  return 0;
}
