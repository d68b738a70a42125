#include <windows.h>

#include <shlobj.h>

#include <cstdlib>

#include "menufile/menu_file.h"
#include "menufile/scratch_file.h"
#include "tests/windows/appearance_test_base.h"
#include "tests/windows/faulty_files.h"
#include "tests/windows/replaced_import.h"
#include "win32/text.h"

using namespace testing_menus;

namespace {

const std::string kLine = "1,\"Liberation Sans\",9.75,0,0\r\n";

}  // namespace

class AppearanceTest : public AppearanceTestBase {
 protected:
  std::string EmptyPicture() const { return testing_icons::BitmapFile(Empty()); }

  void Choose(const std::string& path) {
    ChooseInDialog(path);
    Press(IDC_FORM2_COMMAND10);
  }

  void ExpectSaved() {
    ExpectBoxes(1, "Corvalis Edit",
                "You might have to refresh the desktop for the new icon to show.");
    EXPECT_FALSE(Exists(scratch));
    EXPECT_EQ(ExitCode(), std::nullopt);
  }
  // Expects the message, and the end of the program as after closing the window.
  void ExpectWriteError(std::size_t boxes = 1) {
    ExpectBoxes(boxes, "Error!", "Error writing to file.");
    EXPECT_EQ(form().window(), nullptr);
    EXPECT_EQ(ExitCode(), EXIT_SUCCESS);
  }

  const std::string scratch = menufile::kDialogScratchFile;
};

TEST_F(AppearanceTest, SaveReplacesThePictureAndTheAppearanceAndKeepsTheRest) {
  OpenPage(Menu("0,\"Tahoma\",8.25,0,-1\r\n"));
  const Texts rows = Rows();
  const std::vector<editor::HiddenRow> hidden = HiddenRows();
  SelectRow(0);
  Choose(twelve);
  Scroll(Control(IDC_FORM2_HSCROLL1), SB_THUMBPOSITION, 7);
  Press(IDC_FORM2_CHECK1);
  Save();
  ExpectSaved();
  EXPECT_EQ(MenuBytes(),
            Menu("1,\"Tahoma\",8.25,0,-1\r\n", testing_icons::BitmapFile(Showing(colours[7]))));
  EXPECT_EQ(Rows(), rows);
  EXPECT_EQ(SelectedRow(), 0);
  EXPECT_EQ(HiddenRows()[0].text, hidden[0].text);
}

TEST_F(AppearanceTest, SaveTellsTheShell) {
  static std::wstring told;
  const ReplacedImport notify(
      "SHChangeNotify", +[](LONG event, UINT flags, const void* item, const void*) {
        EXPECT_EQ(event, SHCNE_UPDATEITEM);
        EXPECT_EQ(flags, UINT{SHCNF_PATHW});
        told = static_cast<const wchar_t*>(item);
      });
  OpenPage(Menu("0,\"Tahoma\",8.25,0,0\r\n"));
  Save();
  EXPECT_EQ(win32::ToBytes(told), MenuPath());
}

TEST_F(AppearanceTest, TheSavedPictureIsThatOfTheScreen) {
  OpenPage(Menu("0,\"Tahoma\",8.25,0,0\r\n"));
  Choose(two);
  SendMessageA(Control(IDC_FORM2_PICTURE1), WM_LBUTTONDOWN, MK_LBUTTON, 0);
  Save();
  ExpectSaved();
  const std::vector<COLORREF> expected =
      testing_icons::PixelsOf(colours[0], GetSysColor(COLOR_BACKGROUND));
  EXPECT_EQ(Painted(IDC_FORM2_PICTURE1), expected);
  EXPECT_EQ(MenuBytes(), Menu("0,\"Tahoma\",8.25,0,0\r\n", testing_icons::BitmapFile(expected)));
}

TEST_F(AppearanceTest, WindowsReadsTheSavedPicture) {
  OpenPage(Menu("0,\"Tahoma\",8.25,0,0\r\n"));
  Choose(two);
  Save();
  ExpectSaved();
  const win32::UniqueBitmap bitmap(static_cast<HBITMAP>(
      LoadImageA(nullptr, MenuPath().c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE)));
  ASSERT_TRUE(bitmap);
  const win32::UniqueMemoryDc dc(CreateCompatibleDC(nullptr));
  const win32::SelectedObject selected(dc.get(), bitmap.get());
  EXPECT_EQ(GetPixel(dc.get(), 0, 0), testing_icons::kWhite);
  EXPECT_EQ(GetPixel(dc.get(), 31, 0), colours[0]);
  EXPECT_EQ(GetPixel(dc.get(), 0, 31), colours[0]);
  EXPECT_EQ(GetPixel(dc.get(), 31, 31), GetSysColor(COLOR_BTNFACE));
}

