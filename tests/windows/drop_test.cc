#include "tests/windows/code_pages.h"
#include "tests/windows/drag_data.h"
#include "tests/windows/faulty_files.h"
#include "tests/windows/message_watch.h"
#include "tests/windows/replaced_import.h"
#include "tests/windows/wizard_test_base.h"
#include "win32/text.h"

using testing_menus::ItemLine;

namespace {

const std::string kA = ItemLine("Alpha", "C:\\a.exe", "-a", "C:\\", "C:\\x.ico", "3");

constexpr DWORD kCopyMoveLink = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;

}  // namespace

// Drops files on the list through the interface that it has registered with OLE.
class DropTest : public WizardTestBase {
 protected:
  DropTest() { WriteBytes(PathOf("one"), ""); }

  struct Effects {
    DWORD enter;
    DWORD over;
    DWORD drop;
    friend bool operator==(const Effects&, const Effects&) = default;
  };

  // Does what OLE does while the data is dragged over the list and dropped there, and
  // then handles the messages. Releases the data.
  Effects Drag(DragData* data, DWORD allowed = kCopyMoveLink) {
    const Effects effects = DragAlone(data, allowed);
    RunMessages();
    return effects;
  }

  // The same without the messages afterwards.
  Effects DragAlone(DragData* data, DWORD allowed = kCopyMoveLink) {
    Effects effects{allowed, allowed, allowed};
    const POINTL point{};
    EXPECT_EQ(Target()->DragEnter(data, MK_LBUTTON, point, &effects.enter), S_OK);
    EXPECT_EQ(Target()->DragOver(MK_LBUTTON, point, &effects.over), S_OK);
    if (effects.over == DROPEFFECT_NONE) {
      // OLE would call DragLeave() here. The target has to survive a drop, too.
      EXPECT_EQ(Target()->Drop(data, 0, point, &effects.drop), S_OK);
      EXPECT_EQ(Target()->DragLeave(), S_OK);
    } else {
      EXPECT_EQ(Target()->Drop(data, 0, point, &effects.drop), S_OK);
    }
    EXPECT_EQ(data->Release(), 0U) << "somebody still refers to the data";
    return effects;
  }

  Effects DragFiles(const Texts& paths, DWORD allowed = kCopyMoveLink) {
    return Drag(FileData(paths), allowed);
  }
  static DragData* FileData(const Texts& paths) {
    std::vector<std::wstring> wide;
    for (const std::string& path : paths) {
      wide.push_back(win32::ToText(path));
    }
    return DragData::Files(wide);
  }

  static constexpr Effects kCopied{DROPEFFECT_COPY, DROPEFFECT_COPY, DROPEFFECT_COPY};
  static constexpr Effects kRefused{DROPEFFECT_NONE, DROPEFFECT_NONE, DROPEFFECT_NONE};
};

TEST_F(DropTest, AFileAndAFolderInTheirOrder) {
  WriteBytes(PathOf("z file.txt"), "");
  Make("a folder");
  ASSERT_TRUE(OpenLines({kA}));
  const std::vector<RowState> before = State();
  SelectRow(0);
  EXPECT_EQ(DragFiles({PathOf("z file.txt"), PathOf("a folder")}), kCopied);
  ExpectSettled(
      {kA, ItemLine("z file.txt", PathOf("z file.txt")), ItemLine("a folder", PathOf("a folder"))});
  EXPECT_EQ(State(), (std::vector<RowState>{before[0],
                                            {"z file.txt", "0", PathOf("z file.txt")},
                                            {"a folder", "0", PathOf("a folder")}}));
  EXPECT_EQ(SelectedRow(), 0);
  // They are ordinary entries at once.
  SelectRow(2);
  Press(IDC_FORM2_COMMAND4);
  ExpectSettled(
      {kA, ItemLine("a folder", PathOf("a folder")), ItemLine("z file.txt", PathOf("z file.txt"))});
}

