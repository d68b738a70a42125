// Takes one menu from its previous version to a directory pointer and back, with every
// change that a user can make. After each step, the test compares the menu file byte by
// byte with the expected one, and saves the screen below build/screenshots/story.
#include <utility>

#include "tests/windows/icon_files.h"
#include "tests/windows/outside/drag.h"
#include "tests/windows/outside/host.h"
#include "tests/windows/outside/known_menu.h"
#include "tests/windows/outside/outside_test_base.h"

using outside::WaitUntil;
using namespace testing_menus;

namespace {

const std::string kSeparatorRow(87, '-');
const std::string kIconFileTitle = "Select a DLL or EXE which includes Icons";
const std::string kSwitchQuestion =
    "Changing menu type will lose existing data.\rDo you wish to continue?";

std::wstring Wide(const std::string& text) { return {text.begin(), text.end()}; }

}  // namespace

class StoryTest : public OutsideTest {
 protected:
  StoryTest() {
    WriteBytes(library_, testing_icons::Library(colours_));
    WriteBytes(PathOf("dropped file.txt"), "text");
    CreateDirectoryA(PathOf("dropped folder").c_str(), nullptr);
    menu_.appearance = "0,\"Liberation Sans\",8.25,0,0\r\n";
    menu_.entries = {{"Notepad", "C:\\windows\\notepad.exe", "", "C:\\", "", "0"},
                     testing_menus::Separator(),
                     {"Registry, edited", "C:\\windows\\regedit.exe", "/x, y", "", "", "0"}};
  }

  // Ends a step: compares the file and saves the screen.
  void ExpectMenu(const std::string& step) {
    EXPECT_EQ(Difference(MenuBytes(), menu_.Bytes()), "") << step;
    std::vector<std::string> rows;
    for (const Entry& entry : menu_.entries) {
      rows.push_back(entry.caption.empty() ? kSeparatorRow : entry.caption);
    }
    EXPECT_EQ(Rows(), rows) << step;
    Photograph(step);
  }

  void Photograph(const std::string& step) {
    EXPECT_TRUE(outside::WaitUntilIdle(GetForegroundWindow()));
    ++steps_;
    const std::string number = (steps_ < 10 ? "0" : "") + std::to_string(steps_);
    EXPECT_TRUE(outside::TakeScreenshot("story/" + number + '_' + step)) << step;
  }

  void UpgradeThePreviousVersion() {
    WriteBytes(MenuPath(), menu_.PreviousVersionBytes());
    StartAsItStands();
    WaitForDialog("Query?");
    Photograph("question");
    EXPECT_EQ(Difference(MenuBytes(), menu_.PreviousVersionBytes()), "");
    Answer("Query?",
           "The menu file is invalid or a previous version.\rWould you like to update the file?",
           IDYES);
    WaitForForm2();
    menu_.picture = BytesOf(outside::BuildFolder() + "\\..\\resources\\default_menu.ico");
    EXPECT_EQ(menu_.picture.size(), 2238U);
    ExpectMenu("upgraded");
  }

  void AddWithTheWizard() {
    const HWND wizard = OpenWizard(IDC_FORM2_COMMAND2);
    outside::Type(wizard, IDC_FORM3_TEXT1, "C:\\windows\\system32\\cmd.exe");
    outside::Type(wizard, IDC_FORM3_TEXT2, "/k dir");
    outside::Type(wizard, IDC_FORM3_TEXT3, "C:\\windows");
    Photograph("wizard_target");
    Next(wizard);
    EXPECT_EQ(outside::Text(wizard, IDC_FORM3_TEXT4), "cmd.exe");
    outside::Type(wizard, IDC_FORM3_TEXT4, "Commands");
    Photograph("wizard_name");
    Finish(wizard);
    menu_.entries.push_back(
        {"Commands", "C:\\windows\\system32\\cmd.exe", "/k dir", "C:\\windows", "", "0"});
    ExpectMenu("added");
  }

  void DropFileAndFolder() {
    const std::vector<std::string> names = {"dropped file.txt", "dropped folder"};
    const outside::DragResult result =
        outside::DragTo(List(), DragData::Files({Wide(PathOf(names[0])), Wide(PathOf(names[1]))}));
    EXPECT_TRUE(result.dropped);
    for (const std::string& name : names) {
      menu_.entries.push_back({name, PathOf(name), "", "", "", "0"});
    }
    ExpectMenu("dropped");
  }

  void EditTheFirst() {
    outside::SelectRow(List(), 0);
    const HWND wizard = OpenWizard(IDC_FORM2_COMMAND3);
    EXPECT_TRUE(WaitForText(wizard, IDC_FORM3_TEXT4, "Notepad"));
    outside::Type(wizard, IDC_FORM3_TEXT1, library_);
    outside::Type(wizard, IDC_FORM3_TEXT3, "");
    Next(wizard);
    outside::Type(wizard, IDC_FORM3_TEXT4, "Twelve");
    Finish(wizard);
    menu_.entries[0] = {"Twelve", library_, "", "", "", "0"};
    EXPECT_EQ(outside::SelectedRow(List()), 0);
    ExpectMenu("edited");
  }

