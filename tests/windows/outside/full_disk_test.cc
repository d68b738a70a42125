// Tests changes to a menu on a full disk: that of the menu file, that of the current
// directory, or both. tests/tools/full_disk_test.sh runs them and makes a small file
// system for them.

#include "tests/windows/outside/drag.h"
#include "tests/windows/outside/failing_changes_test_base.h"
#include "tests/windows/outside/host.h"

using outside::ChangeKind;
using outside::Changes;
using outside::PreparedChange;
using outside::WaitUntil;
using namespace testing_menus;

namespace {

// The block size of the file system, in bytes.
constexpr std::size_t kBlock = 4096;

const std::string kUpgradeQuestion =
    "The menu file is invalid or a previous version.\rWould you like to update the file?";

// Menus that fill their last block, so that a longer menu needs another one.
KnownMenu ListMenu(const std::string& library) {
  KnownMenu menu;
  menu.entries = {{"a", "news:a", "", "", "", "0"},
                  {"b", library, "", "", "", "0"},
                  {"c", "news:c", "", "", "", "0"},
                  {"padding", "", "", "", "", "0"}};
  menu.entries[3].arguments.resize(kBlock - menu.Bytes().size() % kBlock, 'x');
  return menu;
}

KnownMenu DirectoryMenu() {
  KnownMenu menu;
  menu.isDirectory = true;
  menu.directory = "\"C:\\\",\"\",0,0,0\r\n";
  menu.picture.resize(menu.picture.size() + kBlock - menu.Bytes().size() % kBlock, 'x');
  return menu;
}

bool MakesLonger(ChangeKind kind) {
  using enum ChangeKind;
  return kind == Separator || kind == Add || kind == Edit || kind == ChangeIcon ||
         kind == SaveAppearance || kind == SaveDirectory;
}

}  // namespace

class FullDiskTest : public FailingChangesTest {
 protected:
  void SetUp() override {
    ASSERT_NE(small_, "") << "there is no small file system: --small-disk=FOLDER";
  }

  // The folders of the menu file and the scratch file.
  void Place(bool menuIsOnSmallDisk, bool scratchIsOnSmallDisk) {
    menuPath_ = (menuIsOnSmallDisk ? small_ : folder()) + "\\small.menu";
    current_ = scratchIsOnSmallDisk ? small_ : folder();
    menuIsOnSmallDisk_ = menuIsOnSmallDisk;
    scratchIsOnSmallDisk_ = scratchIsOnSmallDisk;
  }

