// Finishes interrupted changes, and puts journals aside: at the start of the program
// and before each change.
#include <algorithm>
#include <iterator>
#include <set>

#include "menufile/failure.h"
#include "menufile/file_window.h"
#include "menufile/menu_file.h"
#include "menufile/reader.h"
#include "menufile/scratch_file.h"

namespace menufile {
namespace {

constexpr const char* kOvertaken = "-overtaken-";
constexpr const char* kDeclined = "-declined-";

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

std::string MenuFile::MenuName() { return files_.Open(path_, OpenMode::Read)->FullName(); }

// The scratch files in the current directory and in the folder of the menu file.
std::vector<std::string> MenuFile::PlacesToLook() {
  std::vector<std::string> paths(std::begin(kScratchFiles), std::end(kScratchFiles));
  for (const char* name : kScratchFiles) {
    if (const std::string path = files_.Beside(path_, name); path != name) {
      paths.push_back(path);
    }
  }
  return paths;
}

// All files that may hold a journal which somebody may want to finish.
std::vector<MenuFile::Place> MenuFile::FilesToLookAt(bool mayFail) {
  std::vector<Place> places;
  for (const std::string& scratchFile : PlacesToLook()) {
    try {
      for (std::string& path : files_.FilesThatBeginWith(scratchFile)) {
        if (path.find(kDeclined, scratchFile.size()) == std::string::npos) {
          places.push_back({std::move(path), scratchFile});
        }
      }
    } catch (const Failure&) {
      if (!mayFail) {
        throw;
      }
    }
  }
  return places;
}

std::vector<MenuFile::Found> MenuFile::FindJournals(bool mayFail) {
  std::vector<Found> found;
  // A file has two paths here if the menu stands in the current directory.
  std::set<std::string> names;
  for (const Place& place : FilesToLookAt(mayFail)) {
    try {
      const std::unique_ptr<File> file = files_.OpenIfThere(place.file);
      if (file == nullptr || !names.insert(file->FullName()).second) {
        continue;
      }
      std::optional<Journal> journal = ReadJournal(*file, files_.BlockSize());
      if (journal && journal->menu == MenuName()) {
        found.push_back({place, std::move(*journal)});
      }
    } catch (const Failure&) {
      if (!mayFail) {
        throw;
      }
    }
  }
  std::sort(found.begin(), found.end(), [](const Found& left, const Found& right) {
    return left.journal.serial > right.journal.serial;
  });
  return found;
}

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
  for (const Found& found : FindJournals(true)) {
    try {
      const MenuState state = StateBy(found);
      if (CanBeFinished(state)) {
        asked_ = {found.journal.serial, SumOfMenu()};
        return true;
      }
      if (state == MenuState::Finished) {
        Retire(found);
        return false;  // the menu is as the latest journal says: do not ask for earlier ones
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
      PutAside(found.place, kDeclined);  // an earlier change, overtaken by now
      continue;
    }
    const MenuState state = StateBy(found);
    if (state == MenuState::Finished) {
      Retire(found);
    }
    if (IsReplaced(state) && SumOfMenu() != asked_.menuSum) {
      PutAside(found.place, kOvertaken);  // the user answered about the menu before it
      return;
    }
    isFinished = state == MenuState::Finished || (CanBeFinished(state) && FinishAsked(found));
  }
}

// If the journal was put aside as overtaken, it gets an ordinary name first. Otherwise
// other windows would not finish the change if this one cannot.
bool MenuFile::FinishAsked(Found found) {
  if (IsOvertaken(found)) {
    found.place.file = PutAside(found.place, "-");
  }
  return !found.place.file.empty() && Finish(found);
}

bool MenuFile::FinishEarlier() {
  bool isFinished = TakeBackHalfLine();
  // A change made after an interrupted one would be lost when that one is finished. So
  // a scratch file that cannot be read stops the new change.
  for (const Found& found : FindJournals(false)) {
    if (files_.OpenIfThere(found.place.file) != nullptr) {
      isFinished = Settle(found) || isFinished;
    }
  }
  if (unfinished_) {
    // The journal is gone: another window may have finished the change.
    if (!IsLoadable(*files_.Open(path_, OpenMode::Read), path_, files_.BlockSize())) {
      throw Failure(path_, "change the file",
                    "Its last change was cut short, and what it takes to finish it is gone");
    }
    unfinished_.reset();
    isFinished = true;
  }
  return isFinished;
}

void MenuFile::MustNotFinish(std::uint64_t serial, std::uint64_t menuSum) {
  declined_ = {std::max(declined_.serial, serial), menuSum};
}

// True if the journal was put aside because its menu had changed since.
bool MenuFile::IsOvertaken(const Found& found) {
  return found.place.file.find(kOvertaken, found.place.scratchFile.size()) != std::string::npos;
}

// Finishes the change of a journal of this menu, or puts the journal aside. Returns
// true if the change is finished now.
bool MenuFile::Settle(const Found& found) {
  const std::uint64_t serial = found.journal.serial;
  const MenuState state = StateBy(found);
  if (state == MenuState::Finished) {
    Retire(found);
    MustNotFinish(serial, SumOfMenu());
    const bool isOwn = unfinished_ == serial;
    if (isOwn) {
      unfinished_.reset();
    }
    return isOwn;
  }
  const bool isDeclined = serial <= declined_.serial && SumOfMenu() == declined_.menuSum;
  if (isDeclined || state == MenuState::Replaced) {
    FlushMenu();
    PutAside(found.place, kDeclined);
    return false;
  }
  if (IsOvertaken(found)) {
    return false;  // the next start asks the user
  }
  if (IsReplaced(state) && unfinished_ != serial) {
    PutAside(found.place, kOvertaken);
    return false;
  }
  return Finish(found);
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
  return journal && journal->serial == found.journal.serial ? std::move(scratch) : nullptr;
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
    WriteMenu(*menu, *scratch, path_, found.journal, files_.BlockSize());
    DropJournal(*scratch, found.journal);
    MustNotFinish(found.journal.serial, SumOf(*menu));
  }
  if (unfinished_ == found.journal.serial) {
    unfinished_.reset();
  }
  RemoveScratchFile(files_, found.place.file);
  RetireCopies(found.journal.serial);
  return true;
}

// Retires the copies of a journal. PutAside() leaves a copy if it is interrupted.
void MenuFile::RetireCopies(std::uint64_t serial) {
  for (const Found& copy : FindJournals(true)) {
    if (copy.journal.serial == serial) {
      Retire(copy);
    }
  }
}

// To be called before a journal goes: without one, the menu file must be on the disk.
void MenuFile::FlushMenu() { files_.Open(path_, OpenMode::Change)->Flush(); }

// Deletes a scratch file whose journal is no longer needed. Its journal is cut off
// first, in case the file cannot be deleted.
void MenuFile::Retire(const Found& found) {
  FlushMenu();
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
std::string MenuFile::PutAside(const Place& place, const char* infix) {
  std::string aside = FreeName(place.scratchFile + infix);
  {
    const std::unique_ptr<File> scratch = OpenIfStillThere(place.file);
    if (scratch == nullptr) {
      return {};
    }
    const std::optional<Journal> journal = ReadJournal(*scratch, files_.BlockSize());
    if (!journal) {
      return {};  // another editor has finished the change
    }
    const std::unique_ptr<File> copy = files_.Open(aside, OpenMode::New);
    AppendFile(*scratch, *copy, files_.BlockSize());
    copy->Flush();
    if (!ReadJournal(*copy, files_.BlockSize())) {
      throw Failure(aside, "write the file", "It does not hold what was written to it");
    }
    scratch->Truncate(journal->descriptionSize);
    scratch->Flush();
  }
  RemoveScratchFile(files_, place.file);
  return aside;
}

bool MenuFile::TakeBackHalfLine() {
  if (!halfLine_) {
    return false;
  }
  bool isWhole = false;
  const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Change);
  const std::uint64_t size = menu->Size();
  if (size > halfLine_->start &&
      SumOfFirst(*menu, halfLine_->start, files_.BlockSize()) == halfLine_->startSum) {
    // Cut off only what is a prefix of the lines: another window may have written the
    // menu since.
    std::string rest(static_cast<std::size_t>(size - halfLine_->start), '\0');
    ReadToEnd(*menu, halfLine_->start, rest);
    isWhole = rest == halfLine_->lines;
    if (!isWhole && halfLine_->lines.starts_with(rest)) {
      menu->Truncate(halfLine_->start);
      menu->Flush();
    }
  }
  halfLine_.reset();
  return isWhole;
}

}  // namespace menufile
