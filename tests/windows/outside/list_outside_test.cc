#include "tests/windows/icon_files.h"
#include "tests/windows/outside/drag.h"
#include "tests/windows/outside/host.h"
#include "tests/windows/outside/outside_test_base.h"

using outside::WaitUntil;
using namespace testing_menus;

namespace {

const std::string kA = ItemLine("Alpha", "C:\\windows\\notepad.exe", "-a", "C:\\");

std::wstring Wide(const std::string& text) { return {text.begin(), text.end()}; }

}  // namespace

class ListOutsideTest : public OutsideTest {};

TEST_F(ListOutsideTest, AddsThroughTheWizardWithBrowse) {
  WriteBytes(PathOf("chosen program.exe"), "");
  Start(UserDefinedMenu({kA}));
  const HWND wizard = OpenWizard(IDC_FORM2_COMMAND2);
  EXPECT_TRUE(WaitUntil([&] { return !IsWindowEnabled(form2()); }));
  EXPECT_EQ(outside::Text(wizard), "New Shortcut");

  ChooseFile(wizard, IDC_FORM3_COMMAND3, "Select Program", PathOf("chosen program.exe"));
  EXPECT_TRUE(WaitUntil(
      [&] { return outside::Text(wizard, IDC_FORM3_TEXT1) == PathOf("chosen program.exe"); }));

  outside::Type(wizard, IDC_FORM3_TEXT2, "-some -arguments");
  outside::Type(wizard, IDC_FORM3_TEXT3, folder());
  Next(wizard);
  EXPECT_EQ(outside::Text(wizard, IDC_FORM3_TEXT4), "chosen program.exe");
  outside::Type(wizard, IDC_FORM3_TEXT4, "A friendly name");
  Finish(wizard);

  EXPECT_EQ(Rows(), (std::vector<std::string>{"Alpha", "A friendly name"}));
  EXPECT_EQ(MenuBytes(),
            UserDefinedMenu({kA, ItemLine("A friendly name", PathOf("chosen program.exe"),
                                          "-some -arguments", folder())}));
  ExpectCleanEnd();
}

// The end of the wizard would bring the editor there by itself only if the wizard
// had been there.
TEST_F(ListOutsideTest, TheEditorComesToTheFrontThoughTheWizardWasNotThere) {
  Start(UserDefinedMenu({kA}));
  const HWND wizard = OpenWizard(IDC_FORM2_COMMAND2);
  ASSERT_TRUE(WaitUntil([&] { return GetForegroundWindow() == wizard; }));
  const HWND other = CreateWindowExA(WS_EX_TOPMOST, "Static", "", WS_POPUP | WS_VISIBLE, 0, 0, 80,
                                     60, nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
  SetForegroundWindow(other);
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == other; }));
  EXPECT_TRUE(outside::Press(wizard, IDC_FORM3_COMMAND2));
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == form2(); }));
  DestroyWindow(other);
  ExpectCleanEnd();
}

