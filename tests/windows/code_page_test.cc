#include "editor/command_line.h"
#include "tests/windows/code_pages.h"
#include "tests/windows/icon_files.h"
#include "tests/windows/wizard_test_base.h"
#include "win32/text.h"
#include "win32/window_text.h"

using namespace testing_menus;
using win32::ToBytes;
using win32::ToText;

namespace {

// A lead byte in code pages that have lead bytes, an ordinary character in the others.
constexpr const char* kLead = "\xE3";

bool HasLeadBytes() {
  CPINFO info{};
  GetCPInfo(CP_ACP, &info);
  return info.MaxCharSize > 1;
}

std::wstring ShortNameOf(const std::wstring& path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  EXPECT_NE(search, INVALID_HANDLE_VALUE);
  FindClose(search);
  EXPECT_NE(found.cAlternateFileName[0], L'\0');
  return found.cAlternateFileName;
}

void WriteEmpty(const std::wstring& path) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  CloseHandle(file);
}

}  // namespace

// The tests run in each of the code pages (tools/code_page.sh).
class CodePageTest : public WizardTestBase {
 protected:
  // Types through the message loop, like a keyboard.
  void TypeCharacters(HWND box, const std::wstring& text) {
    for (const wchar_t half : text) {
      PostMessageW(box, WM_CHAR, half, 1);
    }
    RunMessages();
  }
  void SetWide(HWND box, const std::wstring& text) {
    SendMessageW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    RunMessages();
  }
  void Paste(HWND box, const std::wstring& text) {
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, size);
    memcpy(GlobalLock(data), text.c_str(), size);
    GlobalUnlock(data);
    ASSERT_TRUE(OpenClipboard(form().window()));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, data);
    CloseClipboard();
    SendMessageW(box, WM_PASTE, 0, 0);
    RunMessages();
  }
  void ChooseInDialog(const std::wstring& path) {
    answers.OnDialog([path](HWND dialog) {
      SetWindowTextW(FileNameBox(dialog), path.c_str());
      PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
  }
  std::wstring Row(int row) { return win32::ListText(Control(IDC_FORM2_LIST1), row); }
  void ExpectError(const std::wstring& text) {
    ASSERT_FALSE(answers.Shown().empty());
    EXPECT_EQ(answers.Shown().back().title, "Error!");
    EXPECT_EQ(answers.Shown().back().wideText, text);
  }

  const testing_pages::Page& page = testing_pages::ThisPage();

  // True if the page of the wizard shows the control, even if the wizard itself is hidden.
  bool IsOnThePage(int id) {
    return (GetWindowLongW(WizardControl(id), GWL_STYLE) & WS_VISIBLE) != 0;
  }
};

namespace {

TEST_F(CodePageTest, TextConvertsToBytesAndBack) {
  EXPECT_EQ(ToText(page.bytes), page.held);
  EXPECT_EQ(ToBytes(page.held), page.bytes);
  EXPECT_EQ(ToBytes(page.held + page.other), std::nullopt);
  EXPECT_EQ(ToBytes(L"\xD800"), std::nullopt);
  EXPECT_EQ(ToBytes(L"\xFFFD"), std::nullopt);
  EXPECT_EQ(ToText(""), L"");
  int lost = 0;
  for (int byte = 1; byte < 0x100; ++byte) {
    const std::string one(1, static_cast<char>(byte));
    const std::wstring text = ToText(one);
    lost += text == L"\xFFFD" ? 1 : 0;
    EXPECT_TRUE(text == L"\xFFFD" || ToBytes(text) == one) << byte;
    // The character after it is not a part of it.
    EXPECT_EQ(ToText(std::string("\"" + one + "\"")), L"\"" + text + L"\"") << byte;
  }
  EXPECT_EQ(lost > 0, HasLeadBytes());
}

TEST_F(CodePageTest, BoxesTakeTypedPastedAndSetTextAndRefuseTheRest) {
  ASSERT_TRUE(OpenLines({}));
  OpenAdd();
  TypeCharacters(WizardControl(kTarget), L"news:" + page.held);
  // Characters that the code page does not have are refused.
  TypeCharacters(WizardControl(kArguments), L"-" + page.held + page.other + L"z");
  Paste(WizardControl(kArguments), page.other);
  Paste(WizardControl(kStartIn), page.held + L"\r\n" + page.other);
  PressWizard(kNext);
  SetWide(WizardControl(kName), L"b" + page.held);
  PressWizard(kFinish);
  ExpectSettled(
      {ItemLine("b" + page.bytes, "news:" + page.bytes, "-" + page.bytes + "z", page.bytes)});
  EXPECT_EQ(Row(0), L"b" + page.held);
}

TEST_F(CodePageTest, FinishTellsWhichBoxCannotBeSaved) {
  const std::string line = ItemLine("Name", "news:x", "-x", "C:\\");
  ASSERT_TRUE(OpenLines({line}));
  OpenEdit(0);
  PressWizard(kNext);
  const struct {
    int box;
    const wchar_t* name;
  } boxes[] = {{kName, L"name"},
               {kTarget, L"target"},
               {kArguments, L"command line"},
               {kStartIn, L"start in folder"}};
  for (const auto& box : boxes) {
    const std::wstring before = win32::WindowText(WizardControl(box.box));
    SetWide(WizardControl(box.box), page.other);
    PressWizard(kFinish);
    ASSERT_NE(Wizard(), nullptr);
    ExpectError(std::wstring(L"The ") + box.name + L" " + page.other +
                L" cannot be saved. It has characters that a menu file cannot hold.");
    SetWide(WizardControl(box.box), before);
  }
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({line}));
  PressWizard(kFinish);
  EXPECT_EQ(Wizard(), nullptr);
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({line}));
}

