// Any bytes as a scratch file beside any menu: nothing but what the checksum of a
// journal covers makes the program ask, and what it does then keeps every copy of a
// menu that somebody may still want.
//
// The input is flags, the parts of a journal, what is wrong with its bytes, a change
// to the menu; the rest is the menu file. Without a journal the first text is all of
// the scratch file.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "menufile/checksum.h"
#include "menufile/failure.h"
#include "menufile/journal.h"
#include "menufile/scratch_file.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/require.h"
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

// The two numbers after the kinds of rewrites add entries, as the wizard does and as
// a drop does.
ChangeResult MakeChange(MenuFile& menu, int kind, std::size_t row) {
  if (kind < kUserChanges) {
    return Make(menu, SampleChange(static_cast<UserChange::Kind>(kind), row));
  }
  return AddEntries(menu, {SampleChange(UserChange::Kind::Edit).texts}, kind == kUserChanges);
}

// Some file has a whole journal with what that one has.
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
  // The journal is read before the menu, which is what is left of the input.
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
  Require(!asks || isOwn, "only a whole journal of this menu is asked about");
  Require(!asks || !isFinished, "what is finished is not asked about");
  if (isOwn && journal->keptSize == 0 && !journal->description.empty()) {
    Require(asks == !isFinished, "a change that was cut short is asked about");
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
    // The menu has no such entry, or is none.
  }
  Require(!window.HasUnfinished(), "nothing fails halfway");
  if (result == ChangeResult::Failed) {
    Require(files.Get(kMenu) == before, "a change that fails changes nothing");
  }
  Require(result != ChangeResult::EarlierFinished, "the user has said No");
  if (journal && (asks || !isOwn)) {
    // Where another folder's scratch file is, only its own menu touches it.
    Require(IsKept(*journal, files), "what nobody wanted to finish is kept");
  }
  return 0;
}