TEST_F(ListOutsideTest, TwoFilesDraggedFromAnotherProcess) {
  WriteBytes(PathOf("second in the folder.txt"), "");
  WriteBytes(PathOf("a first.txt"), "");
  Start(UserDefinedMenu({kA}));
  const outside::DragResult result = outside::DragTo(
      List(),
      DragData::Files({Wide(PathOf("second in the folder.txt")), Wide(PathOf("a first.txt"))}));
  EXPECT_TRUE(result.begun);
  EXPECT_TRUE(result.dropped);
  EXPECT_EQ(result.shownEffect, static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_EQ(result.effect, static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_EQ(Rows(), (std::vector<std::string>{"Alpha", "second in the folder.txt", "a first.txt"}));
  EXPECT_EQ(
      MenuBytes(),
      UserDefinedMenu({kA, ItemLine("second in the folder.txt", PathOf("second in the folder.txt")),
                       ItemLine("a first.txt", PathOf("a first.txt"))}));
  ExpectCleanEnd();
}

TEST_F(ListOutsideTest, DraggedTextIsRefused) {
  Start(UserDefinedMenu({kA}));
  const outside::DragResult result =
      outside::DragTo(List(), DragData::Text(L"C:\\windows\\notepad.exe"));
  EXPECT_TRUE(result.begun);
  EXPECT_EQ(result.shownEffect, static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(result.effect, static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(Rows(), std::vector<std::string>{"Alpha"});
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({kA}));
  ExpectCleanEnd();
}

TEST_F(ListOutsideTest, FilesAreRefusedWhileTheWizardIsOpen) {
  Start(UserDefinedMenu({kA}));
  const HWND wizard = OpenWizard(IDC_FORM2_COMMAND2);
  EXPECT_TRUE(WaitUntil([&] { return !IsWindowEnabled(form2()); }));
  // Out of the way of the list.
  SetWindowPos(wizard, nullptr, 700, 700, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  const outside::DragResult result =
      outside::DragTo(List(), DragData::Files({L"C:\\windows\\notepad.exe"}));
  EXPECT_TRUE(result.begun);
  EXPECT_EQ(result.effect, static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({kA}));
  outside::CloseWindow(wizard);
  EXPECT_TRUE(program().WaitUntilGone("Form3"));
  EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(form2()) != FALSE; }));
  ExpectCleanEnd();
}

TEST_F(ListOutsideTest, TheMessageOfNextCanBeReadAndClosed) {
  Start(UserDefinedMenu({}));
  const HWND wizard = OpenWizard(IDC_FORM2_COMMAND2);
  outside::Type(wizard, IDC_FORM3_TEXT1, "https://example.org");
  outside::Click(wizard, IDC_FORM3_COMMAND1);
  const HWND box = program().WaitFor("#32770");
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(outside::Text(box), "Error!");
  EXPECT_EQ(outside::Text(box, outside::kMessageTextId),
            "File https://example.org cannot be accessed. Please check the path.");
  EXPECT_TRUE(outside::TakeScreenshot("message_of_next"));
  outside::CloseWindow(box);
  EXPECT_TRUE(program().WaitUntilGone("#32770"));
  EXPECT_TRUE(IsWindowVisible(GetDlgItem(wizard, IDC_FORM3_TEXT1)));
  outside::CloseWindow(wizard);
  EXPECT_TRUE(program().WaitUntilGone("Form3"));
  ExpectCleanEnd();
}

TEST_F(ListOutsideTest, ChangesAnEntrysIcon) {
  const auto menu = [&](const std::string& iconFile, const std::string& iconIndex) {
    return UserDefinedMenu({kSeparatorLine, ItemLine("Entry", "C:\\windows\\notepad.exe", "", "",
                                                     iconFile, iconIndex)});
  };
  const std::string two = PathOf("two.dll");
  const std::string twelve = PathOf("twelve.dll");
  WriteBytes(two, testing_icons::Library(testing_icons::Colours(2)));
  WriteBytes(twelve, testing_icons::Library(testing_icons::Colours(12)));
  Start(menu(two, "1"));
  outside::SelectRow(List(), 1);
  outside::Click(form2(), IDC_FORM2_COMMAND11);
  const HWND form4 = program().WaitFor("Form4");
  ASSERT_NE(form4, nullptr);
  EXPECT_TRUE(WaitForText(form4, IDC_FORM4_LABEL1, "2 Icons"));
  EXPECT_FALSE(IsWindowEnabled(form2()));
  EXPECT_EQ(SendMessageA(GetDlgItem(form4, IDC_FORM4_HSCROLL1), SBM_GETPOS, 0, 0), 1);

  ChooseFile(form4, IDC_FORM4_COMMAND2, "Select a DLL or EXE which includes Icons", twelve);
  EXPECT_TRUE(WaitForText(form4, IDC_FORM4_LABEL1, "12 Icons"));
  ScrollTo(form4, IDC_FORM4_HSCROLL1, 9);
  // The old file must not come back with the focus.
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == form4; }));
  EXPECT_EQ(outside::Text(form4, IDC_FORM4_LABEL1), "12 Icons");
  EXPECT_EQ(SendMessageA(GetDlgItem(form4, IDC_FORM4_HSCROLL1), SBM_GETPOS, 0, 0), 9);

  outside::Click(form4, IDC_FORM4_COMMAND1);
  EXPECT_TRUE(program().WaitUntilGone("Form4"));
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == form2(); }));
  EXPECT_TRUE(IsWindowEnabled(form2()));
  EXPECT_EQ(MenuBytes(), menu(twelve, "9"));
  EXPECT_EQ(outside::SelectedRow(List()), 1);
  ExpectCleanEnd();
}