TEST_F(DropTest, TheListIsDrawnAfterTheLastFile) {
  ASSERT_TRUE(OpenLines({}));
  std::string drawing;
  const MessageWatch watch(Control(IDC_FORM2_LIST1), [&](UINT message, WPARAM wide) {
    drawing += message == LB_INSERTSTRING ? "+" : message != WM_SETREDRAW ? "" : wide ? ">" : "<";
  });
  DragFiles({PathOf("a.txt"), PathOf("b.txt"), PathOf("c.txt")});
  EXPECT_EQ(drawing, "<+++>");
}

TEST_F(DropTest, GivesBackTheMemoryThatTheSourceGave) {
  static int released;
  released = 0;
  const ReplacedImport release(
      "ReleaseStgMedium", +[](STGMEDIUM* medium) {
        GlobalFree(medium->hGlobal);
        ++released;
      });
  ASSERT_TRUE(OpenLines({kA}));
  EXPECT_EQ(DragFiles({"C:\\windows\\notepad.exe"}), kCopied);
  EXPECT_EQ(released, 1);
}

// The source waits for the end of the drop, so the drop only stores the paths.
TEST_F(DropTest, TheSourceDoesNotWaitForTheAdding) {
  ASSERT_TRUE(OpenLines({kA}));
  const std::string line = ItemLine("notepad.exe", "C:\\windows\\notepad.exe");
  for (int drop = 0; drop < 2; ++drop) {
    EXPECT_EQ(DragAlone(FileData({"C:\\windows\\notepad.exe"})), kCopied);
    ExpectSettled({kA});
    EXPECT_EQ(Rows().size(), 1U);
  }
  RunMessages();
  ExpectSettled({kA, line, line});
  EXPECT_EQ(Rows().size(), 3U);
}

// A group box passes mouse messages on, but a drag from another process would end at it.
TEST_F(DropTest, NothingLiesAboveTheList) {
  ASSERT_TRUE(OpenLines({kA}));
  const HWND list = Control(IDC_FORM2_LIST1);
  RECT rect{};
  GetWindowRect(list, &rect);
  MapWindowPoints(nullptr, form().window(), reinterpret_cast<POINT*>(&rect), 2);
  for (const POINT point : {POINT{rect.left + 1, rect.top + 1},
                            POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2},
                            POINT{rect.right - 2, rect.bottom - 2}}) {
    EXPECT_EQ(ChildWindowFromPointEx(form().window(), point, CWP_SKIPINVISIBLE), list);
  }
}

TEST_F(DropTest, OnAnEmptyListAndOnThreeRows) {
  ASSERT_TRUE(OpenLines({}));
  EXPECT_EQ(DragFiles({PathOf("one")}), kCopied);
  ExpectSettled({ItemLine("one", PathOf("one"))});
  EXPECT_EQ(State(), (std::vector<RowState>{{"one", "0", PathOf("one")}}));
  ASSERT_TRUE(OpenLines({kA, kA, kA}));
  EXPECT_THROW(HiddenTag(3), std::out_of_range);
  EXPECT_EQ(DragFiles({PathOf("one")}), kCopied);
  ExpectSettled({kA, kA, kA, ItemLine("one", PathOf("one"))});
  EXPECT_EQ(HiddenIcon(3), "0");
  EXPECT_EQ(HiddenTag(3), PathOf("one"));
}

TEST_F(DropTest, TheSameFileTwice) {
  ASSERT_TRUE(OpenLines({}));
  DragFiles({PathOf("one"), PathOf("one")});
  ExpectSettled({ItemLine("one", PathOf("one")), ItemLine("one", PathOf("one"))});
}

