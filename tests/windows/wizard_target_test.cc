#include "tests/windows/code_pages.h"
#include "tests/windows/wizard_test_base.h"
#include "win32/form.h"

namespace {

constexpr int kBrowse = IDC_FORM3_COMMAND3;

}  // namespace

// Tests which targets the first page accepts, and its Browse button.
class WizardTargetTest : public WizardTestBase {
 protected:
  void SetUp() override {
    ASSERT_TRUE(OpenLines({}));
    OpenAdd();
  }

  void ExpectAccepted(const std::string& target) {
    SCOPED_TRACE(target);
    Next(target);
    EXPECT_TRUE(answers.Shown().empty());
    ExpectNamePage();
    PressWizard(kBack);
  }

  void ExpectRefused(const std::string& target) {
    SCOPED_TRACE(target);
    const std::size_t before = answers.Shown().size();
    const int defaultButton = DefaultButton();
    Next(target);
    ExpectBoxes(before + 1, "Error!",
                "File " + target + " cannot be accessed. Please check the path.");
    ExpectTargetPage(defaultButton);
    EXPECT_EQ(WizardText(kTarget), target);
    EXPECT_TRUE(IsWindowEnabled(Wizard()));
  }

  static std::string CurrentFolder() {
    char path[MAX_PATH] = "";
    GetCurrentDirectoryA(MAX_PATH, path);
    return path;
  }
};

TEST_F(WizardTargetTest, SixPrefixesNeedNoFile) {
  for (const char* target :
       {"http://", "http://example.org", "ftp://x", "mailto:", "mailto:a@b", "gopher://x",
        "telnet://x", "news:", "news:group", "http://a|b<>\"*?", "mailto:\x01"}) {
    ExpectAccepted(target);
  }
  ExpectAccepted("mailto:" + testing_pages::ThisPage().bytes);
  ExpectAccepted("http://" + std::string(20000, 'x'));
}

TEST_F(WizardTargetTest, OtherPrefixesAreFiles) {
  for (const char* target :
       {"https://example.org", "HTTP://example.org", "Http://x", "Mailto:x", "file://x", "news",
        "telnet:x", " http://x", "http:/x", "ftp:/x", "gopher:x"}) {
    ExpectRefused(target);
  }
}

TEST_F(WizardTargetTest, AcceptsFilesAndFoldersWithAnyAttribute) {
  WriteBytes(PathOf("plain.txt"), "");
  for (const std::string& target :
       Texts{PathOf("plain.txt"), "plain.txt", folder(), folder() + "\\", "C:\\windows",
             "C:\\windows\\", "C:\\", "c:/windows/notepad.exe", ".", ".."}) {
    ExpectAccepted(target);
  }
  Make("empty");
  ExpectAccepted(PathOf("empty"));
  ExpectAccepted(PathOf("empty") + "\\");
  int number = 0;
  for (const DWORD attributes :
       {FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_SYSTEM, FILE_ATTRIBUTE_READONLY,
        FILE_ATTRIBUTE_ARCHIVE, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM}) {
    const std::string path = PathOf("file" + std::to_string(++number));
    WriteBytes(path, "");
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), static_cast<DWORD>(attributes)));
    ExpectAccepted(path);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  }
  ASSERT_TRUE(
      SetFileAttributesA(PathOf("empty").c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM));
  ExpectAccepted(PathOf("empty"));
}

TEST_F(WizardTargetTest, AcceptsPatternsThatMatch) {
  WriteBytes(PathOf("one.exe"), "");
  for (const std::string& target :
       Texts{PathOf("*.exe"), PathOf("o?e.exe"), PathOf("*"), "*.exe", "C:\\windows\\*.exe"}) {
    ExpectAccepted(target);
  }
  ExpectRefused(PathOf("*.com"));
  ExpectRefused(PathOf("x*"));
  ExpectRefused("C:\\*\\notepad.exe");
}

TEST_F(WizardTargetTest, RefusesWhatDoesNotExist) {
  ExpectRefused(PathOf("missing.txt"));
  ExpectRefused(PathOf("missing") + "\\file.txt");
  ExpectRefused(PathOf("missing") + "\\");
  WriteBytes(PathOf("plain.txt"), "");
  ExpectRefused(PathOf("plain.txt") + "\\");
  for (const std::string& target :
       Texts{"Q:\\", "Q:\\file.txt", "q:", "\\\\no_such_server\\share\\file.txt"}) {
    ExpectRefused(target);
  }
  ExpectRefused("\"" + PathOf("plain.txt") + "\"");
}

TEST_F(WizardTargetTest, RefusesCharactersThatNoFileCanHave) {
  WriteBytes(PathOf("plain.txt"), "");
  for (const char* name : {"plain<", "plain>txt", "plain\"txt", "a|b", "plain.txt|", "a:b:c",
                           "::", "\x01", "tab\there", "<", ">", "|", "plain.\"*"}) {
    ExpectRefused(name);
    ExpectRefused(PathOf(name));
  }
}

