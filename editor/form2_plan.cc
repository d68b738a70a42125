#include <windows.h>

#include "editor/form2.h"
#include "resources/resource.h"
#include "resources/version.h"

namespace editor {
namespace {

using namespace win32;

constexpr SIZE kSize{320, 223};

// clang-format off
constexpr ControlRow kControls[] = {
    // Contents, a user-defined list.
    {IDC_FORM2_FRAME3, kGroupBox, L"", {7, 21, 306, 174}, kFill, kItemPage},
    {IDC_FORM2_IMAGE4, kIcon, L"", {14, 28, 22, 20}, kTopLeft, kItemPage},
    {IDC_FORM2_LABEL13, kLabel, L"Menu Type :", {42, 34, 44, 8}, kTopLeft, kItemPage},
    {IDC_FORM2_LABEL14, kLabel, L"User Defined List", {88, 34, 120, 8}, kTopLeft, kItemPage},
    {IDC_FORM2_COMMAND13, kButton, L"Change Menu Type", {232, 31, 74, 14}, kTopRight, kItemPage},
    {IDC_FORM2_LIST1_LABEL, kLabel, L"Menu entries :", {14, 53, 120, 8}, kTopLeft, kItemPage},
    {IDC_FORM2_LIST1, kList, L"", {14, 63, 235, 97}, kFill, kItemPage},
    {IDC_FORM2_ICONIC1_LABEL, kLabel, L"Icon of the selected entry", {44, 172, 150, 8}, kBottomLeft, kItemPage},
    {IDC_FORM2_ICONIC1, kPictureBox, L"", {14, 164, 24, 24}, kBottomLeft, kItemPage},
    {IDC_FORM2_COMMAND2, kButton, L"Add", {256, 63, 50, 14}, kTopRight, kItemPage},
    {IDC_FORM2_COMMAND3, kButton, L"Edit", {256, 81, 50, 14}, kTopRight, kItemPage},
    {IDC_FORM2_COMMAND7, kButton, L"Delete", {256, 99, 50, 14}, kTopRight, kItemPage},
    {IDC_FORM2_COMMAND4, kButton, L"Move Up", {256, 117, 50, 14}, kTopRight, kItemPage},
    {IDC_FORM2_COMMAND8, kButton, L"Move Down", {256, 135, 50, 14}, kTopRight, kItemPage},
    {IDC_FORM2_COMMAND9, kButton, L"Separator", {256, 153, 50, 14}, kTopRight, kItemPage},
    {IDC_FORM2_COMMAND11, kButton, L"Change Icon", {256, 171, 50, 14}, kTopRight, kItemPage},

    // Contents, a directory pointer.
    {IDC_FORM2_FRAME4, kGroupBox, L"", {7, 21, 306, 174}, kFill, kDirectoryPage},
    {IDC_FORM2_IMAGE5, kIcon, L"", {14, 28, 22, 20}, kTopLeft, kDirectoryPage},
    {IDC_FORM2_LABEL15, kLabel, L"Menu Type : Directory Pointer", {42, 34, 180, 8}, kTopLeft, kDirectoryPage},
    {IDC_FORM2_COMMAND14, kButton, L"Change Menu Type", {232, 31, 74, 14}, kTopRight, kDirectoryPage},
    {IDC_FORM2_DRIVE1_LABEL, kLabel, L"Drive :", {14, 53, 130, 8}, kTopLeft, kDirectoryPage},
    {IDC_FORM2_DRIVE1, kDropDown, L"", {14, 63, 130, 120}, kTopAcross, kDirectoryPage},
    {IDC_FORM2_DIR1_LABEL, kLabel, L"Folder :", {14, 84, 130, 8}, kTopLeft, kDirectoryPage},
    {IDC_FORM2_DIR1, kDrawnList, L"", {14, 94, 130, 73}, kFill, kDirectoryPage},
    {IDC_FORM2_LABEL11, kLabel, L"Current Path :", {14, 177, 48, 8}, kBottomLeft, kDirectoryPage},
    {IDC_FORM2_TEXT7, kTextBox, L"", {64, 175, 175, 13}, kBottomAcross, kDirectoryPage},
    {IDC_FORM2_LABEL12, kLabel, L"File Pattern :", {156, 53, 150, 8}, kTopRight, kDirectoryPage},
    {IDC_FORM2_TEXT8, kTextBox, L"", {156, 63, 150, 13}, kTopRight, kDirectoryPage},
    {IDC_FORM2_CHECK2, kCheckBox, L"Display Folders", {156, 94, 150, 10}, kTopRight, kDirectoryPage},
    {IDC_FORM2_CHECK3, kCheckBox, L"Display Hidden Files", {156, 108, 150, 10}, kTopRight, kDirectoryPage},
    {IDC_FORM2_CHECK4, kCheckBox, L"Hide file extentions for known file types", {156, 122, 150, 10}, kTopRight, kDirectoryPage},
    {IDC_FORM2_COMMAND15, kButton, L"Save Changes", {246, 174, 60, 14}, kBottomRight, kDirectoryPage},

    // Appearance.
    {IDC_FORM2_FRAME2, kGroupBox, L"Menu Font", {14, 28, 292, 58}, kTopAcross, kAppearancePage},
    {IDC_FORM2_IMAGE3, kIcon, L"", {21, 53, 24, 22}, kTopLeft, kAppearancePage},
    {IDC_FORM2_TEXT3_LABEL, kLabel, L"Sample :", {52, 39, 120, 8}, kTopLeft, kAppearancePage},
    {IDC_FORM2_TEXT3, kTextBox, L"Menu Text will look like this.", {52, 49, 180, 30}, kTopAcross, kAppearancePage},
    {IDC_FORM2_COMMAND6, kButton, L"Change Font", {239, 49, 60, 14}, kTopRight, kAppearancePage},
    {IDC_FORM2_FRAME1, kGroupBox, L"Menu Icon", {14, 93, 292, 51}, kTopAcross, kAppearancePage},
    {IDC_FORM2_PICTURE1, kActivePictureBox, L"", {21, 109, 24, 24}, kTopLeft, kAppearancePage},
    {IDC_FORM2_PICTURE2, kPictureBox, L"", {21, 109, 24, 24}, kTopLeft, kHidden},
    {IDC_FORM2_LABEL7, kLabel, L"Icon in the file :", {52, 104, 120, 8}, kTopLeft, kAppearancePage},
    {IDC_FORM2_HSCROLL1, kScrollBar, L"", {52, 115, 180, 11}, kTopAcross, kAppearancePage},
    {IDC_FORM2_LABEL8, kLabel, L"0 Icons", {52, 129, 180, 8}, kTopAcross, kAppearancePage},
    {IDC_FORM2_COMMAND10, kButton, L"Select Icon File", {239, 113, 60, 14}, kTopRight, kAppearancePage},
    {IDC_FORM2_CHECK1, kCheckBox, L"Show small icons in menu", {14, 152, 200, 10}, kTopLeft, kAppearancePage},
    {IDC_FORM2_COMMAND12, kButton, L"Save Changes", {246, 174, 60, 14}, kBottomRight, kAppearancePage},

    // About.
    {IDC_FORM2_IMAGE1, kIcon, L"", {138, 84, 44, 22}, kMiddle, kAboutPage},
    {IDC_FORM2_LABEL5, kCentredLabel, L"Corvalis " CORVALIS_VERSION, {60, 112, 200, 8}, kMiddle, kAboutPage},

    {IDC_FORM2_COMMAND5, kButton, L"Quit", {263, 202, 50, 14}, kBottomRight, kEveryPage},
    {IDC_FORM2_SSTAB1, kTabs, L"", {7, 7, 306, 188}, kFill, kEveryPage},
};

constexpr ControlText kToolTips[] = {
    {IDC_FORM2_LIST1, L"You can drag and drop stuff to this list"},
    {IDC_FORM2_COMMAND2, L"Add new item to menu"},
    {IDC_FORM2_COMMAND3, L"Edit the selected item's properties"},
    {IDC_FORM2_COMMAND7, L"Delete Selected item"},
    {IDC_FORM2_COMMAND4, L"Move the current item postition one step up"},
    {IDC_FORM2_COMMAND8, L"Move the current item postition one step down"},
    {IDC_FORM2_COMMAND9, L"Add a seperator at the selected point"},
    {IDC_FORM2_TEXT7, L"The contents of this location will be displayed by the menu."},
    {IDC_FORM2_TEXT8, L"The type of files to display (*.* for all files)"},
};

constexpr ControlText kAccessibleNames[] = {
    {IDC_FORM2_SSTAB1, L"Pages"},
    {IDC_FORM2_ICONIC1, L"Icon of the selected entry"},
    {IDC_FORM2_PICTURE1, L"Show the icon on the desktop colour"},
};
// clang-format on

}  // namespace

const FormPlan kForm2Plan = {
    .windowClass = L"Form2",
    .caption = L"Corvalis Edit",
    .style = WS_OVERLAPPEDWINDOW,
    .size = kSize,
    .iconId = IDI_APPLICATION_ICON,
    .firstFocus = IDC_FORM2_SSTAB1,
    .controls = kControls,
    .toolTips = kToolTips,
    .accessibleNames = kAccessibleNames,
};

}  // namespace editor