TEST_F(CodePageTest, ATargetGetsShortNamesOnlyWhereItNeedsThem) {
  const std::wstring part = L"x" + page.other;
  ASSERT_TRUE(CreateDirectoryW(WidePathOf(L"held " + page.held).c_str(), nullptr));
  ASSERT_TRUE(CreateDirectoryW(WidePathOf(L"held " + page.held + L"\\" + part).c_str(), nullptr));
  const std::wstring inside = WidePathOf(L"held " + page.held + L"\\" + part);
  WriteEmpty(inside + L"\\file.txt");
  const std::wstring stored = WidePathOf(L"held " + page.held + L"\\" + ShortNameOf(inside));
  ASSERT_TRUE(OpenLines({}));
  OpenAdd();
  SetWide(WizardControl(kTarget), inside + L"\\*.txt");
  PressWizard(kNext);
  EXPECT_EQ(win32::WindowText(WizardControl(kTarget)), stored + L"\\*.txt");
  SetWide(WizardControl(kName), L"name");
  PressWizard(kFinish);
  ExpectSettled({ItemLine("name", ToBytes(stored + L"\\*.txt").value())});
}

// A file with a similar name is not accepted instead, and a question mark that a
// conversion makes is no wildcard.
TEST_F(CodePageTest, AFileWithASimilarNameIsNotTheTarget) {
  for (const wchar_t* name : {L"eb.txt", L"Lb.txt", L"b.txt", L"xb.txt"}) {
    WriteEmpty(WidePathOf(name));
  }
  ASSERT_TRUE(OpenLines({}));
  OpenAdd();
  for (const std::wstring& name :
       {page.other + L"b.txt", page.other + L"*", page.other + L"\\b.txt", page.other}) {
    SetWide(WizardControl(kTarget), WidePathOf(name));
    PressWizard(kNext);
    ExpectError(L"File " + WidePathOf(name) + L" cannot be accessed. Please check the path.");
    EXPECT_TRUE(IsOnThePage(kTarget));
  }
  PressWizard(kCancel);
}

