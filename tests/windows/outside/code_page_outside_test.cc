#include "tests/windows/code_pages.h"
#include "tests/windows/outside/keyboard.h"
#include "tests/windows/outside/outside_test_base.h"

using outside::WaitUntil;
using namespace testing_menus;

namespace {

std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

std::wstring WideText(HWND window) {
  wchar_t text[512] = L"";
  SendMessageW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
  return text;
}

}  // namespace

// Tests the finished program in each of the code pages (tools/code_page.sh).
class CodePageOutsideTest : public OutsideTest {
 protected:
  // Types a character that the code page does not have, which is refused, and the text.
  void TypeByKeys(HWND box, const std::wstring& text) {
    outside::TypeCharacters(page.other + text);
    EXPECT_TRUE(WaitUntil([&] { return WideText(box) == text; }));
  }

  // A window manager may hand over the keyboard some time after it has activated the
  // window; keys before that go nowhere.
  static bool WaitForTheKeyboard(HWND box) {
    const bool hasIt = WaitUntil([&] {
      outside::TypeCharacters(L"x");
      return WaitUntil([&] { return !WideText(box).empty(); }, 1000);
    });
    SendMessageW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
    return hasIt;
  }

  const testing_pages::Page& page = testing_pages::ThisPage();
};

TEST_F(CodePageOutsideTest, AnEntryIsTypedByKeysAndRead) {
  WriteBytes(PathOf(page.bytes + ".menu"), UserDefinedMenu({}));
  StartOn(PathOf(page.bytes + ".menu"), folder());
  WaitForForm2();
  const HWND wizard = OpenWizard(IDC_FORM2_COMMAND2);
  ASSERT_TRUE(outside::WaitForFront(wizard));
  const HWND target = GetDlgItem(wizard, IDC_FORM3_TEXT1);
  ASSERT_TRUE(WaitForTheKeyboard(target));
  outside::TypeCharacters(L"news:" + page.held);
  EXPECT_TRUE(WaitUntil([&] { return WideText(target) == L"news:" + page.held; }));
  const HWND arguments = GetDlgItem(wizard, IDC_FORM3_TEXT2);
  for (const wchar_t half : page.held) {
    PostMessageW(arguments, WM_CHAR, half, 1);
  }
  EXPECT_TRUE(WaitUntil([&] { return WideText(arguments) == page.held; }));
  outside::Type(wizard, IDC_FORM3_TEXT3, page.bytes);
  Next(wizard);
  TypeByKeys(GetDlgItem(wizard, IDC_FORM3_TEXT4), page.held);
  Finish(wizard);
  EXPECT_EQ(BytesOf(PathOf(page.bytes + ".menu")),
            UserDefinedMenu({ItemLine(page.bytes, "news:" + page.bytes, page.bytes, page.bytes)}));
  EXPECT_EQ(Rows(), std::vector<std::string>{page.bytes});
  ExpectCleanEnd();
}

// Texts to and from an ANSI program, whose messages Windows converts.
TEST_F(CodePageOutsideTest, BytesComeInAndGoOut) {
  std::string bytes = page.bytes;
  // Not in pages with combining marks: Wine's edit control crashes on a lone one.
  if (page.number == 1251 || page.number == 1252) {
    bytes.clear();
    for (int byte = 0x80; byte < 0x100; ++byte) {
      bytes += static_cast<char>(byte);
    }
  }
  Start(UserDefinedMenu({ItemLine(bytes, "news:x", bytes), ItemLine("Other", "news:y")}));
  EXPECT_EQ(Rows(), (std::vector<std::string>{bytes, "Other"}));
  outside::SelectRow(List(), 0);
  Press(IDC_FORM2_COMMAND8);
  EXPECT_EQ(Rows(), (std::vector<std::string>{"Other", bytes}));
  const HWND wizard = OpenWizard(IDC_FORM2_COMMAND3);
  EXPECT_TRUE(WaitForText(wizard, IDC_FORM3_TEXT2, bytes));
  EXPECT_TRUE(WaitForText(wizard, IDC_FORM3_TEXT4, bytes));
  outside::Type(wizard, IDC_FORM3_TEXT3, bytes);
  Next(wizard);
  outside::Type(wizard, IDC_FORM3_TEXT4, "x" + bytes);
  Finish(wizard);
  EXPECT_EQ(MenuBytes(), UserDefinedMenu({ItemLine("Other", "news:y"),
                                          ItemLine("x" + bytes, "news:x", bytes, bytes)}));
  EXPECT_EQ(Rows(), (std::vector<std::string>{"Other", "x" + bytes}));
  ExpectCleanEnd();
}

TEST_F(CodePageOutsideTest, DoesNotOpenAFileWithASimilarName) {
  for (const char* name : {"eb.menu", "Lb.menu", "xb.menu", "b.menu"}) {
    WriteBytes(PathOf(name), UserDefinedMenu({}));
  }
  const std::wstring path = Wide(folder()) + L"\\" + page.other + L"b.menu";
  const outside::Program program(path, Wide(folder()));
  const HWND box = program.WaitForFirst();
  ASSERT_NE(box, nullptr);
  EXPECT_TRUE(outside::Program::IsDialog(box));
  const std::wstring text = WideText(GetDlgItem(box, outside::kMessageTextId));
  EXPECT_EQ(text.rfind(L"Cannot open the file:\n" + path + L"\n", 0), 0U);
  outside::Click(box, IDOK);
  const std::optional<DWORD> code = program.WaitForExit();
  ASSERT_TRUE(code.has_value());
  EXPECT_NE(*code, 0U);
}
