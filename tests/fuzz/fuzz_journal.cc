// Takes any bytes as a scratch file beside any menu. The program must ask about an
// interrupted change only if the scratch file has a complete journal of this menu. After
// the answer, no journal that somebody may still need is lost.
//
// The input is flags, the parts of a journal, changes to its bytes, and a change to the
// menu; the rest is the menu file. Without a journal, the first text is the whole scratch
// file.
#include <algorithm>

#include "menufile/checksum.h"
#include "menufile/failure.h"
#include "menufile/journal.h"
#include "menufile/scratch_file.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/menufile/memory_files.h"
#include "tests/menufile/plain_journal.h"
#include "tests/menufile/user_change.h"

namespace {

using namespace menufile;

constexpr const char* kMenu = "C:\\menus\\a.menu";
constexpr const char* kOtherMenu = "C:\\menus\\b.menu";

enum Flags : unsigned {
  kHasJournal = 1,
  kOfOtherMenu = 2,
  kDialogName = 4,
  kInMenuFolder = 8,
  kKeepsBytes = 16,
  kBeginsFinished = 32,
  kAnswersYes = 64,
  kCannotBeRemoved = 128,
};

std::string ReadScratchFile(FuzzInput& input, unsigned flags, const std::string& menu) {
  Journal journal;
  const std::string description = input.Text();
  if ((flags & kHasJournal) == 0) {
    return description;
  }
  journal.menu = (flags & kOfOtherMenu) != 0 ? kOtherMenu : kMenu;
  journal.serial = input.Byte();
  journal.head = input.Text();
  journal.descriptionSize = description.size();
  MemoryFiles files;
  files.Put(kMenu, menu);
  if ((flags & kKeepsBytes) != 0) {
    journal.keptSize = std::min<std::uint64_t>(input.Byte(), menu.size());
    journal.keptSum = SumBefore(*files.Open(kMenu, OpenMode::Read), journal.keptSize);
  }
  Checksum sum;
  sum.Add(description);
  {
    const auto scratch = files.Open("scratch", OpenMode::Create);
    scratch->Write(description);
    WriteJournal(*scratch, kMenu, journal, sum, files.BlockSize());
  }
  std::string bytes = *files.Get("scratch");
  for (unsigned wrong = input.Byte() % 4; wrong > 0; --wrong) {
    bytes[bytes.size() - 1 - input.Byte() % bytes.size()] = static_cast<char>(input.Byte());
  }
  bytes.resize(bytes.size() - std::min<std::size_t>(input.Byte() % 8, bytes.size()));
  return bytes;
}

// The two kinds after those of rewrites add an entry: as the wizard does, and as a drop
// does.
ChangeResult MakeChange(MenuFile& menu, int kind, std::size_t row) {
  if (kind < kUserChanges) {
    return Make(menu, SampleChange(static_cast<UserChange::Kind>(kind), row));
  }
  return AddEntries(menu, {SampleChange(UserChange::Kind::Edit).texts}, kind == kUserChanges);
}

// True if a file has a complete journal with the same contents.
bool IsKept(const PlainJournal& journal, const MemoryFiles& files) {
  const MemoryFiles::Disk disk = files.Everything();
  return std::any_of(disk.begin(), disk.end(), [&](const auto& file) {
    const std::optional<PlainJournal> found = ReadPlainly(file.second);
    return found && found->menu == journal.menu && found->head == journal.head &&
           found->description == journal.description && found->keptSize == journal.keptSize;
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const unsigned flags = input.Byte();
  const auto kind = static_cast<int>(input.Byte() % (kUserChanges + 2));
  const std::size_t row = input.Byte();
  const std::size_t cutAt = input.Byte();
  // The menu is the rest of the input, so it is read after a first look at the journal.
  FuzzInput afterJournal = input;
  ReadScratchFile(afterJournal, flags, {});
  std::string before = afterJournal.Rest();
  const std::string scratchBytes = ReadScratchFile(input, flags, before);
  const std::optional<PlainJournal> journal = ReadPlainly(scratchBytes);
  if (journal && (flags & kBeginsFinished) != 0) {
    before = journal->FinishedFrom(before);
    before.resize(before.size() - std::min(cutAt, before.size()));
  }

  MemoryFiles files;
  const std::string name = (flags & kDialogName) != 0 ? kDialogScratchFile : kListScratchFile;
  const std::string scratchFile = (flags & kInMenuFolder) != 0 ? "C:\\menus\\" + name : name;
  files.Put(kMenu, before);
  files.Put(kOtherMenu, "another menu");
  files.Put(scratchFile, scratchBytes);
  if ((flags & kCannotBeRemoved) != 0) {
    files.ForbidRemove(scratchFile);
  }

  MenuFile window(files, kMenu);
  const bool asks = window.WasCutShort();
  const bool isOwn = journal && journal->menu == kMenu;
  const bool isFinished = isOwn && before == journal->FinishedFrom(before);
  Require(!asks || isOwn, "the program asks only about a complete journal of this menu");
  Require(!asks || !isFinished, "the program does not ask about a finished change");
  if (isOwn && journal->keptSize == 0 && !journal->description.empty()) {
    Require(asks == !isFinished, "the program asks about an interrupted change");
  }
  Require(files.Get(kMenu) == before, "a question changes nothing");
  if (asks && (flags & kAnswersYes) != 0) {
    window.AnswerYes();
    Require(files.Get(kMenu) == journal->FinishedFrom(before), "Yes finishes the change");
    Require(!MenuFile(files, kMenu).WasCutShort(), "nobody asks again");
    return 0;
  }
  if (asks) {
    window.AnswerNo();
  }
  ChangeResult result = ChangeResult::Failed;
  try {
    result = MakeChange(window, kind, row);
  } catch (const Failure&) {
    // The menu has no such entry, or the file is no menu.
  }
  Require(!window.HasUnfinished(), "no change is left unfinished");
  if (result == ChangeResult::Failed) {
    Require(files.Get(kMenu) == before, "a change that fails changes nothing");
  }
  Require(result != ChangeResult::EarlierFinished, "the user has said No");
  if (journal && (asks || !isOwn)) {
    Require(IsKept(*journal, files), "a journal that was not finished is kept");
  }
  return 0;
}