  void FillDisk() {
    const HANDLE file = CreateFileA((small_ + "\\filler").c_str(), GENERIC_WRITE, 0, nullptr,
                                    CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    const std::string block(kBlock, 'f');
    DWORD written = 0;
    while (WriteFile(file, block.data(), static_cast<DWORD>(block.size()), &written, nullptr) &&
           written > 0) {
    }
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DISK_FULL));
    CloseHandle(file);
  }
  void FreeDisk() { EXPECT_TRUE(DeleteFileA((small_ + "\\filler").c_str())); }

  std::string Scratch(ChangeKind kind) const { return current_ + '\\' + ScratchName(kind); }
  void RemoveScratchFiles() {
    for (const std::string& folder : {small_, this->folder()}) {
      DeleteFileA((folder + "\\temporaryfile").c_str());
      DeleteFileA((folder + "\\zoltempfileoktodelete").c_str());
    }
  }

  void ExpectMenu(const std::string& bytes) {
    EXPECT_EQ(Difference(BytesOf(menuPath_), bytes), "");
  }

  void StartAndFill(const std::string& menu) {
    RemoveScratchFiles();
    WriteBytes(menuPath_, menu);
    ExpectMenu(menu);
    StartOn(menuPath_, current_);
    FillDisk();
  }

  // Makes the change on the full disk, and then frees space.
  void Try(ChangeKind kind) {
    SCOPED_TRACE(NameOf(kind));
    const KnownMenu before = IsOfDirectory(kind) ? DirectoryMenu() : ListMenu(library_);
    StartAndFill(before.Bytes());
    WaitForForm2();
    Changes changes(program(), form2(), random_, library_);
    const std::optional<PreparedChange> change = changes.Prepare(kind, before);
    ASSERT_TRUE(change.has_value());
    const std::string after = change->after.Bytes();
    const bool needsScratch = kind != ChangeKind::Add;
    if (!(scratchIsOnSmallDisk_ && needsScratch) && !(menuIsOnSmallDisk_ && MakesLonger(kind))) {
      EXPECT_TRUE(change->Make());
      ExpectMenu(after);
      FreeDisk();
      return;
    }
    ExpectFailureIsShown(kind, *change);
    ++failures_;
    // The program sees that the disk is full before it empties the menu file.
    ExpectMenu(before.Bytes());
    FreeDisk();
    GoOn(kind, changes, *change, before);
  }

  void GoOn(ChangeKind kind, Changes& changes, const PreparedChange& change,
            const KnownMenu& before) {
    if (IsWizard(kind) || kind == ChangeKind::SaveDirectory) {
      EXPECT_TRUE(change.Make());
      ExpectMenu(change.after.Bytes());
    } else if (kind == ChangeKind::ChangeIcon) {
      const auto other = changes.Prepare(ChangeKind::MoveDown, before);
      ASSERT_TRUE(other.has_value());
      EXPECT_TRUE(other->Make());
      ExpectMenu(other->after.Bytes());
    } else if (IsSwitch(kind)) {
      const auto again = changes.Prepare(kind, before);
      ASSERT_TRUE(again.has_value());
      EXPECT_TRUE(again->Make());
      ExpectMenu(again->after.Bytes());
    } else {
      program().Kill();
      StartOn(menuPath_, current_);
      WaitForForm2();
      ExpectNoDialog();
      ExpectMenu(before.Bytes());
    }
  }

  void TryAll() {
    for (const ChangeKind kind : kEveryChange) {
      Try(kind);
    }
  }

  // Until there is space, Yes changes nothing and the question comes again.
  void TryUpgrade() {
    KnownMenu menu = ListMenu(library_);
    menu.picture = BytesOf(outside::BuildFolder() + "\\..\\resources\\default_menu.ico");
    menu.entries[3].arguments.resize(
        menu.entries[3].arguments.size() + kBlock - menu.PreviousVersionBytes().size() % kBlock,
        'x');
    const std::string old = menu.PreviousVersionBytes();
    StartAndFill(old);
    for (int i = 0; i < 2; ++i) {
      AnswerYes(kUpgradeQuestion);
      WaitForDialog("Query?");  // the program has tried by now
      ExpectMenu(old);
    }
    FreeDisk();
    Answer("Query?", kUpgradeQuestion, IDYES);
    WaitForForm2();
    ExpectMenu(menu.Bytes());
  }

  // Answers Yes to the question. The caller handles what follows.
  void AnswerYes(const std::string& text) {
    const HWND question = WaitForDialog("Query?");
    EXPECT_EQ(outside::Text(question, outside::kMessageTextId), text);
    outside::Click(question, IDYES);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(question); }));
  }

  const std::string small_ = outside::TestOptions().smallDisk;
  std::string menuPath_;
  std::string current_;
  bool menuIsOnSmallDisk_ = false;
  bool scratchIsOnSmallDisk_ = false;
  int failures_ = 0;
};

TEST_F(FullDiskTest, TheScratchFiles) {
  Place(false, true);
  TryAll();
  EXPECT_EQ(failures_, 10);  // all but adding, which needs no scratch file
}

TEST_F(FullDiskTest, TheMenuFiles) {
  Place(true, false);
  TryAll();
  EXPECT_EQ(failures_, 6);  // the changes that make the menu longer
}

TEST_F(FullDiskTest, TheOneOfBoth) {
  Place(true, true);
  TryAll();
  EXPECT_EQ(failures_, 11);
}

TEST_F(FullDiskTest, AnUpgrade) {
  for (const bool menuIsOnSmallDisk : {false, true}) {
    for (const bool scratchIsOnSmallDisk : {false, true}) {
      if (menuIsOnSmallDisk || scratchIsOnSmallDisk) {
        SCOPED_TRACE(menuIsOnSmallDisk * 2 + scratchIsOnSmallDisk);
        Place(menuIsOnSmallDisk, scratchIsOnSmallDisk);
        TryUpgrade();
      }
    }
  }
}

// No half line stays, because it would make the menu unreadable.
TEST_F(FullDiskTest, ADrop) {
  Place(true, false);
  const KnownMenu before = ListMenu(library_);
  StartAndFill(before.Bytes());
  WaitForForm2();
  const std::string dropped = PathOf("dropped.txt");
  WriteBytes(dropped, "");
  outside::DragTo(List(), DragData::Files({std::wstring(dropped.begin(), dropped.end())}));
  const HWND message = WaitForDialog("Error!");
  const std::string text = outside::Text(message, outside::kMessageTextId);
  EXPECT_TRUE(text.starts_with("Cannot write the file:")) << text;
  EXPECT_NE(text.find(menuPath_), std::string::npos) << text;
  outside::Click(message, IDOK);
  EXPECT_TRUE(WaitUntil([&] { return !IsWindow(message); }));
  ExpectMenu(before.Bytes());
  EXPECT_EQ(Rows().size(), before.entries.size());
  FreeDisk();
}