  void MoveSeparateAndDelete() {
    Press(IDC_FORM2_COMMAND8);
    std::swap(menu_.entries[0], menu_.entries[1]);
    EXPECT_EQ(outside::SelectedRow(List()), 1);
    ExpectMenu("moved_down");

    outside::SelectRow(List(), 3);
    Press(IDC_FORM2_COMMAND4);
    std::swap(menu_.entries[3], menu_.entries[2]);
    EXPECT_EQ(outside::SelectedRow(List()), 2);
    ExpectMenu("moved_up");

    Press(IDC_FORM2_COMMAND9);
    menu_.entries.insert(menu_.entries.begin() + 2, testing_menus::Separator());
    EXPECT_EQ(outside::SelectedRow(List()), -1);
    ExpectMenu("separated");

    outside::SelectRow(List(), 0);
    Press(IDC_FORM2_COMMAND7);
    menu_.entries.erase(menu_.entries.begin());
    EXPECT_EQ(outside::SelectedRow(List()), -1);
    ExpectMenu("deleted");
  }

  void ChangeAnIcon() {
    // The target of another entry, which has no icons.
    outside::SelectRow(List(), 4);
    EXPECT_EQ(menu_.entries[4].caption, "dropped file.txt");
    outside::Click(form2(), IDC_FORM2_COMMAND11);
    const HWND form4 = program().WaitFor("Form4");
    ASSERT_NE(form4, nullptr);
    EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == form4; }));
    ChooseFile(form4, IDC_FORM4_COMMAND2, kIconFileTitle, library_);
    EXPECT_TRUE(WaitForText(form4, IDC_FORM4_LABEL1, "12 Icons"));
    ScrollTo(form4, IDC_FORM4_HSCROLL1, 7);
    Photograph("select_icon");
    outside::Click(form4, IDC_FORM4_COMMAND1);
    EXPECT_TRUE(program().WaitUntilGone("Form4"));
    menu_.entries[4].iconFile = library_;
    menu_.entries[4].iconIndex = "7";
    ExpectMenu("icon_changed");
  }

  void SaveTheAppearance() {
    ShowAppearancePage();
    const HWND dialog = OpenFontDialog();
    Photograph("font_dialog");
    ChooseFont(dialog, "Liberation Mono", kBoldItalic, "14");
    ChooseFile(form2(), IDC_FORM2_COMMAND10, kIconFileTitle, library_);
    EXPECT_TRUE(WaitForText(form2(), IDC_FORM2_LABEL8, "12 Icons"));
    ScrollTo(form2(), IDC_FORM2_HSCROLL1, 5);
    ClickPreview();
    Press(IDC_FORM2_CHECK1);
    ExpectMenu("appearance_chosen");  // the file is still unchanged

    outside::Click(form2(), IDC_FORM2_COMMAND12);
    WaitForDialog("Corvalis Edit");
    menu_.picture = testing_icons::BitmapFile(
        testing_icons::PixelsOf(colours_[5], GetSysColor(COLOR_BACKGROUND)));
    menu_.appearance = "1,\"Liberation Mono\",14,-1,-1\r\n";
    ExpectMenu("appearance_saved");
    Confirm("Corvalis Edit", "You might have to refresh the desktop for the new icon to show.");
    SelectTab(0);
  }

  void SwitchToADirectoryPointer() {
    outside::Click(form2(), IDC_FORM2_COMMAND13);
    WaitForDialog("Query?");
    ExpectMenu("switch_question");
    Answer("Query?", kSwitchQuestion, IDYES);
    EXPECT_TRUE(WaitUntil([&] { return IsWindowVisible(Control(IDC_FORM2_COMMAND15)) != FALSE; }));
    menu_.isDirectory = true;
    menu_.directory = "\"C:\\\",\"*.*\",1,0,0\r\n";
    menu_.entries.clear();
    ExpectMenu("directory");

    outside::Type(form2(), IDC_FORM2_TEXT7, "C:\\windows");
    outside::Type(form2(), IDC_FORM2_TEXT8, "*.exe");
    EXPECT_EQ(outside::Text(form2(), IDC_FORM2_TEXT7), "C:\\windows\\");
    Press(IDC_FORM2_CHECK3);
    Press(IDC_FORM2_COMMAND15);
    menu_.directory = "\"C:\\windows\\\",\"*.exe\",0,0,1\r\n";
    ExpectMenu("directory_saved");
  }

  void SwitchBack() {
    outside::Click(form2(), IDC_FORM2_COMMAND14);
    Answer("Query?", kSwitchQuestion, IDYES);
    EXPECT_TRUE(WaitUntil([&] { return IsWindowVisible(List()) != FALSE; }));
    menu_.isDirectory = false;
    ExpectMenu("list_again");
  }

  void OpenItAgain() {
    outside::Click(form2(), IDC_FORM2_COMMAND5);
    EXPECT_EQ(program().WaitForExit(), 0U);
    StartAsItStands();
    WaitForForm2();
    ShowAppearancePage();
    EXPECT_EQ(SendMessageA(Control(IDC_FORM2_CHECK1), BM_GETCHECK, 0, 0), BST_CHECKED);
    ExpectMenu("opened_again");
  }

  const std::vector<COLORREF> colours_ = testing_icons::Colours(12);
  const std::string library_ = PathOf("twelve.dll");
  KnownMenu menu_;
  int steps_ = 0;
};

TEST_F(StoryTest, AMenuFromItsPreviousVersionOn) {
  const std::function<void()> steps[] = {[this] { UpgradeThePreviousVersion(); },
                                         [this] { AddWithTheWizard(); },
                                         [this] { DropFileAndFolder(); },
                                         [this] { EditTheFirst(); },
                                         [this] { MoveSeparateAndDelete(); },
                                         [this] { ChangeAnIcon(); },
                                         [this] { SaveTheAppearance(); },
                                         [this] { SwitchToADirectoryPointer(); },
                                         [this] { SwitchBack(); },
                                         [this] { OpenItAgain(); }};
  for (const auto& step : steps) {
    step();
    // The next steps need this one.
    ASSERT_FALSE(HasFailure());
  }
  ExpectCleanEnd();
}