TEST_F(AppearanceTest, WithoutAChoiceTheEmptyBoxIsSaved) {
  const std::string line = "1,\"MS Sans Serif\",10,-1,0\r\n";
  OpenPage(Menu(line));
  Save();
  ExpectSaved();
  EXPECT_EQ(MenuBytes(), Menu(line, EmptyPicture()));
}

TEST_F(AppearanceTest, ASecondSaveWritesTheSame) {
  OpenPage(Menu(kLine));
  Choose(one);
  Save();
  const std::string first = MenuBytes();
  Save();
  EXPECT_EQ(MenuBytes(), first);
  EXPECT_EQ(answers.Shown().size(), 2U);
  Choose(none);
  Save();
  EXPECT_EQ(MenuBytes(), Menu(kLine, EmptyPicture()));
}

TEST_F(AppearanceTest, ThePageIsUsableAtOnce) {
  OpenPage(Menu(kLine));
  for (const int id : {IDC_FORM2_COMMAND6, IDC_FORM2_COMMAND10, IDC_FORM2_COMMAND12,
                       IDC_FORM2_CHECK1, IDC_FORM2_PICTURE1, IDC_FORM2_TEXT3}) {
    EXPECT_TRUE(IsVisible(id) && IsEnabled(id)) << id;
  }
  SendMessageW(Control(IDC_FORM2_TEXT3), WM_CHAR, 'x', 0);
  EXPECT_EQ(Text(IDC_FORM2_TEXT3), "xMenu Text will look like this.");
  EXPECT_FALSE(IsVisible(IDC_FORM2_PICTURE2));
  EXPECT_TRUE(IsChecked(IDC_FORM2_CHECK1));
}

TEST_F(AppearanceTest, AnyOtherTypeIsSavedAsAList) {
  OpenPage("\r\n<START ZOL>\r\n\"OTHER\"\r\n0,\"Liberation Sans\",9,0,0\r\n" + ItemLine("A", "B"));
  Save();
  ExpectSaved();
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({ItemLine("A", "B")}, "0,\"Liberation Sans\",9,0,0\r\n",
                                         EmptyPicture()));
}

TEST_F(AppearanceTest, ADirectoryPointerIsNotSavedAndKeepsItsBytes) {
  const std::string menu = DirectoryMenu("\"C:\\\",\"*.*\",1,0,0\r\n");
  OpenPage(menu);
  Save();
  ExpectWriteError();
  EXPECT_EQ(MenuBytes(), menu);
}

TEST_F(AppearanceTest, AMenuThatIsGoneOrHasNoMarkerIsNotSaved) {
  for (const bool isGone : {true, false}) {
    OpenPage(Menu(kLine));
    WriteBytes(MenuPath(), "no marker");
    ASSERT_TRUE(!isGone || DeleteFileA(MenuPath().c_str()));
    Save();
    ExpectWriteError(isGone ? 1 : 2);
    EXPECT_EQ(Exists(MenuPath()), !isGone);
    EXPECT_EQ(MenuBytes(), isGone ? "" : "no marker");
  }
}

TEST_F(AppearanceTest, AMenuThatCannotBeWrittenStays) {
  std::size_t boxes = 0;
  for (const Obstacle& obstacle : Obstacles()) {
    SCOPED_TRACE(obstacle.name);
    OpenPage(Menu(kLine));
    obstacle.make();
    Save();
    obstacle.remove();
    ExpectWriteError(++boxes);
    EXPECT_EQ(MenuBytes(), Menu(kLine));
  }
}

TEST_F(AppearanceTest, ThatFailsHalfWayIsFinishedByTheNextStart) {
  FaultyFiles full(windowsFiles);
  files = &full;
  OpenPage(Menu(kLine));
  full.FillDiskOf("test.menu", 100);
  Save();
  // The window tries to finish it when it closes.
  ASSERT_EQ(answers.Shown().size(), 2U);
  EXPECT_EQ(answers.Shown()[0].text, "Error writing to file.");
  EXPECT_EQ(answers.Shown()[1].title, "Error!");
  EXPECT_TRUE(answers.Shown()[1].text.starts_with("Cannot write the file:\n" + MenuPath()));
  EXPECT_EQ(ExitCode(), EXIT_SUCCESS);
  menufile::MenuFile next(windowsFiles, MenuPath());
  ASSERT_TRUE(next.WasCutShort());
  next.AnswerYes();
  EXPECT_EQ(MenuBytes(), Menu(kLine, EmptyPicture()));
}

// Otherwise a reader would find the marker in the middle of the picture.
TEST_F(AppearanceTest, APictureWithTheMarkerInItIsNotSaved) {
  const std::string menu = Menu(kLine);
  OpenPage(menu);
  Choose(Write("marker.ico", testing_icons::IconFileHolding("\r\n<START ZOL>\r\n\r\n\r\n")));
  Save();
  ExpectWriteError();
  EXPECT_EQ(MenuBytes(), menu);
}
