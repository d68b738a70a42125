#include <windows.h>

#include <commctrl.h>

#include "tests/windows/form2_test_base.h"

using namespace testing_menus;

namespace {

const std::string kSamples = CORVALIS_PROJECT_FOLDER "/samples/";
const std::string kSystem = "C:\\windows\\system32\\";

class StartUpTest : public Form2Test {
 protected:
  bool OpenSample(const std::string& name) {
    sample_ = ReadBytes(kSamples + name);
    EXPECT_GT(sample_.size(), 50U);
    return Open(sample_);
  }
  // A hidden row with "0" has no icon of its own.
  std::vector<bool> OwnIcons() {
    std::vector<bool> own;
    for (const editor::HiddenRow& row : HiddenRows()) {
      own.push_back(row.text != "0");
    }
    return own;
  }
  void ExpectQuestions(std::size_t count) {
    ASSERT_EQ(answers.Shown().size(), count);
    for (const ShownBox& box : answers.Shown()) {
      EXPECT_EQ(box.text,
                "The menu file is invalid or a previous version.\r"
                "Would you like to update the file?");
      EXPECT_EQ(box.title, "Query?");
      EXPECT_EQ(box.buttons, (Texts{"Yes", "No"}));
      // The window is not shown yet, so a box that it owned would not be in the task bar.
      EXPECT_EQ(box.owner, nullptr);
    }
  }
  static std::string DefaultPicture() {
    return ReadBytes(CORVALIS_PROJECT_FOLDER "/resources/default_menu.ico");
  }
  static std::string Converted(const std::string& old) {
    return DefaultPicture() + "\r\n<START ZOL>\r\n\"USERDEF\"\r\n" + old;
  }