// More than two hundred characters may be four hundred bytes.
TEST_F(CodePageTest, APathIsTooLongByItsCharacters) {
  std::wstring path =
      WidePathOf(std::wstring(70, page.held[0] == L'a' ? page.held[1] : page.held[0]));
  ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
  path += L"\\" + std::wstring(258 - path.size() - 61, L'd');
  ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
  path += L"\\" + path.substr(ToText(folder()).size() + 1, 60);
  ASSERT_EQ(path.size(), 259U);
  WriteEmpty(path);
  ASSERT_TRUE(OpenLines({}));
  OpenAdd();
  SetWide(WizardControl(kTarget), path);
  PressWizard(kNext);
  ASSERT_TRUE(IsOnThePage(kName));
  EXPECT_EQ(win32::WindowText(WizardControl(kName)), path.substr(path.size() - 60));
  PressWizard(kFinish);
  ExpectSettled({ItemLine(ToBytes(path.substr(path.size() - 60)).value(), ToBytes(path).value())});
}

TEST_F(CodePageTest, AllFileDialogsTakeTheName) {
  const std::wstring path = WidePathOf(page.held + page.other + L".dll");
  WriteBytes(PathOf("plain.dll"), testing_icons::Library({RGB(1, 2, 3), RGB(4, 5, 6)}));
  ASSERT_TRUE(CopyFileW(WidePathOf(L"plain.dll").c_str(), path.c_str(), FALSE));
  const std::string bytes = ToBytes(WidePathOf(ShortNameOf(path))).value();
  ASSERT_TRUE(OpenLines({ItemLine("Name", bytes)}));

  SelectTab(1);
  ChooseInDialog(path);
  Press(IDC_FORM2_COMMAND10);
  EXPECT_EQ(Text(IDC_FORM2_LABEL8), "2 Icons");
  SelectTab(0);

  SelectRow(0);
  Press(IDC_FORM2_COMMAND11);
  const HWND form4 = FindWindowW(L"Form4", nullptr);
  ASSERT_NE(form4, nullptr);
  ChooseInDialog(path);
  SendMessageW(GetDlgItem(form4, IDC_FORM4_COMMAND2), BM_CLICK, 0, 0);
  RunMessages();
  SendMessageW(GetDlgItem(form4, IDC_FORM4_COMMAND1), BM_CLICK, 0, 0);
  RunMessages();
  EXPECT_TRUE(answers.Shown().empty());
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({ItemLine("Name", bytes, "", "", bytes, "0")}));

  OpenEdit(0);
  ChooseInDialog(path);
  PressWizard(IDC_FORM3_COMMAND3);
  EXPECT_EQ(win32::WindowText(WizardControl(kTarget)), path);
  PressWizard(kNext);
  PressWizard(kFinish);
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({ItemLine("Name", bytes, "", "", bytes, "0")}));
}

TEST_F(CodePageTest, DroppedFilesKeepTheirNamesOrGetShortOnes) {
  WriteEmpty(WidePathOf(page.held));
  const std::wstring part = L"x" + page.other;
  WriteEmpty(WidePathOf(part));
  const std::wstring shortName = ShortNameOf(WidePathOf(part));
  const std::string target = ToBytes(WidePathOf(shortName)).value();
  ASSERT_TRUE(OpenLines({}));
  Drop({WidePathOf(page.held), WidePathOf(part), L"C:\\"});
  ASSERT_EQ(Rows().size(), 3U);
  EXPECT_EQ(Row(0), page.held);
  EXPECT_EQ(Row(1), shortName);
  EXPECT_NE(Row(2), std::wstring(editor::SeparatorText));
  const std::string drive = ToBytes(Row(2)).value();
  ExpectSettled({ItemLine(page.bytes, PathOf(page.bytes)),
                 ItemLine(ToBytes(shortName).value(), target), ItemLine(drive, "C:\\")});
  EXPECT_EQ(HiddenTag(1), target);
  EXPECT_EQ(HiddenIcon(1), "0");
}

