// Tests with files that another program has open: for a moment, like an indexer or a virus
// scanner, or for long.

#include <chrono>
#include <thread>

#include "menufile/failure.h"
#include "tests/windows/list_test_base.h"
#include "win32/handles.h"

using menufile::OpenMode;
using testing_menus::ItemLine;

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kMoment{300};

// Releases a file after a while, on a thread of its own.
class Holder {
 public:
  Holder(std::function<void()> letGo, milliseconds time)
      : thread_([letGo = std::move(letGo), time] {
          std::this_thread::sleep_for(time);
          letGo();
        }) {}
  ~Holder() { thread_.join(); }

 private:
  std::thread thread_;
};

milliseconds TimeOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - start);
}

HANDLE OpenToHold(const std::string& path, DWORD share, DWORD flags = 0) {
  const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, share,
                                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL | flags, nullptr);
  EXPECT_NE(file, INVALID_HANDLE_VALUE) << path;
  return file;
}

}  // namespace

class BusyFilesTest : public ListTest {
 public:
  // Blocks the file at path_, each in another way, and returns what releases it.
  using Hold = std::function<void()> (BusyFilesTest::*)();

  std::function<void()> HoldForReaders() {
    const HANDLE file = OpenToHold(path_, FILE_SHARE_READ);
    return [file] { CloseHandle(file); };
  }
  std::function<void()> HoldAMapping() {
    const HANDLE file = CreateFileA(path_.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    const HANDLE mapping = CreateFileMappingA(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    void* const view = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    EXPECT_NE(view, nullptr);
    return [=] {
      UnmapViewOfFile(view);
      CloseHandle(mapping);
      CloseHandle(file);
    };
  }
  // Then access is denied, as for a file that is being deleted.
  std::function<void()> HoldAnImage() {
    EXPECT_TRUE(CopyFileA(ThisProgram().c_str(), path_.c_str(), FALSE));
    const HANDLE file =
        CreateFileA(path_.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, 0, nullptr);
    const HANDLE mapping =
        CreateFileMappingA(file, nullptr, PAGE_READONLY | SEC_IMAGE, 0, 0, nullptr);
    EXPECT_NE(mapping, nullptr);
    CloseHandle(file);
    return [mapping] { CloseHandle(mapping); };
  }

  // Another editor's scratch file, which it deletes in the end.
  std::function<void()> HoldTheName() {
    return [this] { DeleteFileA(path_.c_str()); };
  }

  void OpenToChange() { windowsFiles.Open(path_, OpenMode::Change); }
  void Create() { windowsFiles.Open(path_, OpenMode::Create); }
  void MakeNew() { windowsFiles.Open(path_, OpenMode::New); }
  void Empty() { windowsFiles.Open(path_, OpenMode::Change)->Truncate(0); }
  void Remove() { windowsFiles.Remove(path_, Always); }
  static bool Always(menufile::File&) { return true; }

 protected:
  const std::string path_ = PathOf("file");
};

TEST_F(BusyFilesTest, AreTriedAgainForHalfASecond) {
  const struct {
    const char* name;
    Hold hold;
    void (BusyFilesTest::*work)();
  } cases[] = {
      {"opening", &BusyFilesTest::HoldForReaders, &BusyFilesTest::OpenToChange},
      {"making", &BusyFilesTest::HoldTheName, &BusyFilesTest::MakeNew},
      {"emptying", &BusyFilesTest::HoldAMapping, &BusyFilesTest::Empty},
      {"deleting", &BusyFilesTest::HoldForReaders, &BusyFilesTest::Remove},
      {"deleting what access is denied to", &BusyFilesTest::HoldAnImage, &BusyFilesTest::Remove},
  };
  for (const auto& [name, hold, work] : cases) {
    SCOPED_TRACE(name);
    WriteBytes(path_, "some bytes");
    {
      const Holder holder((this->*hold)(), kMoment);
      EXPECT_NO_THROW((this->*work)());
    }
    WriteBytes(path_, "some bytes");
    const std::function<void()> letGo = (this->*hold)();
    const milliseconds time = TimeOf([&] { EXPECT_THROW((this->*work)(), menufile::Failure); });
    EXPECT_GE(time, milliseconds(450));
    EXPECT_LT(time, milliseconds(1500));
    letGo();
  }
}

// Another editor has its scratch file open: the file must be neither overwritten nor
// deleted.
TEST_F(BusyFilesTest, AreNotTouchedWhileAnotherEditorWritesThem) {
  WriteBytes(path_, "some bytes");
  const std::function<void()> letGo = HoldForReaders();
  EXPECT_LT(TimeOf([&] { EXPECT_THROW(Create(), menufile::Failure); }), milliseconds(400));
  letGo();
  const HANDLE file = OpenToHold(path_, FILE_SHARE_READ);
  {
    const Holder holder(
        [file] {
          DWORD written = 0;
          WriteFile(file, "other bytes", 11, &written, nullptr);
          CloseHandle(file);
        },
        milliseconds(100));
    EXPECT_THROW(Remove(), menufile::Failure);
  }
  EXPECT_EQ(ReadBytes(path_), "other bytes");
}

// Waiting would not help: the file is read-only, it is a folder, or its folder takes no
// file.
TEST_F(BusyFilesTest, AreNotWaitedForWhereAccessIsDeniedForGood) {
  WriteBytes(PathOf("read-only"), "");
  MakeReadOnly(PathOf("read-only"));
  for (const std::string& path : {PathOf("read-only"), folder(), std::string("Z:\\proc\\none")}) {
    const milliseconds time = TimeOf([&] {
      EXPECT_THROW(windowsFiles.Open(path, OpenMode::Create), menufile::Failure) << path;
      EXPECT_THROW(windowsFiles.Remove(path, Always), menufile::Failure) << path;
    });
    EXPECT_LT(time, milliseconds(400)) << path;
  }
  MakeWritable(PathOf("read-only"));
}

TEST_F(BusyFilesTest, AChangeIsMadeWhileSomebodyHoldsAFileForAMoment) {
  const std::string a = ItemLine("A", "news:a");
  const std::string b = ItemLine("B", "news:b");
  for (const char* name : {"test.menu", "temporaryfile"}) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(OpenLines({a, b}));
    SelectRow(0);
    {
      const HANDLE file = OpenToHold(PathOf(name), FILE_SHARE_READ);
      const Holder holder([file] { CloseHandle(file); }, kMoment);
      Press(IDC_FORM2_COMMAND8);
    }
    ExpectSettled({b, a});
  }
}