  std::string sample_;
};

TEST_F(StartUpTest, ToolsSample) {
  ASSERT_TRUE(OpenSample("tools.menu"));
  const std::string separator(87, '-');
  EXPECT_EQ(Rows(), (Texts{"Notepad", "Read win.ini", "Command Prompt, opened in C:\\", separator,
                           "Registry Editor", "Task Manager", "About Windows", separator, "Drive C",
                           "Windows Folder", "Explorer", "Debian on the Web"}));
  Texts targets;
  for (const editor::HiddenRow& row : HiddenRows()) {
    targets.push_back(row.tag);
  }
  EXPECT_EQ(targets,
            (Texts{"C:\\windows\\notepad.exe", "C:\\windows\\notepad.exe", kSystem + "cmd.exe", "",
                   "C:\\windows\\regedit.exe", kSystem + "taskmgr.exe", kSystem + "winver.exe", "",
                   "C:\\", "C:\\windows", "C:\\windows\\explorer.exe", "http://www.debian.org/"}));
  EXPECT_EQ(OwnIcons()[0], true);
  EXPECT_EQ(OwnIcons()[1], false);
  EXPECT_EQ(OwnIcons()[3], false);
  EXPECT_EQ(OwnIcons()[4], true);   // an index and no file
  EXPECT_EQ(OwnIcons()[5], false);  // index 0 and no file
  EXPECT_EQ(OwnIcons()[8], true);
  EXPECT_EQ(SelectedRow(), -1);
  EXPECT_TRUE(IsVisible(IDC_FORM2_FRAME3));
  EXPECT_FALSE(IsVisible(IDC_FORM2_FRAME4));
  EXPECT_TRUE(IsChecked(IDC_FORM2_CHECK1));
  EXPECT_EQ(MenuBytes(), sample_);
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(StartUpTest, FolderSample) {
  ASSERT_TRUE(OpenSample("folder.menu"));
  EXPECT_TRUE(IsVisible(IDC_FORM2_FRAME4));
  EXPECT_FALSE(IsVisible(IDC_FORM2_FRAME3));
  EXPECT_TRUE(Rows().empty());
  EXPECT_EQ(Text(IDC_FORM2_TEXT7), "C:\\windows\\");
  EXPECT_EQ(Text(IDC_FORM2_TEXT8), "*.exe");
  EXPECT_TRUE(IsChecked(IDC_FORM2_CHECK2));
  EXPECT_FALSE(IsChecked(IDC_FORM2_CHECK3));
  EXPECT_TRUE(IsChecked(IDC_FORM2_CHECK4));
  EXPECT_FALSE(IsChecked(IDC_FORM2_CHECK1));
  EXPECT_EQ(MenuBytes(), sample_);
}

TEST_F(StartUpTest, EmptySample) {
  ASSERT_TRUE(OpenSample("empty.menu"));
  EXPECT_TRUE(Rows().empty());
  EXPECT_EQ(form().items().Hidden(0).text, "");
  EXPECT_TRUE(IsVisible(IDC_FORM2_FRAME3));
  EXPECT_EQ(MenuBytes(), sample_);
}

TEST_F(StartUpTest, PreviousVersionSampleAfterAYes) {
  ASSERT_EQ(DefaultPicture().size(), 2238U);
  answers.Answer({IDYES});
  ASSERT_TRUE(OpenSample("previous-version.menu"));
  ExpectQuestions(1);
  EXPECT_EQ(MenuBytes(), Converted(sample_));
  EXPECT_FALSE(Exists(PathOf("temporaryfile")));
  EXPECT_EQ(Rows(), (Texts{"Notepad", std::string(87, '-'), "Command Prompt", "Windows Folder"}));
  EXPECT_TRUE(IsVisible(IDC_FORM2_FRAME3));
  // The next start asks nothing.
  ASSERT_TRUE(Open(MenuBytes()));
  ExpectQuestions(1);
}

TEST_F(StartUpTest, PreviousVersionSampleAfterANo) {
  answers.Answer({IDNO});
  EXPECT_FALSE(OpenSample("previous-version.menu"));
  ExpectQuestions(1);
  EXPECT_EQ(MenuBytes(), sample_);
  EXPECT_FALSE(Exists(PathOf("temporaryfile")));
}

TEST_F(StartUpTest, AFileOfNoBytesIsAPreviousVersion) {
  answers.Answer({IDNO});
  EXPECT_FALSE(Open(""));
  ExpectQuestions(1);
  EXPECT_EQ(MenuBytes(), "");
}

TEST_F(StartUpTest, AReadOnlyPreviousVersionAsksUntilANo) {
  WriteBytes(MenuPath(), ReadBytes(kSamples + "previous-version.menu"));
  MakeReadOnly(MenuPath());
  answers.Answer({IDYES, IDYES, IDNO});
  EXPECT_FALSE(Load());
  ExpectQuestions(3);
  MakeWritable(MenuPath());
  EXPECT_EQ(MenuBytes(), ReadBytes(kSamples + "previous-version.menu"));
  EXPECT_FALSE(Exists(PathOf("temporaryfile")));
}

TEST_F(StartUpTest, APreviousVersionInUseAsksUntilANo) {
  const std::string old = ReadBytes(kSamples + "previous-version.menu");
  WriteBytes(MenuPath(), old);
  {
    const LockedFile held(MenuPath());
    answers.Answer({IDYES, IDYES, IDYES, IDNO});
    EXPECT_FALSE(Load());
  }
  ExpectQuestions(4);
  EXPECT_EQ(MenuBytes(), old);
  EXPECT_FALSE(Exists(PathOf("temporaryfile")));
}

TEST_F(StartUpTest, AFileThatOthersReadOrWriteLoads) {
  const std::string menu = UserDefinedMenu({ItemLine("One", "C:\\one.exe")});
  for (const DWORD access : {DWORD{GENERIC_READ}, DWORD{GENERIC_WRITE}}) {
    WriteBytes(MenuPath(), menu);
    const LockedFile held(MenuPath(), FILE_SHARE_READ, access);
    EXPECT_TRUE(Load());
    EXPECT_EQ(Rows(), Texts{"One"});
  }
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(StartUpTest, AMenuOfAnotherTypeShowsOnlyItsAppearance) {
  ASSERT_TRUE(Open("\r\n<START ZOL>\r\n\"OTHER\"\r\n1,\"Tahoma\",8.25,0,0\r\n\"not read\",1\r\n"));
  EXPECT_TRUE(IsVisible(IDC_FORM2_FRAME3));
  EXPECT_TRUE(Rows().empty());
  EXPECT_TRUE(IsChecked(IDC_FORM2_CHECK1));
}

TEST_F(StartUpTest, TheFirstTabIsSelected) {
  ASSERT_TRUE(Open(UserDefinedMenu({})));
  const HWND tabs = Control(IDC_FORM2_SSTAB1);
  EXPECT_EQ(SendMessageA(tabs, TCM_GETCURSEL, 0, 0), 0);
  Texts captions;
  for (int tab = 0; tab < SendMessageA(tabs, TCM_GETITEMCOUNT, 0, 0); ++tab) {
    char text[64] = "";
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    SendMessageA(tabs, TCM_GETITEMA, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
    captions.push_back(text);
  }
  EXPECT_EQ(captions, (Texts{"Contents", "Appearance", "About"}));
  EXPECT_EQ(WindowBytes(form().window()), "Corvalis Edit");
}

}  // namespace