TEST_F(DropTest, DataWithoutFilesIsRefused) {
  const std::string menu = testing_menus::UserDefinedMenu({" " + kA});
  ASSERT_TRUE(Open(menu));
  EXPECT_EQ(Drag(DragData::Text(L"C:\\windows\\notepad.exe")), kRefused);
  EXPECT_EQ(Drag(new DragData(CF_DIB, std::string(100, '\0'))), kRefused);
  EXPECT_EQ(MenuBytes(), menu);
  EXPECT_EQ(Rows().size(), 1U);
  EXPECT_TRUE(answers.Shown().empty());
}

TEST_F(DropTest, NeverMovesTheFiles) {
  ASSERT_TRUE(OpenLines({}));
  EXPECT_EQ(DragFiles({PathOf("one")}, DROPEFFECT_LINK | DROPEFFECT_MOVE),
            (Effects{DROPEFFECT_LINK, DROPEFFECT_LINK, DROPEFFECT_LINK}));
  ExpectSettled({ItemLine("one", PathOf("one"))});
  EXPECT_EQ(DragFiles({PathOf("one")}, DROPEFFECT_MOVE),
            (Effects{DROPEFFECT_MOVE, DROPEFFECT_MOVE, DROPEFFECT_NONE}));
  ExpectSettled({ItemLine("one", PathOf("one")), ItemLine("one", PathOf("one"))});
  EXPECT_TRUE(Exists(PathOf("one")));
}

TEST_F(DropTest, RefusedWhileTheWizardIsOpen) {
  ASSERT_TRUE(OpenLines({kA}));
  OpenAdd();
  EXPECT_EQ(DragFiles({PathOf("one")}), kRefused);
  EXPECT_EQ(MenuBytes(), testing_menus::UserDefinedMenu({kA}));
  PressWizard(kCancel);
  EXPECT_EQ(DragFiles({PathOf("one")}), kCopied);
  ExpectSettled({kA, ItemLine("one", PathOf("one"))});
}

TEST_F(DropTest, SeveralHundredFiles) {
  Texts paths;
  Texts lines{kA};
  for (int number = 0; number < 500; ++number) {
    const std::string name = "file " + std::to_string(number) + ".txt";
    WriteBytes(PathOf(name), "");
    paths.push_back(PathOf(name));
    lines.push_back(ItemLine(name, PathOf(name)));
  }
  ASSERT_TRUE(OpenLines({kA}));
  // The pointer while rows are added.
  HCURSOR pointer = nullptr;
  {
    const MessageWatch watch(Control(IDC_FORM2_LIST1), [&](UINT message, WPARAM) {
      pointer = message == LB_INSERTSTRING ? GetCursor() : pointer;
    });
    EXPECT_EQ(DragFiles(paths), kCopied);
  }
  EXPECT_EQ(pointer, LoadCursorA(nullptr, MAKEINTRESOURCEA(32514)));  // the hourglass
  EXPECT_NE(GetCursor(), pointer);
  ExpectSettled(lines);
  const std::vector<RowState> state = State();
  ASSERT_EQ(state.size(), 501U);
  EXPECT_EQ(state[500], (RowState{"file 499.txt", "0", PathOf("file 499.txt")}));
}

TEST_F(DropTest, WithoutAShortNameAMessageNamesTheFile) {
  // A file that is not there has no short name.
  const testing_pages::Page& page = testing_pages::ThisPage();
  const std::wstring path = WidePathOf(page.held + L" " + page.other + L".txt");
  WriteBytes(PathOf("before"), "");
  WriteBytes(PathOf("after"), "");
  ASSERT_TRUE(OpenLines({}));
  EXPECT_EQ(Drag(DragData::Files({WidePathOf(L"before"), path, WidePathOf(L"after")})), kCopied);
  ASSERT_EQ(answers.Shown().size(), 1U);
  EXPECT_EQ(answers.Shown()[0].title, "Error!");
  EXPECT_EQ(
      answers.Shown()[0].wideText,
      L"File " + path + L" cannot be added. Its name has characters that a menu file cannot hold.");
  EXPECT_EQ(answers.Shown()[0].buttons, Texts{"OK"});
  EXPECT_EQ(MenuBytes(), testing_menus::UserDefinedMenu({ItemLine("before", PathOf("before")),
                                                         ItemLine("after", PathOf("after"))}));
  EXPECT_EQ(Rows(), (Texts{"before", "after"}));
}

