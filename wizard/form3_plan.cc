#include "resources/resource.h"
#include "wizard/form3.h"

namespace wizard {
namespace {

using win32::ControlRow;
using win32::kEveryPage;

constexpr unsigned kTopLeft = win32::kLeft | win32::kTop;

constexpr DWORD kButton = BS_PUSHBUTTON | WS_TABSTOP;
constexpr DWORD kLabel = SS_LEFT;
// Centred, it is neither stretched nor does the control shrink to it.
constexpr DWORD kBitmap = SS_BITMAP | SS_CENTERIMAGE;
constexpr DWORD kLine = SS_ETCHEDHORZ;
constexpr DWORD kEdit = ES_AUTOHSCROLL | WS_TABSTOP;

constexpr SIZE kSize{331, 223};

constexpr ControlRow kControls[] = {
    {IDC_FORM3_PICTURE1, L"Static", L"", kBitmap, {0, 0, 109, 193}, kTopLeft, kEveryPage},
    {IDC_FORM3_LABEL1, L"Static", kTargetPrompt, kLabel, {123, 14, 194, 28}, kTopLeft, kEveryPage},
    // The prompt of both pages could stand right before only one of these.
    {IDC_FORM3_TEXT4,
     L"Edit",
     L"",
     kEdit,
     {123, 46, 194, 13},
     kTopLeft,
     kNamePage,
     nullptr,
     L"Name of the shortcut"},
    {IDC_FORM3_TEXT1,
     L"Edit",
     L"",
     kEdit,
     {123, 46, 194, 13},
     kTopLeft,
     kTargetPage,
     nullptr,
     L"Full path of the item"},
    {IDC_FORM3_COMMAND3,
     L"Button",
     L"Browse...",
     kButton,
     {249, 65, 68, 15},
     kTopLeft,
     kTargetPage},
    {IDC_FORM3_LABEL2,
     L"Static",
     L"Additional Command Line Arguments",
     kLabel,
     {123, 98, 194, 9},
     kTopLeft,
     kTargetPage},
    {IDC_FORM3_TEXT2, L"Edit", L"", kEdit, {123, 109, 194, 13}, kTopLeft, kTargetPage},
    {IDC_FORM3_LABEL3, L"Static", L"Start in", kLabel, {123, 134, 194, 9}, kTopLeft, kTargetPage},
    {IDC_FORM3_TEXT3, L"Edit", L"", kEdit, {123, 145, 194, 13}, kTopLeft, kTargetPage},

    {IDC_FORM3_LINE, L"Static", L"", kLine, {0, 193, 331, 1}, kTopLeft, kEveryPage},
    {IDC_FORM3_COMMAND4, L"Button", L"< Back", kButton, {113, 201, 66, 15}, kTopLeft, kEveryPage},
    {IDC_FORM3_COMMAND1, L"Button", L"Next >", kButton, {179, 201, 66, 15}, kTopLeft, kTargetPage},
    {IDC_FORM3_COMMAND5, L"Button", L"Finish", kButton, {179, 201, 66, 15}, kTopLeft, kNamePage},
    {IDC_FORM3_COMMAND2, L"Button", L"Cancel", kButton, {251, 201, 66, 15}, kTopLeft, kEveryPage},
};

}  // namespace

const win32::FormPlan kForm3Plan = {
    L"Form3", L"New Shortcut",      WS_POPUP | WS_CAPTION | WS_SYSMENU,
    kSize,    IDI_APPLICATION_ICON, kControls,
};

}  // namespace wizard
