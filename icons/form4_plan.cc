#include <windows.h>

#include "icons/form4.h"
#include "resources/resource.h"

namespace icons {
namespace {

using win32::ControlRow;
using win32::kEveryPage;
using win32::kLeft;
using win32::kTop;

constexpr unsigned kTopLeft = kLeft | kTop;

constexpr SIZE kSize{190, 90};

// Enter presses OK, the default button, wherever the focus is.
constexpr ControlRow kControls[] = {
    {IDC_FORM4_PICTURE1,
     L"Static",
     L"",
     SS_OWNERDRAW,
     {7, 11, 26, 24},
     kTopLeft,
     kEveryPage,
     nullptr,
     L"Chosen icon"},
    {IDC_FORM4_HSCROLL1_LABEL,
     L"Static",
     L"Icon in the file :",
     SS_LEFT,
     {42, 7, 141, 9},
     kTopLeft,
     kEveryPage},
    {IDC_FORM4_HSCROLL1,
     L"ScrollBar",
     L"",
     SBS_HORZ | WS_TABSTOP | WS_DISABLED,
     {42, 18, 141, 12},
     kTopLeft,
     kEveryPage},
    {IDC_FORM4_LABEL1, L"Static", L"", SS_LEFT, {42, 33, 141, 9}, kTopLeft, kEveryPage},
    {IDC_FORM4_COMMAND2,
     L"Button",
     L"Select Icon Library",
     BS_PUSHBUTTON | WS_TABSTOP,
     {42, 45, 84, 15},
     kTopLeft,
     kEveryPage},
    {IDC_FORM4_COMMAND1,
     L"Button",
     L"OK",
     BS_DEFPUSHBUTTON | WS_TABSTOP,
     {77, 68, 50, 15},
     kTopLeft,
     kEveryPage},
    {IDC_FORM4_COMMAND3,
     L"Button",
     L"Cancel",
     BS_PUSHBUTTON | WS_TABSTOP,
     {133, 68, 50, 15},
     kTopLeft,
     kEveryPage},
};

}  // namespace

const win32::FormPlan kForm4Plan = {
    L"Form4", L"Select Icon",       WS_POPUP | WS_CAPTION | WS_SYSMENU,
    kSize,    IDI_APPLICATION_ICON, kControls,
};

}  // namespace icons