TEST_F(DropTest, OneMessageNamesSeveralFiles) {
  std::vector<std::wstring> paths;
  std::wstring names;
  for (int number = 0; number < 14; ++number) {
    paths.push_back(
        WidePathOf(std::to_wstring(number) + L" " + testing_pages::ThisPage().other + L".txt"));
    names += number < 12 ? L"\n" + paths.back() : L"";
  }
  ASSERT_TRUE(OpenLines({kA}));
  ShowWindow(form().window(), SW_SHOWNA);
  Drag(DragData::Files(paths));
  ASSERT_EQ(answers.Shown().size(), 1U);
  EXPECT_EQ(answers.Shown()[0].wideText,
            L"These files cannot be added. Their names have characters that a menu file cannot "
            L"hold.\n" +
                names + L"\n2 more");
  EXPECT_EQ(MenuBytes(), testing_menus::UserDefinedMenu({kA}));
}

TEST_F(DropTest, AMenuThatCannotBeWrittenIsNamedAndTheProgramGoesOn) {
  FaultyFiles faulty(windowsFiles);
  files = &faulty;
  ASSERT_TRUE(OpenLines({kA}));
  faulty.unwritable = {"test.menu"};
  ShowWindow(form().window(), SW_SHOWNA);
  DragFiles({"C:\\windows\\notepad.exe", "C:\\windows\\regedit.exe"});
  ExpectBoxes(1, "Error!", "Cannot write the file:\n" + MenuPath() + "\n\nAccess is denied.");
  EXPECT_FALSE(TakeQuit());
  EXPECT_EQ(MenuBytes(), testing_menus::UserDefinedMenu({kA}));
  EXPECT_EQ(Rows(), Texts{"Alpha"});
  faulty.unwritable.clear();
  DragFiles({"C:\\windows\\notepad.exe"});
  EXPECT_EQ(Rows().size(), 2U);
}

TEST_F(DropTest, ADiskThatGetsFullAddsNone) {
  WriteBytes(PathOf("two"), "");
  FaultyFiles faulty(windowsFiles);
  files = &faulty;
  ASSERT_TRUE(OpenLines({kA}));
  faulty.FillDiskOf("test.menu", ItemLine("one", PathOf("one")).size() + 10);
  DragFiles({PathOf("one"), PathOf("two")});
  EXPECT_EQ(answers.Shown().size(), 1U);
  EXPECT_EQ(MenuBytes(), testing_menus::UserDefinedMenu({kA}));
  EXPECT_EQ(Rows(), (Texts{"Alpha"}));
  EXPECT_FALSE(TakeQuit());
}

TEST_F(DropTest, TheTargetGoesWithTheWindow) {
  ASSERT_TRUE(OpenLines({}));
  DragFiles({"C:\\windows\\notepad.exe"});
  Drag(DragData::Text(L"no file"));
  const HWND list = Control(IDC_FORM2_LIST1);
  IDropTarget* const target = Target();
  ASSERT_NE(target, nullptr);
  target->AddRef();
  void* object = nullptr;
  ASSERT_EQ(target->QueryInterface(IID_IDropTarget, &object), S_OK);
  EXPECT_EQ(object, target);
  target->Release();
  EXPECT_EQ(target->QueryInterface(IID_IDataObject, &object), E_NOINTERFACE);
  SendMessageA(form().window(), WM_CLOSE, 0, 0);
  EXPECT_FALSE(IsWindow(list));
  // OLE and the window have released it.
  EXPECT_EQ(target->Release(), 0U);
  EXPECT_TRUE(TakeQuit());
}
