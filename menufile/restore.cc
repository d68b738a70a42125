// Finishes interrupted changes, and puts journals aside: at the start of the program
// and before each change.
#include <algorithm>
#include <utility>

#include "menufile/failure.h"
#include "menufile/file_window.h"
#include "menufile/menu_file.h"
#include "menufile/reader.h"
#include "menufile/scratch_file.h"

namespace menufile {
namespace {

// A power cut may leave zeros in a file. No text of a menu has any.
bool HasZeros(File& file, std::uint64_t offset, std::size_t blockSize) {
  FileWindow window(file, blockSize, {}, offset);
  while (window.Advance(window.bytes().size())) {
    if (window.bytes().find('\0') != std::string_view::npos) {
      return true;
    }
  }
  return false;
}

// True if LoadMenuFile() would read the file to its end without asking the user.
bool IsLoadable(File& file, const std::string& path, std::size_t blockSize) {
  FileWindow window(file, blockSize);
  MenuReader reader(window, path);
  try {
    if (!reader.SkipMarkerLine() || HasZeros(file, reader.offset(), blockSize)) {
      return false;
    }
    const std::string type = reader.ReadTypeLine().Text();
    reader.ReadAppearance();
    if (type == TypeKeyword(MenuType::DirectoryPointer)) {
      reader.ReadDirectoryPointer();
    } else if (type == TypeKeyword(MenuType::UserDefined)) {
      while (!reader.AtEnd()) {
        reader.ReadItem();
      }
    }
    return true;
  } catch (const Failure&) {
    return false;
  }
}

bool CanBeFinished(MenuState state) {
  return state == MenuState::CutShort || state == MenuState::Different;
}

}  // namespace

MenuState MenuFile::StateBy(const Found& found) {
  const std::unique_ptr<File> scratch = files_.Open(found.place.file, OpenMode::Read);
  const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Read);
  return CompareMenu(*menu, *scratch, found.journal, files_.BlockSize());
}

std::uint64_t MenuFile::SumOf(File& menu) const {
  return SumOfFirst(menu, menu.Size(), files_.BlockSize());
}

std::uint64_t MenuFile::SumOfMenu() { return SumOf(*files_.Open(path_, OpenMode::Read)); }

// True if the menu file can be read as a complete menu. Another program has probably
// replaced it: keep that.
bool MenuFile::IsReplaced(MenuState state) {
  return state == MenuState::Different &&
         IsLoadable(*files_.Open(path_, OpenMode::Read), path_, files_.BlockSize());
}

bool MenuFile::WasCutShort() {
  bool isFinished = false;
  for (const Found& found : FindJournals(true)) {
    // An earlier journal came back after a power cut, and its change was made. A change that
    // was overtaken was not made, and the user has not been asked about it.
    if (isFinished && !IsOvertaken(found)) {
      continue;
    }
    try {
      const MenuState state = StateBy(found);
      if (CanBeFinished(state)) {
        asked_ = {found.journal.serial, SumOfMenu()};
        return true;
      }
      if (state == MenuState::Finished) {
        isFinished = true;
        CleanUpAfter(found);
      }
    } catch (const Failure&) {
    }
  }
  return false;
}

void MenuFile::AnswerYes() {
  bool isFinished = false;
  for (const Found& found : FindJournals(false)) {
    if (files_.OpenIfThere(found.place.file) == nullptr) {
      continue;  // it was a copy, and was deleted with the other one
    }
    if (isFinished) {
      PutAside(found, kDeclined);  // the user wants the later change
      continue;
    }
    const MenuState state = StateBy(found);
    if (state == MenuState::Finished) {
      CleanUpAfter(found);
    }
    if (IsReplaced(state) && SumOfMenu() != asked_.menuSum) {
      PutAside(found, kOvertaken);  // the user answered about the menu before it
      return;
    }
    const bool isAsked = found.journal.serial == asked_.serial;
    isFinished =
        state == MenuState::Finished ? isAsked : CanBeFinished(state) && FinishAsked(found);
  }
}

// If the journal was put aside as overtaken, it gets an ordinary name first. Otherwise
// other windows would not finish the change if this one cannot.
bool MenuFile::FinishAsked(Found found) {
  if (IsOvertaken(found)) {
    found.place.file = PutAside(found, "-");
  }
  return !found.place.file.empty() && Finish(found);
}

