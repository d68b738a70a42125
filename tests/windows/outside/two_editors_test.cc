// Runs two editors in one folder, and on one menu. Neither may crash, and the menu files
// have to be as if one change had come after the other.

#include <algorithm>
#include <cstdio>

#include "tests/windows/locked_file.h"
#include "tests/windows/outside/failing_changes_test_base.h"

using outside::Changes;
using outside::PreparedChange;
using outside::Program;
using namespace testing_menus;

namespace {

// With this many rounds, some presses happen at the same time.
constexpr int kRounds = 40;
constexpr std::size_t kPictureSize = 3 << 20;

struct Editor {
  std::string menuPath;
  std::unique_ptr<Program> program;
  HWND form2 = nullptr;
};

// A change that is ready but for the press of a button.
struct Ready {
  HWND button = nullptr;
  std::function<void(KnownMenu&)> apply;  // makes the change in the expected menu
};

// A press of a button, and the time in which the editor worked after it.
struct Pressing {
  HWND button = nullptr;
  bool isDone = false;
  LARGE_INTEGER from{};
  LARGE_INTEGER to{};
};

DWORD WINAPI Press(void* data) {
  Pressing& press = *static_cast<Pressing*>(data);
  DWORD_PTR result = 0;
  QueryPerformanceCounter(&press.from);
  press.isDone = SendMessageTimeoutA(press.button, BM_CLICK, 0, 0, SMTO_NORMAL, outside::kPatience,
                                     &result) != 0;
  QueryPerformanceCounter(&press.to);
  return 0;
}

// Answers Yes if an editor asks because it has read the menu while the other one wrote it.
// Returns true if there was such a question.
bool AnswerYes(const Editor& editor) {
  const HWND box = editor.program->Find("#32770");
  if (box == nullptr || outside::Text(box) != "Query?") {
    return false;
  }
  outside::Press(box, IDYES);
  return true;
}

struct Pressed {
  bool hangs = false;
  int asked = 0;        // the number of questions
  bool atOnce = false;  // true if both worked at the same time
};

Pressed PressBoth(const Editor (&editors)[2], HWND one, HWND other) {
  Pressing presses[] = {{one}, {other}};
  const HANDLE threads[] = {CreateThread(nullptr, 0, Press, &presses[0], 0, nullptr),
                            CreateThread(nullptr, 0, Press, &presses[1], 0, nullptr)};
  Pressed pressed;
  while (WaitForMultipleObjects(2, threads, TRUE, 30) == WAIT_TIMEOUT) {
    pressed.asked += AnswerYes(editors[0]) + AnswerYes(editors[1]);
  }
  for (const HANDLE thread : threads) {
    CloseHandle(thread);
  }
  pressed.hangs = !presses[0].isDone || !presses[1].isDone;
  pressed.atOnce = presses[0].from.QuadPart < presses[1].to.QuadPart &&
                   presses[1].from.QuadPart < presses[0].to.QuadPart;
  return pressed;
}

}  // namespace

class TwoEditorsTest : public FailingChangesTest {
 protected:
  KnownMenu NewMenu() {
    KnownMenu menu;
    menu.picture.assign(kPictureSize, 'p');
    for (int i = 0; i < 6; ++i) {
      menu.entries.push_back({"entry " + std::to_string(i), "news:x", "", "", "", "0"});
    }
    return menu;
  }

  void Open(Editor& editor, const std::string& menuPath) {
    editor.menuPath = menuPath;
    editor.program = std::make_unique<Program>(menuPath, folder());
    editor.form2 = editor.program->WaitFor("Form2");
    ASSERT_NE(editor.form2, nullptr);
  }

  std::size_t Below(std::size_t count) { return random_() % count; }

  // A list may have fewer rows than the file has entries, because the other editor may have
  // added some, but never more. After a failed reload it has none.
  Ready Prepare(const Editor& editor) {
    const HWND list = GetDlgItem(editor.form2, IDC_FORM2_LIST1);
    const auto rows = static_cast<std::size_t>(SendMessageA(list, LB_GETCOUNT, 0, 0));
    if (rows < 2) {
      return PrepareWizard(editor, IDC_FORM2_COMMAND2, 0);
    }
    const auto row = static_cast<std::ptrdiff_t>(Below(rows - 1));
    switch (Below(5)) {
      case 0:
      case 1: {
        const bool isUp = Below(2) == 0;
        outside::SelectRow(list, static_cast<int>(isUp ? row + 1 : row));
        return {GetDlgItem(editor.form2, isUp ? IDC_FORM2_COMMAND4 : IDC_FORM2_COMMAND8),
                [row](KnownMenu& menu) {
                  std::swap(menu.entries.at(static_cast<std::size_t>(row)),
                            menu.entries.at(static_cast<std::size_t>(row + 1)));
                }};
      }
      case 2:
        outside::SelectRow(list, static_cast<int>(row));
        return {GetDlgItem(editor.form2, IDC_FORM2_COMMAND9), [row](KnownMenu& menu) {
                  menu.entries.insert(menu.entries.begin() + row, testing_menus::Separator());
                }};
      case 3:
        outside::SelectRow(list, static_cast<int>(row));
        return PrepareWizard(editor, IDC_FORM2_COMMAND3, static_cast<std::size_t>(row));
      default:
        return PrepareWizard(editor, IDC_FORM2_COMMAND2, 0);
    }
  }

