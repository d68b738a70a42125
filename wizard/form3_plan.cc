#include "resources/resource.h"
#include "wizard/form3.h"

namespace wizard {
namespace {

using namespace win32;

// clang-format off
constexpr ControlRow kControls[] = {
    {IDC_FORM3_PICTURE1, kBitmap, L"", {0, 0, 74, 130}, kTopLeft, kEveryPage},
    {IDC_FORM3_LABEL1, kLabel, kTargetPrompt, {88, 14, 198, 18}, kTopLeft, kEveryPage},
    // The label names only the control in the next row, so these two have names of their
    // own below.
    {IDC_FORM3_TEXT4, kTextBox, L"", {88, 37, 198, 13}, kTopLeft, kNamePage},
    {IDC_FORM3_TEXT1, kTextBox, L"", {88, 37, 144, 13}, kTopLeft, kTargetPage},
    {IDC_FORM3_COMMAND3, kButton, L"Browse...", {236, 36, 50, 14}, kTopLeft, kTargetPage},
    {IDC_FORM3_LABEL2, kLabel, L"Additional Command Line Arguments", {88, 60, 198, 8}, kTopLeft, kTargetPage},
    {IDC_FORM3_TEXT2, kTextBox, L"", {88, 70, 198, 13}, kTopLeft, kTargetPage},
    {IDC_FORM3_LABEL3, kLabel, L"Start in", {88, 94, 198, 8}, kTopLeft, kTargetPage},
    {IDC_FORM3_TEXT3, kTextBox, L"", {88, 104, 198, 13}, kTopLeft, kTargetPage},

    {IDC_FORM3_LINE, kLine, L"", {0, 130, 300, 1}, kTopLeft, kEveryPage},
    {IDC_FORM3_COMMAND4, kButton, L"< Back", {129, 137, 50, 14}, kTopLeft, kEveryPage},
    {IDC_FORM3_COMMAND1, kButton, L"Next >", {179, 137, 50, 14}, kTopLeft, kTargetPage},
    {IDC_FORM3_COMMAND5, kButton, L"Finish", {179, 137, 50, 14}, kTopLeft, kNamePage},
    {IDC_FORM3_COMMAND2, kButton, L"Cancel", {236, 137, 50, 14}, kTopLeft, kEveryPage},
};

constexpr ControlText kAccessibleNames[] = {
    {IDC_FORM3_TEXT4, L"Name of the shortcut"},
    {IDC_FORM3_TEXT1, L"Full path of the item"},
};
// clang-format on

}  // namespace

const FormPlan kForm3Plan = {
    .windowClass = L"Form3",
    .caption = L"New Shortcut",
    .style = WS_POPUP | WS_CAPTION | WS_SYSMENU,
    .size = {300, 158},
    .iconId = IDI_APPLICATION_ICON,
    .controls = kControls,
    .accessibleNames = kAccessibleNames,
};

}  // namespace wizard