std::string MenuFile::Load() {
  std::string bytes = files_.Open(path_, OpenMode::Read)->ReadAll();
  mustLoadAgain_ = false;
  return bytes;
}

bool MenuFile::FinishEarlier() {
  TakeBackHalfLine();
  // A change made after an interrupted one would be lost when that one is finished. So
  // a scratch file that cannot be read stops the new change.
  for (const Found& found : FindJournals(false)) {
    if (files_.OpenIfThere(found.place.file) != nullptr) {
      Settle(found);
    }
  }
  if (unfinished_) {
    // The journal is gone: another window may have finished the change.
    if (!IsLoadable(*files_.Open(path_, OpenMode::Read), path_, files_.BlockSize())) {
      throw Failure(path_, "change the file",
                    "Its last change was cut short, and what it takes to finish it is gone");
    }
    unfinished_.reset();
    mustLoadAgain_ = true;
  }
  return std::exchange(mustLoadAgain_, false);
}

void MenuFile::MustNotFinish(std::uint64_t serial, std::uint64_t menuSum) {
  ended_ = {std::max(ended_.serial, serial), menuSum};
}

// True if the journal was put aside because its menu had changed since.
bool MenuFile::IsOvertaken(const Found& found) {
  return found.place.file.find(kOvertaken, found.place.scratchFile.size()) != std::string::npos;
}

// True if the user said No to this change, or it was finished or reported as failed, and
// the menu file is still as it was then. All that covers earlier changes, too, except
// overtaken ones: the user has not been asked about those.
bool MenuFile::IsDeclined(const Found& found) {
  const std::uint64_t serial = found.journal.serial;
  const auto covers = [&](const Seen& seen) {
    return (IsOvertaken(found) ? serial == seen.serial : serial <= seen.serial) &&
           SumOfMenu() == seen.menuSum;
  };
  return covers(saidNo_) || covers(ended_);
}

// Finishes the change of a journal of this menu, or puts the journal aside.
void MenuFile::Settle(const Found& found) {
  const std::uint64_t serial = found.journal.serial;
  const bool isOwn = unfinished_ && unfinished_->serial == serial;
  const MenuState state = StateBy(found);
  if (state == MenuState::Finished) {
    if (isOwn) {
      mustLoadAgain_ = true;
      unfinished_.reset();
    }
    MustNotFinish(serial, SumOfMenu());
    try {
      CleanUpAfter(found);
    } catch (const Failure&) {
      // A full disk has no room for copies of earlier journals before this one goes.
      Retire(found);
    }
    return;
  }
  if (state == MenuState::Replaced || IsDeclined(found)) {
    FlushMenu();
    PutAside(found, kDeclined);
    return;
  }
  if (IsOvertaken(found)) {
    return;  // the next start asks the user
  }
  // A menu that could not be emptied may have the beginning of the new one and the end of
  // the old one, and be complete.
  const bool isMixed = isOwn && !unfinished_->isEmptied;
  if (IsReplaced(state) && !isMixed) {
    PutAside(found, kOvertaken);
    return;
  }
  Finish(found);
}

// Returns nullptr if the file is gone: another editor has ended the change of its
// journal meanwhile.
std::unique_ptr<File> MenuFile::OpenIfStillThere(const std::string& scratchFile) {
  try {
    return files_.Open(scratchFile, OpenMode::Change);
  } catch (const Failure&) {
    if (files_.OpenIfThere(scratchFile) != nullptr) {
      throw;
    }
    return nullptr;
  }
}

// Returns nullptr if the journal is no longer there: another window may have ended its
// change since it was found.
std::unique_ptr<File> MenuFile::OpenWithItsJournal(const Found& found) {
  std::unique_ptr<File> scratch = OpenIfStillThere(found.place.file);
  if (scratch == nullptr) {
    return nullptr;
  }
  const std::optional<Journal> journal = ReadJournal(*scratch, files_.BlockSize());
  const bool isIt =
      journal && journal->serial == found.journal.serial && journal->menu == found.journal.menu;
  return isIt ? std::move(scratch) : nullptr;
}