  Ready PrepareWizard(const Editor& editor, int button, std::size_t row) {
    outside::Click(editor.form2, button);
    const HWND wizard = editor.program->WaitFor("Form3");
    EXPECT_NE(wizard, nullptr);
    EXPECT_TRUE(outside::WaitUntil([&] { return !IsWindowEnabled(editor.form2); }));
    const Entry entry{"entry " + std::to_string(random_()), "news:y", "arguments", "", "", "0"};
    outside::Type(wizard, IDC_FORM3_TEXT1, entry.target);
    outside::Type(wizard, IDC_FORM3_TEXT2, entry.arguments);
    outside::Press(wizard, IDC_FORM3_COMMAND1);
    outside::Type(wizard, IDC_FORM3_TEXT4, entry.caption);
    return {GetDlgItem(wizard, IDC_FORM3_COMMAND5), [=](KnownMenu& menu) {
              if (button == IDC_FORM2_COMMAND2) {
                menu.entries.push_back(entry);
              } else {
                Entry& old = menu.entries.at(row);
                old = {entry.caption, entry.target, entry.arguments, "", "", old.iconIndex};
              }
            }};
  }

  // A wizard that could not write stays open: close it.
  void LeaveWizard(const Editor& editor) {
    const HWND wizard = editor.program->Find("Form3");
    if (wizard != nullptr) {
      outside::Press(wizard, IDC_FORM3_COMMAND2);
    }
    EXPECT_TRUE(outside::WaitUntil([&] { return IsWindowEnabled(editor.form2) != FALSE; }));
  }

  void ExpectNoScratchFile() {
    for (const char* name : {"temporaryfile", "zoltempfileoktodelete"}) {
      EXPECT_FALSE(Exists(PathOf(name))) << name;
    }
  }

  void CloseBoth(Editor& one, Editor& other) {
    for (const Editor* editor : {&one, &other}) {
      EXPECT_EQ(editor->program->Find("#32770"), nullptr);
      outside::CloseWindow(editor->form2);
      EXPECT_EQ(editor->program->WaitForExit(), 0U);
    }
  }

  // The menus after neither of the two changes, after one of them, and after both in either
  // order.
  static std::vector<KnownMenu> After(const KnownMenu& menu, const Ready& one, const Ready& other) {
    std::vector<KnownMenu> menus(5, menu);
    one.apply(menus[1]);
    other.apply(menus[2]);
    menus[3] = menus[1];
    other.apply(menus[3]);
    menus[4] = menus[2];
    one.apply(menus[4]);
    return menus;
  }
};

TEST_F(TwoEditorsTest, OnTwoMenusInOneFolder) {
  KnownMenu menus[2] = {NewMenu(), NewMenu()};
  Editor editors[2];
  for (int i = 0; i < 2; ++i) {
    const std::string path = PathOf(i == 0 ? "one.menu" : "other.menu");
    WriteBytes(path, menus[i].Bytes());
    Open(editors[i], path);
  }
  int failed = 0;
  int atOnce = 0;
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    const Ready ready[2] = {Prepare(editors[0]), Prepare(editors[1])};
    const Pressed pressed = PressBoth(editors, ready[0].button, ready[1].button);
    ASSERT_FALSE(pressed.hangs);
    ASSERT_EQ(pressed.asked, 0);
    atOnce += pressed.atOnce;
    for (int i = 0; i < 2; ++i) {
      KnownMenu after = menus[i];
      ready[i].apply(after);
      const std::string bytes = BytesOf(editors[i].menuPath);
      const bool isDone = bytes == after.Bytes();
      failed += !isDone;
      if (isDone) {
        menus[i] = after;
      }
      ASSERT_EQ(Difference(bytes, menus[i].Bytes()), "") << "round " << round;
      LeaveWizard(editors[i]);
    }
    ExpectNoScratchFile();
  }
  std::printf("Counted: %d of %d changes failed because of the other editor (--seed=%llu)\n",
              failed, 2 * kRounds, static_cast<unsigned long long>(outside::TestOptions().seed));
  EXPECT_LT(failed, kRounds + 1) << "one of the two can always write";
  EXPECT_GT(atOnce, kRounds / 2) << "the editors kept out of each other's way";
  CloseBoth(editors[0], editors[1]);
}

