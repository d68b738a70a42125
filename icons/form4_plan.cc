#include "icons/form4.h"
#include "resources/resource.h"

namespace icons {
namespace {

using namespace win32;

// Enter presses OK, the default button, from every control.
constexpr Kind kDefaultButton{L"Button", BS_DEFPUSHBUTTON | WS_TABSTOP};

// clang-format off
constexpr ControlRow kControls[] = {
    {IDC_FORM4_PICTURE1, kPictureBox, L"", {7, 11, 24, 24}, kTopLeft, kEveryPage},
    {IDC_FORM4_HSCROLL1_LABEL, kLabel, L"Icon in the file :", {42, 7, 141, 8}, kTopLeft, kEveryPage},
    {IDC_FORM4_HSCROLL1, kScrollBar, L"", {42, 18, 141, 11}, kTopLeft, kEveryPage},
    {IDC_FORM4_LABEL1, kLabel, L"", {42, 32, 141, 8}, kTopLeft, kEveryPage},
    {IDC_FORM4_COMMAND2, kButton, L"Select Icon Library", {42, 44, 74, 14}, kTopLeft, kEveryPage},
    {IDC_FORM4_COMMAND1, kDefaultButton, L"OK", {79, 69, 50, 14}, kTopLeft, kEveryPage},
    {IDC_FORM4_COMMAND3, kButton, L"Cancel", {133, 69, 50, 14}, kTopLeft, kEveryPage},
};

constexpr ControlText kAccessibleNames[] = {{IDC_FORM4_PICTURE1, L"Chosen icon"}};
// clang-format on

}  // namespace

const FormPlan kForm4Plan = {
    .windowClass = L"Form4",
    .caption = L"Select Icon",
    .style = WS_POPUP | WS_CAPTION | WS_SYSMENU,
    .size = {190, 90},
    .iconId = IDI_APPLICATION_ICON,
    .controls = kControls,
    .accessibleNames = kAccessibleNames,
};

}  // namespace icons
