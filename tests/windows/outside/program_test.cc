#include "tests/windows/locked_file.h"
#include "tests/windows/outside/host.h"
#include "tests/windows/outside/outside_test_base.h"

using outside::CommandLine;
using outside::Program;
using namespace testing_menus;

namespace {

// Tests how the finished program starts and ends.
class ProgramTest : public OutsideTest {
 protected:
  std::string Quoted() const { return "\"" + MenuPath() + "\""; }

  // Starts the program with these arguments. Expects one message box that contains `name`,
  // and then an exit code other than 0.
  std::string ExpectFailure(const std::string& arguments, const std::string& name) {
    const Program editor(CommandLine{arguments}, folder());
    const HWND box = editor.WaitForFirst();
    EXPECT_NE(box, nullptr);
    if (box == nullptr) {
      return {};
    }
    EXPECT_EQ(ClassOf(box), "#32770");
    EXPECT_EQ(outside::Text(box), "Error!");
    const std::string message = outside::Text(box, outside::kMessageTextId);
    EXPECT_NE(message.find(name), std::string::npos) << message;
    EXPECT_NE(GetDlgItem(box, IDOK), nullptr);
    EXPECT_EQ(GetDlgItem(box, IDYES), nullptr);
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(editor.WaitForExit(), 1U) << message;
    EXPECT_FALSE(Exists(PathOf("temporaryfile")));
    EXPECT_FALSE(Exists(PathOf("zoltempfileoktodelete")));
    return message;
  }

  const std::string menu = UserDefinedMenu({ItemLine("One", "C:\\one.exe")});
};

TEST_F(ProgramTest, ShowsTheMenuAndEndsWithItsWindow) {
  WriteBytes(MenuPath(), menu);
  const std::pair<UINT, WPARAM> ways[] = {
      {WM_COMMAND, IDC_FORM2_COMMAND5}, {WM_CLOSE, 0}, {WM_SYSCOMMAND, SC_CLOSE}};
  for (const auto& [message, parameter] : ways) {
    const Program editor(CommandLine{Quoted()}, folder());
    const HWND window = editor.WaitForFirst();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(ClassOf(window), "Form2");
    EXPECT_EQ(outside::Text(window), "Corvalis Edit");
    EXPECT_EQ(SendMessageA(GetDlgItem(window, IDC_FORM2_LIST1), LB_GETCOUNT, 0, 0), 1);
    PostMessageA(window, message, parameter, 0);
    EXPECT_EQ(editor.WaitForExit(), 0U) << message;
  }
  EXPECT_EQ(MenuBytes(), menu);
}

TEST_F(ProgramTest, EscapeDoesNotEndIt) {
  WriteBytes(MenuPath(), menu);
  const Program editor(CommandLine{Quoted()}, folder());
  const HWND window = editor.WaitForFirst();
  ASSERT_NE(window, nullptr);
  const HWND list = GetDlgItem(window, IDC_FORM2_LIST1);
  PostMessageA(list, WM_KEYDOWN, VK_ESCAPE, 1);
  PostMessageA(list, WM_KEYUP, VK_ESCAPE, 1);
  SendMessageA(window, WM_COMMAND, IDCANCEL, 0);  // Escape sends this to a dialog box
  EXPECT_EQ(SendMessageA(list, LB_GETCOUNT, 0, 0), 1);
  EXPECT_TRUE(IsWindowVisible(window));
  PostMessageA(window, WM_CLOSE, 0, 0);
  EXPECT_EQ(editor.WaitForExit(), 0U);
}

TEST_F(ProgramTest, WhateverStandsAroundThePathIsDropped) {
  WriteBytes(MenuPath(), menu);
  for (const char* around : {"\"\"", "''", "xy"}) {
    const Program editor(CommandLine{around[0] + MenuPath() + around[1] + "  "}, folder());
    const HWND window = editor.WaitForFirst();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(ClassOf(window), "Form2") << around;
  }
}

// A shell starts the program so after the user has typed just its name.
TEST_F(ProgramTest, TheProgramsNameMayStandWithoutQuotes) {
  WriteBytes(MenuPath(), menu);
  for (const char* name :
       {"CorvalisEdit.exe", "C:\\menus\\CorvalisEdit", "\"Corvalis Edit.exe\""}) {
    const Program editor(CommandLine{" \t" + Quoted(), name}, folder());
    EXPECT_EQ(ClassOf(editor.WaitForFirst()), "Form2") << name;
  }
}

// Anybody may have put a library beside the program or into its current folder.
TEST_F(ProgramTest, LibrariesComeFromTheSystemAlone) {
  WriteBytes(MenuPath(), menu);
  const std::string copy = PathOf("CorvalisEdit.exe");
  ASSERT_TRUE(CopyFileA(outside::EditorPath().c_str(), copy.c_str(), TRUE));
  WriteBytes(PathOf("comdlg32.dll"), "no library at all");
  const Program editor(CommandLine{Quoted(), {}, copy}, folder());
  const HWND window = editor.WaitFor("Form2");
  ASSERT_NE(window, nullptr);
  outside::Click(window, IDC_FORM2_COMMAND6);
  const HWND dialog = editor.WaitFor("#32770");
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(outside::Text(dialog), "Select Font");
  outside::Click(dialog, IDCANCEL);
  EXPECT_TRUE(editor.WaitUntilGone("#32770"));
}

TEST_F(ProgramTest, ARelativePathIsOneInTheCurrentDirectory) {
  WriteBytes(MenuPath(), menu);
  const Program editor(CommandLine{"\"test.menu\""}, folder());
  EXPECT_EQ(ClassOf(editor.WaitForFirst()), "Form2");
}

// A shortcut may have a folder of the system under "Start in".
TEST_F(ProgramTest, ChangesItsMenuFromAFolderThatTakesNoFile) {
  const std::string a = ItemLine("A", "news:a");
  const std::string b = ItemLine("B", "news:b");
  WriteBytes(MenuPath(), UserDefinedMenu({a, b}));
  // /proc takes no file, not even from root.
  const Program editor(MenuPath(), "Z:\\proc");
  const HWND window = editor.WaitForFirst();
  ASSERT_EQ(ClassOf(window), "Form2");
  outside::SelectRow(GetDlgItem(window, IDC_FORM2_LIST1), 0);
  EXPECT_TRUE(outside::Press(window, IDC_FORM2_COMMAND8));
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({b, a}));
  EXPECT_FALSE(Exists(PathOf("temporaryfile")));
}