TEST_F(TwoEditorsTest, OnOneMenu) {
  KnownMenu menu = NewMenu();
  WriteBytes(MenuPath(), menu.Bytes());
  Editor editors[2];
  for (Editor& editor : editors) {
    Open(editor, MenuPath());
  }
  int failed = 0;
  int asked = 0;
  int atOnce = 0;
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    const Ready one = Prepare(editors[0]);
    const Ready other = Prepare(editors[1]);
    const Pressed pressed = PressBoth(editors, one.button, other.button);
    ASSERT_FALSE(pressed.hangs);
    asked += pressed.asked;
    atOnce += pressed.atOnce;
    const std::vector<KnownMenu> possible = After(menu, one, other);
    const std::string bytes = MenuBytes();
    // Exchanging two separators does not change the menu, so look for the most changes
    // first.
    const auto found = std::find_if(possible.rbegin(), possible.rend(),
                                    [&](const KnownMenu& is) { return is.Bytes() == bytes; });
    ASSERT_NE(found, possible.rend())
        << "round " << round << ": " << Difference(bytes, menu.Bytes());
    const auto done = possible.rend() - 1 - found;
    EXPECT_NE(done, 0) << "one of the two can always write";
    failed += done == 1 || done == 2;
    menu = *found;
    LeaveWizard(editors[0]);
    LeaveWizard(editors[1]);
    ExpectNoScratchFile();
  }
  std::printf(
      "Counted: %d of %d changes failed because of the other editor, and %d times one asked "
      "whether to convert what the other one was writing (--seed=%llu)\n",
      failed, 2 * kRounds, asked, static_cast<unsigned long long>(outside::TestOptions().seed));
  EXPECT_GT(atOnce, kRounds / 2) << "the editors kept out of each other's way";
  CloseBoth(editors[0], editors[1]);
}

// The other editor worked only while this one read the menu. At the time of the answer, the
// menu is complete and may have been changed.
TEST_F(TwoEditorsTest, AQuestionThatIsOutOfDateWhenItIsAnswered) {
  const std::string whole = UserDefinedMenu({ItemLine("A", "news:a")});
  const std::string changed = UserDefinedMenu({ItemLine("B", "news:b"), ItemLine("A", "news:a")});
  WriteBytes(MenuPath(), whole.substr(0, 10));
  StartAsItStands();
  const HWND question = WaitForDialog("Query?");
  EXPECT_TRUE(
      outside::Text(question, outside::kMessageTextId).starts_with("The menu file is invalid"));
  WriteBytes(MenuPath(), changed);
  outside::Click(question, IDYES);
  WaitForForm2();
  EXPECT_EQ(Difference(MenuBytes(), changed), "");
  EXPECT_EQ(Rows(), (std::vector<std::string>{"B", "A"}));
}

// The files that the other editor has open while it writes.
TEST_F(TwoEditorsTest, AChangeWhileTheOtherWrites) {
  for (const ChangeKind kind : kEveryChange) {
    for (const bool menuIsHeld : {true, false}) {
      if (!menuIsHeld && kind == ChangeKind::Add) {
        continue;  // it writes no scratch file
      }
      SCOPED_TRACE(std::string(NameOf(kind)) + (menuIsHeld ? ", menu file" : ", scratch file"));
      KnownMenu before;
      before.isDirectory = IsOfDirectory(kind);
      before.directory = "\"C:\\\",\"\",0,0,0\r\n";
      before.entries = {{"a", "news:a", "", "", "", "0"}, {"b", library_, "", "", "", "0"}};
      Start(before.Bytes());
      Changes changes(program(), form2(), random_, library_);
      const std::optional<PreparedChange> change = changes.Prepare(kind, before);
      ASSERT_TRUE(change.has_value());
      const std::string held = menuIsHeld ? MenuPath() : PathOf(ScratchName(kind));
      {
        const LockedFile file(held, FILE_SHARE_READ, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
        ExpectFailureIsShown(kind, *change);
      }
      EXPECT_EQ(Difference(MenuBytes(), before.Bytes()), "");
      if (IsWizard(kind) || kind == ChangeKind::SaveDirectory) {
        EXPECT_TRUE(change->Make());
        EXPECT_EQ(Difference(MenuBytes(), change->after.Bytes()), "");
      }
      program().Kill();
      DeleteFileA(PathOf(ScratchName(kind)).c_str());
    }
  }
}