bool MenuFile::Finish(const Found& found) {
  {
    const std::unique_ptr<File> scratch = OpenWithItsJournal(found);
    if (scratch == nullptr) {
      return false;
    }
    const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Change);
    // Whoever wrote the journal may have ended before its own flushes.
    scratch->Flush();
    left_.reset();
    MakeDeletionsDurable(found.place.file);
    mustLoadAgain_ = true;
    WriteMenu(*menu, *scratch, path_, found.journal, files_.BlockSize());
    MustNotFinish(found.journal.serial, SumOf(*menu));
  }
  if (unfinished_ && unfinished_->serial == found.journal.serial) {
    unfinished_.reset();
  }
  try {
    CleanUpAfter(found);
  } catch (const Failure&) {
    // The journal stays and says that its change is finished, so the next start or change
    // cleans up.
  }
  return true;
}

// Retires the journal of a finished change, and its copies: PutAside() leaves one if it is
// interrupted. Before that, puts earlier journals aside, or a start would ask about them.
// Overtaken ones stay.
void MenuFile::CleanUpAfter(const Found& finished) {
  FlushMenu();
  const std::vector<Found> journals = FindJournals(false);
  for (const Found& found : journals) {
    if (found.journal.serial < finished.journal.serial && !IsOvertaken(found)) {
      PutAside(found, kDeclined);
    }
  }
  for (const Found& found : journals) {
    if (found.journal.serial == finished.journal.serial) {
      Retire(found);
    }
  }
}

// To be called before a journal goes: without one, the menu file must be on the disk.
void MenuFile::FlushMenu() { files_.Open(path_, OpenMode::Change)->Flush(); }

// Deletes a scratch file whose journal is no longer needed. Its journal is cut off
// first, in case the file cannot be deleted.
void MenuFile::Retire(const Found& found) {
  {
    const std::unique_ptr<File> scratch = OpenWithItsJournal(found);
    if (scratch == nullptr) {
      return;
    }
    scratch->Truncate(found.journal.descriptionSize);
    scratch->Flush();
  }
  RemoveScratchFile(files_, found.place.file);
}

// Returns the prefix with the first number that makes it a name which no file has.
std::string MenuFile::FreeName(const std::string& prefix) {
  std::string name;
  int number = 0;
  do {
    name = prefix + std::to_string(++number);
  } while (files_.OpenIfThere(name) != nullptr);
  return name;
}

// Copies a scratch file with its journal to a name of its own, and frees the old
// name. Renaming would be quicker, but a power cut might leave the file without a
// name.
std::string MenuFile::PutAside(const Found& found, const char* infix) {
  std::string aside = FreeName(found.place.scratchFile + infix);
  {
    const std::unique_ptr<File> scratch = OpenWithItsJournal(found);
    if (scratch == nullptr) {
      return {};
    }
    const std::unique_ptr<File> copy = files_.Open(aside, OpenMode::New);
    AppendFile(*scratch, *copy, files_.BlockSize());
    copy->Flush();
    if (!ReadJournal(*copy, files_.BlockSize())) {
      throw Failure(aside, "write the file", "It does not hold what was written to it");
    }
    scratch->Truncate(found.journal.descriptionSize);
    scratch->Flush();
  }
  RemoveScratchFile(files_, found.place.file);
  return aside;
}

void MenuFile::TakeBackHalfLine() {
  if (!halfLine_) {
    return;
  }
  const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Change);
  const std::uint64_t size = menu->Size();
  if (size > halfLine_->start &&
      SumOfFirst(*menu, halfLine_->start, files_.BlockSize()) == halfLine_->startSum) {
    // Cut off only a prefix of the lines that ends inside a line: another window may have
    // written the menu since, and even have added the same entry.
    std::string rest(static_cast<std::size_t>(size - halfLine_->start), '\0');
    ReadToEnd(*menu, halfLine_->start, rest);
    if (rest.ends_with("\r\n")) {
      mustLoadAgain_ = true;
    } else if (halfLine_->lines.starts_with(rest)) {
      menu->Truncate(halfLine_->start);
      menu->Flush();
    }
  }
  halfLine_.reset();
}

}  // namespace menufile