TEST_F(CodePageTest, AnEntryIsLoadedMovedEditedAndSaved) {
  const auto line = [&](const std::string& name) {
    return ItemLine(name, "news:" + page.bytes, page.bytes, page.bytes, page.bytes, "0");
  };
  const std::string other = ItemLine("Other", "C:\\other");
  ASSERT_TRUE(OpenLines({line(page.bytes), other}));
  EXPECT_EQ(Row(0), page.held);
  SelectRow(0);
  Press(IDC_FORM2_COMMAND8);
  EXPECT_EQ(Row(1), page.held);
  OpenEdit(1);
  PressWizard(kNext);
  EXPECT_EQ(win32::WindowText(WizardControl(kName)), page.held);
  SendMessageW(WizardControl(kName), EM_SETSEL, 0, 0);
  TypeCharacters(WizardControl(kName), page.held);
  PressWizard(kFinish);
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({other, line(page.bytes + page.bytes)}));
  EXPECT_EQ(Row(1), page.held + page.held);
  Press(IDC_FORM2_COMMAND4);
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({line(page.bytes + page.bytes), other}));
}

TEST_F(CodePageTest, ALoneLeadByteGoesBackAsItWas) {
  const std::string lead = kLead;
  const std::string appearance = "0,\"Taho" + lead + "\",8.25,0,0\r\n";
  const std::string line =
      ItemLine("Caf" + lead, "news:" + lead, "-x " + lead, "C:\\" + lead, "C:\\i" + lead, "0");
  const std::string other = ItemLine("aurant menu", "C:\\windows\\notepad.exe", "", lead);
  const std::string menu = UserDefinedMenu({line, other}, appearance);
  ASSERT_TRUE(Open(menu));
  const std::wstring shown = L"Caf" + ToText(lead);
  EXPECT_EQ(shown.size(), 4U);
  EXPECT_EQ(shown[3] == L'\xFFFD', HasLeadBytes());
  EXPECT_EQ(Row(0), shown);
  EXPECT_EQ(Row(1), L"aurant menu");
  SelectRow(0);
  Press(IDC_FORM2_COMMAND8);
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({other, line}, appearance));
  EXPECT_EQ(Row(1), shown);
  Press(IDC_FORM2_COMMAND4);
  EXPECT_EQ(MenuBytes(), menu);

  OpenEdit(0);
  PressWizard(kNext);
  EXPECT_EQ(win32::WindowText(WizardControl(kName)), shown);
  PressWizard(kFinish);
  ASSERT_EQ(Wizard(), nullptr);
  EXPECT_EQ(MenuBytes(), menu);

  // Together with a typed character it might become another character.
  OpenEdit(0);
  PressWizard(kNext);
  SetWide(WizardControl(kName), shown + L"\\");
  PressWizard(kFinish);
  if (HasLeadBytes()) {
    ExpectError(L"The name " + shown +
                L"\\ cannot be saved. It has characters that a menu file cannot hold.");
    SetWide(WizardControl(kName), L"Caf\\");
    PressWizard(kFinish);
    EXPECT_EQ(Row(0), L"Caf\\");
  } else {
    EXPECT_EQ(Row(0), shown + L"\\");
  }
  EXPECT_NE(MenuBytes().find(line.substr(line.find(","))), std::string::npos);

  SelectTab(1);
  Press(IDC_FORM2_COMMAND12);
  EXPECT_NE(MenuBytes().find(appearance), std::string::npos);
}