TEST_F(WizardTargetTest, RefusesPathsThatAreTooLong) {
  // The longest path that Windows accepts has 259 characters.
  std::string longest = folder();
  while (longest.size() + 101 < 259) {
    longest += "\\" + std::string(99, 'd');
    ASSERT_TRUE(CreateDirectoryA(longest.c_str(), nullptr));
  }
  longest += "\\";
  longest += std::string(259 - longest.size(), 'f');
  WriteBytes(longest, "");
  ASSERT_TRUE(Exists(longest));
  ExpectAccepted(longest);
  for (const std::string& target :
       Texts{longest + "f", longest.substr(0, longest.size() - 1) + "*\\",
             "C:\\" + std::string(257, 'x'), "C:\\" + std::string(5000, 'x'),
             std::string(30000, '\\'), std::string(260, '.')}) {
    ExpectRefused(target);
  }
}

TEST_F(WizardTargetTest, BrowseTakesTheChosenFile) {
  WriteBytes(PathOf("chosen.exe"), "");
  std::string title;
  Texts filters;
  answers.OnDialog([&](HWND dialog) {
    title = WindowBytes(dialog);
    const HWND types = GetDlgItem(dialog, 0x470);  // the list of file types
    for (int row = 0; row < SendMessageA(types, CB_GETCOUNT, 0, 0); ++row) {
      char text[256] = "";
      SendMessageA(types, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
      filters.push_back(text);
    }
    const HWND name = FileNameBox(dialog);
    EXPECT_EQ(WindowBytes(name), "");
    SetWindowTextA(name, PathOf("chosen.exe").c_str());
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
  });
  TypeWizard(kTarget, "something else");
  const std::string before = CurrentFolder();
  PressWizard(kBrowse);
  EXPECT_EQ(title, "Select Program");
  EXPECT_EQ(filters, (Texts{"Program Files", "All files"}));
  EXPECT_EQ(WizardText(kTarget), PathOf("chosen.exe"));
  EXPECT_TRUE(IsWizardEnabled(kNext));
  EXPECT_EQ(CurrentFolder(), before);
}

TEST_F(WizardTargetTest, BrowseInAnotherFolderKeepsTheCurrentDirectory) {
  answers.OnDialog([&](HWND dialog) {
    SetWindowTextA(FileNameBox(dialog), "C:\\windows\\notepad.exe");
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
  });
  const std::string before = CurrentFolder();
  PressWizard(kBrowse);
  EXPECT_EQ(WizardText(kTarget), "C:\\windows\\notepad.exe");
  EXPECT_EQ(CurrentFolder(), before);
}

// The dialog changes the current directory to the folder that the user enters.
TEST_F(WizardTargetTest, EnteringAFolderInBrowseKeepsTheCurrentDirectory) {
  Make("inside");
  WriteBytes(PathOf("inside\\chosen.exe"), "");
  for (const UINT button : {IDOK, IDCANCEL}) {
    SCOPED_TRACE(button);
    bool entered = false;
    answers.OnDialog([&](HWND dialog) {
      const HWND name = FileNameBox(dialog);
      SetWindowTextA(name, PathOf("inside").c_str());
      SendMessageA(dialog, WM_COMMAND, IDOK, 0);
      entered = IsWindow(dialog) != FALSE;  // it stays open, on that folder
      // Windows' dialog does this at once, Wine's when it closes.
      SetCurrentDirectoryA(PathOf("inside").c_str());
      SetWindowTextA(name, "chosen.exe");
      PostMessageA(dialog, WM_COMMAND, button, 0);
    });
    const std::string before = CurrentFolder();
    PressWizard(kBrowse);
    EXPECT_TRUE(entered);
    EXPECT_EQ(WizardText(kTarget), button == IDOK ? PathOf("inside\\chosen.exe") : "");
    EXPECT_EQ(CurrentFolder(), before);
  }
}

TEST_F(WizardTargetTest, ABrowseDialogThatFailsChangesNothing) {
  TypeWizard(kTarget, "C:\\windows\\notepad.exe");
  const std::string before = CurrentFolder();
  answers.OnDialog([](HWND dialog) {
    // The program asks for the error of the last dialog after this one has closed. A
    // printing dialog without its record makes that an error.
    using PrintDialog = BOOL WINAPI(void*);
    const auto print = reinterpret_cast<PrintDialog*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("comdlg32.dll"), "PrintDlgA")));
    EXPECT_FALSE(print(nullptr));
    SetCurrentDirectoryA("C:\\windows");
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
  });
  PressWizard(kBrowse);
  ASSERT_NE(Wizard(), nullptr);
  EXPECT_EQ(WizardText(kTarget), "C:\\windows\\notepad.exe");
  EXPECT_TRUE(IsWizardEnabled(kNext));
  EXPECT_TRUE(IsWindowEnabled(Wizard()));
  EXPECT_EQ(CurrentFolder(), before);
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(WizardTargetTest, CancellingBrowseEmptiesTheBox) {
  TypeWizard(kTarget, "C:\\windows\\notepad.exe");
  answers.OnDialog([](HWND dialog) { PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); });
  PressWizard(kBrowse);
  EXPECT_EQ(WizardText(kTarget), "");
  EXPECT_FALSE(IsWizardEnabled(kNext));
  EXPECT_TRUE(IsWindowEnabled(Wizard()));
  EXPECT_FALSE(IsWindowEnabled(form().window()));
}