TEST_F(ProgramTest, ADirectoryPointerShowsItsPageAtOnce) {
  WriteBytes(MenuPath(), DirectoryMenu("\"C:\\windows\\\",\"*.*\",1,0,0\r\n"));
  const Program editor(CommandLine{Quoted()}, folder());
  const HWND window = editor.WaitForFirst();
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(IsWindowVisible(GetDlgItem(window, IDC_FORM2_FRAME4)));
  EXPECT_FALSE(IsWindowVisible(GetDlgItem(window, IDC_FORM2_FRAME3)));
  EXPECT_EQ(outside::Text(GetDlgItem(window, IDC_FORM2_TEXT7)), "C:\\windows\\");
}

TEST_F(ProgramTest, ANoToTheConversionEndsItWell) {
  const std::string old = "0,\"Tahoma\",8.25,0,0\r\n";
  WriteBytes(MenuPath(), old);
  const Program editor(CommandLine{Quoted()}, folder());
  const HWND box = editor.WaitForFirst();
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(outside::Text(box), "Query?");
  PostMessageA(box, WM_COMMAND, IDNO, 0);
  EXPECT_EQ(editor.WaitForExit(), 0U);
  EXPECT_EQ(MenuBytes(), old);
}

TEST_F(ProgramTest, NoPath) {
  ExpectFailure("", "path of a menu file");
  ExpectFailure("x", "path of a menu file");
  ExpectFailure("\"\"", "open");
}

TEST_F(ProgramTest, WithoutTheQuotesTheMessageAsksForThem) {
  WriteBytes(MenuPath(), menu);
  for (const std::string& arguments : {MenuPath(), Quoted() + " " + Quoted(), Quoted() + " x",
                                       "x " + Quoted(), "\"" + MenuPath()}) {
    ExpectFailure(arguments, "has to stand in double quotes");
  }
  // With the quotes, the message does not mention them.
  const std::string message = ExpectFailure("\"" + PathOf("none") + "\"", PathOf("none"));
  EXPECT_EQ(message.find("quotes"), std::string::npos);
}

TEST_F(ProgramTest, AFileThatIsMissing) {
  ExpectFailure(Quoted(), MenuPath());
  EXPECT_FALSE(Exists(MenuPath()));
  ExpectFailure("\"" + PathOf("no folder\\test.menu") + "\"", PathOf("no folder\\test.menu"));
  EXPECT_FALSE(Exists(PathOf("no folder")));
}

TEST_F(ProgramTest, AFolder) {
  ASSERT_TRUE(CreateDirectoryA(MenuPath().c_str(), nullptr));
  ExpectFailure(Quoted(), MenuPath());
  EXPECT_TRUE(Exists(MenuPath()));
}

TEST_F(ProgramTest, AFileThatMayNotBeRead) {
  WriteBytes(MenuPath(), menu);
  {
    const LockedFile held(MenuPath(), 0);
    ExpectFailure(Quoted(), MenuPath());
  }
  EXPECT_EQ(MenuBytes(), menu);
}

TEST_F(ProgramTest, AFileThatIsCutShort) {
  const std::string head = kPicture + "\r\n<START ZOL>\r\n";
  const std::pair<std::string, const char*> cases[] = {
      {head, "type line"},
      {head + "\"USERDEF\"\r\n0,\"Tahoma\",", "fontSize"},
      {head + "\"USERDEF\"\r\n" + kAppearance + ItemLine("One", "C:\\one.exe") + "\"Two\",\"C:",
       "entry 2, field target"},
      {head + "\"USERDEF\"\r\n" + kAppearance + "\r\n", "entry 1"},
      {head + "\"DIRPOINT\"\r\n" + kAppearance, "folderPath"},
      {head + "\"DIRPOINT\"\r\n" + kAppearance + "\"C:\\\",\"*.*\",1,0,", "showHiddenFiles"}};
  for (const auto& [bytes, what] : cases) {
    WriteBytes(MenuPath(), bytes);
    const std::string message = ExpectFailure(Quoted(), MenuPath());
    EXPECT_NE(message.find(what), std::string::npos) << message;
    EXPECT_NE(message.find("too early"), std::string::npos) << message;
    EXPECT_EQ(MenuBytes(), bytes);
  }
}

}  // namespace