TEST_F(CodePageTest, TheDirectoryPageKeepsAndRefusesBytes) {
  const std::string lead = kLead;
  const std::string line = "\"K:\\" + lead + "\",\"*." + lead + "\",1,0,1\r\n";
  ASSERT_TRUE(Open(DirectoryMenu(line)));
  Press(IDC_FORM2_COMMAND15);
  // A backslash after it would be its second byte.
  const bool takesBackslash = page.number == 932 || page.number == 936;
  EXPECT_EQ(MenuBytes(), DirectoryMenu("\"K:\\" + lead + (takesBackslash ? "" : "\\") + "\",\"*." +
                                       lead + "\",1,0,1\r\n"));

  const std::string saved = "\"K:\\" + page.bytes + "\\\",\"" + page.bytes + "\",1,0,1\r\n";
  SetWide(Control(IDC_FORM2_TEXT7), L"K:\\" + page.held);
  SetWide(Control(IDC_FORM2_TEXT8), L"");
  TypeCharacters(Control(IDC_FORM2_TEXT8), page.other + page.held);
  Press(IDC_FORM2_COMMAND15);
  EXPECT_TRUE(answers.Shown().empty());
  EXPECT_EQ(MenuBytes(), DirectoryMenu(saved));

  ShowWindow(form().window(), SW_SHOWNA);
  SetWide(Control(IDC_FORM2_TEXT7), L"K:\\x" + page.other);
  Press(IDC_FORM2_COMMAND15);
  ExpectError(L"The path K:\\x" + page.other +
              L"\\ cannot be saved. It has characters that a menu file cannot hold.");
  SetWide(Control(IDC_FORM2_TEXT7), L"K:\\" + page.held);
  SetWide(Control(IDC_FORM2_TEXT8), L"x" + page.other);
  Press(IDC_FORM2_COMMAND15);
  ExpectError(L"The file pattern x" + page.other +
              L" cannot be saved. It has characters that a menu file cannot hold.");
  EXPECT_EQ(MenuBytes(), DirectoryMenu(saved));
}

TEST_F(CodePageTest, AFolderIsOpenedByItsOwnName) {
  const std::wstring name = page.held + page.other;
  ASSERT_TRUE(CreateDirectoryW(WidePathOf(name).c_str(), nullptr));
  ASSERT_TRUE(CreateDirectoryW((WidePathOf(name) + L"\\inside").c_str(), nullptr));
  // A file with a similar name.
  CreateDirectoryW(WidePathOf(page.held + L"L").c_str(), nullptr);
  CreateDirectoryW(WidePathOf(page.held + L"e").c_str(), nullptr);
  ASSERT_TRUE(Open(DirectoryMenu("\"" + folder() + "\",\"*.*\",1,0,1\r\n")));
  const HWND list = Control(IDC_FORM2_DIR1);
  const LRESULT row = SendMessageW(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                   reinterpret_cast<LPARAM>(name.c_str()));
  ASSERT_NE(row, LB_ERR);
  SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
  PostMessageW(list, WM_CHAR, L'\r', 1);
  RunMessages();
  const int count = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
  EXPECT_EQ(win32::ListText(list, count - 1), L"inside");
  Press(IDC_FORM2_COMMAND15);
  EXPECT_TRUE(answers.Shown().empty());
  const std::wstring stored = ShortNameOf(WidePathOf(name));
  EXPECT_EQ(win32::WindowText(Control(IDC_FORM2_TEXT7)), WidePathOf(stored) + L"\\");
  EXPECT_EQ(MenuBytes(),
            DirectoryMenu("\"" + ToBytes(WidePathOf(stored)).value() + "\\\",\"*.*\",1,0,1\r\n"));
}

TEST_F(CodePageTest, TheCommandLineNamesAFileOrIsRefused) {
  using editor::MenuFilePath;
  EXPECT_EQ(MenuFilePath(L"\"C:\\" + page.held + L".menu\""), "C:\\" + page.bytes + ".menu");
  EXPECT_EQ(MenuFilePath(page.held.substr(0, 1) + L"x.menu" + page.held[0]), "x.menu");
  const std::wstring path = WidePathOf(L"a" + page.other + L".menu");
  try {
    MenuFilePath(L"\"" + path + L"\"");
    ADD_FAILURE();
  } catch (const win32::TextFailure& failure) {
    EXPECT_EQ(failure.text(), L"Cannot open the file:\n" + path +
                                  L"\n\nIts name has characters that the programs of this "
                                  L"system's code page cannot use.");
  }
  WriteEmpty(path);
  EXPECT_EQ(MenuFilePath(L"\"" + path + L"\""), ToBytes(WidePathOf(ShortNameOf(path))));
}

}  // namespace
