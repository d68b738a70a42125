// What becomes of the journals of changes that were cut short: at the start of the
// program, and before each change.
#include <algorithm>
#include <iterator>

#include "menufile/failure.h"
#include "menufile/file_window.h"
#include "menufile/menu_file.h"
#include "menufile/reader.h"
#include "menufile/scratch_file.h"

namespace menufile {
namespace {

constexpr const char* kOvertaken = "-overtaken-";
constexpr const char* kDeclined = "-declined-";

// True for a journal that was put aside because the menu was another by then.
bool IsOvertaken(const std::string& scratchFile) {
  return scratchFile.find(kOvertaken) != std::string::npos;
}

// True if LoadMenuFile() would read the file to its end without a question.
bool IsLoadable(File& file, const std::string& path, std::size_t blockSize) {
  FileWindow window(file, blockSize);
  MenuReader reader(window, path);
  try {
    if (!reader.SkipMarkerLine()) {
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

// The scratch files in the current directory, and those beside the menu file.
std::vector<std::string> MenuFile::PlacesToLook() {
  std::vector<std::string> paths(std::begin(kScratchFiles), std::end(kScratchFiles));
  for (const char* name : kScratchFiles) {
    if (const std::string path = files_.Beside(path_, name); path != name) {
      paths.push_back(path);
    }
  }
  return paths;
}

std::optional<Journal> MenuFile::JournalOfThisMenu(const std::string& scratchFile) {
  std::optional<Journal> journal;
  if (const std::unique_ptr<File> file = files_.OpenIfThere(scratchFile)) {
    journal = ReadJournal(*file, files_.BlockSize());
  }
  return journal && journal->menu == MenuName() ? journal : std::nullopt;
}

std::vector<MenuFile::Found> MenuFile::FindJournals(bool mayFail) {
  std::vector<Found> found;
  for (const std::string& prefix : PlacesToLook()) {
    std::vector<std::string> paths;
    try {
      paths = files_.FilesThatBeginWith(prefix);
    } catch (const Failure&) {
      if (!mayFail) {
        throw;
      }
    }
    for (const std::string& path : paths) {
      if (path.find(kDeclined, prefix.size()) != std::string::npos) {
        continue;
      }
      try {
        std::optional<Journal> journal = JournalOfThisMenu(path);
        if (journal) {
          found.push_back({path, std::move(*journal)});
        }
      } catch (const Failure&) {
        if (!mayFail) {
          throw;
        }
      }
    }
  }
  std::sort(found.begin(), found.end(), [](const Found& left, const Found& right) {
    return left.journal.serial > right.journal.serial;
  });
  return found;
}

MenuState MenuFile::StateBy(const Found& found) {
  const std::unique_ptr<File> scratch = files_.Open(found.scratchFile, OpenMode::Read);
  const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Read);
  return CompareMenu(*menu, *scratch, found.journal, files_.BlockSize());
}

std::uint64_t MenuFile::SumOfMenu() {
  const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Read);
  return SumOfFirst(*menu, menu->Size(), files_.BlockSize());
}

// True where somebody has put another menu in the place of the one that was cut short.
bool MenuFile::IsReplaced(MenuState state) {
  return state == MenuState::Different &&
         IsLoadable(*files_.Open(path_, OpenMode::Read), path_, files_.BlockSize());
}

bool MenuFile::WasCutShort() {
  for (const Found& found : FindJournals(true)) {
    try {
      const MenuState state = StateBy(found);
      if (CanBeFinished(state)) {
        asked_ = found.journal.serial;
        askedSum_ = SumOfMenu();
        return true;
      }
      if (state == MenuState::Finished) {
        Retire(found);
        return false;  // whatever came before it, this is how the menu is to be
      }
    } catch (const Failure&) {
    }
  }
  return false;
}

void MenuFile::AnswerYes() {
  bool isFinished = false;
  for (const Found& found : FindJournals(false)) {
    if (files_.OpenIfThere(found.scratchFile) == nullptr) {
      continue;  // it went as a copy, or is the same file by another path
    }
    if (isFinished) {
      PutAside(found.scratchFile, kDeclined);  // of an earlier change
      continue;
    }
    const MenuState state = StateBy(found);
    if (state == MenuState::Finished) {
      Retire(found);
    }
    if (IsReplaced(state) && SumOfMenu() != askedSum_) {
      PutAside(found.scratchFile, kOvertaken);  // the answer was about the menu before
      return;
    }
    isFinished = state == MenuState::Finished || (CanBeFinished(state) && Finish(found));
  }
}

bool MenuFile::FinishEarlier() {
  bool isFinished = TakeBackHalfLine();
  // A change on top of one that was cut short would be lost with it: where a scratch
  // file cannot be read, none is made.
  for (const Found& found : FindJournals(false)) {
    if (files_.OpenIfThere(found.scratchFile) != nullptr) {
      isFinished = Settle(found) || isFinished;
    }
  }
  if (unfinished_) {
    // Its journal is gone: another window may have finished the change.
    if (!IsLoadable(*files_.Open(path_, OpenMode::Read), path_, files_.BlockSize())) {
      throw Failure(path_, "change the file",
                    "Its last change was cut short, and what it takes to finish it is gone");
    }
    unfinished_.reset();
    isFinished = true;
  }
  return isFinished;
}

// What becomes of a journal of this menu before the next change. True if its
// change was finished.
bool MenuFile::Settle(const Found& found) {
  const std::uint64_t serial = found.journal.serial;
  const MenuState state = StateBy(found);
  if (state == MenuState::Finished) {
    Retire(found);
    const bool isOwn = unfinished_ == serial;
    if (isOwn) {
      unfinished_.reset();
    }
    return isOwn;
  }
  if (serial <= declined_ || state == MenuState::Replaced) {
    PutAside(found.scratchFile, kDeclined);
    return false;
  }
  if (IsOvertaken(found.scratchFile)) {
    return false;  // the next start asks
  }
  if (IsReplaced(state) && unfinished_ != serial) {
    PutAside(found.scratchFile, kOvertaken);
    return false;
  }
  return Finish(found);
}

bool MenuFile::Finish(const Found& found) {
  {
    const std::unique_ptr<File> scratch = files_.Open(found.scratchFile, OpenMode::Change);
    // Another window may have worked with it until now.
    const std::optional<Journal> journal = ReadJournal(*scratch, files_.BlockSize());
    if (!journal || journal->serial != found.journal.serial) {
      return false;
    }
    const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Change);
    WriteMenu(*menu, *scratch, path_, *journal, files_.BlockSize());
    DropJournal(*scratch, *journal);
  }
  if (unfinished_ == found.journal.serial) {
    unfinished_.reset();
  }
  left_.reset();
  RemoveScratchFile(files_, found.scratchFile);
  RetireCopies(found.journal.serial);
  return true;
}

// A journal has a copy where putting it aside was cut short.
void MenuFile::RetireCopies(std::uint64_t serial) {
  for (const Found& copy : FindJournals(true)) {
    if (copy.journal.serial == serial) {
      Retire(copy);
    }
  }
}

// Deletes a scratch file whose journal is of no use any more. One that cannot be
// deleted loses its journal.
void MenuFile::Retire(const Found& found) {
  // What the menu file holds may not be on the disk yet.
  files_.Open(path_, OpenMode::Change)->Flush();
  {
    const std::unique_ptr<File> scratch = files_.Open(found.scratchFile, OpenMode::Change);
    const std::optional<Journal> journal = ReadJournal(*scratch, files_.BlockSize());
    if (!journal || journal->serial != found.journal.serial) {
      return;
    }
    scratch->Truncate(journal->descriptionSize);
    scratch->Flush();
  }
  RemoveScratchFile(files_, found.scratchFile);
}

// Copies a file with a journal to a name of its own, and frees the one it had. A
// new name alone would be quicker, but a power cut may leave a file without either.
void MenuFile::PutAside(const std::string& scratchFile, const char* infix) {
  std::string aside;
  int number = 0;
  do {
    aside = scratchFile + infix + std::to_string(++number);
  } while (files_.OpenIfThere(aside) != nullptr);
  {
    const std::unique_ptr<File> scratch = files_.Open(scratchFile, OpenMode::Change);
    const std::optional<Journal> journal = ReadJournal(*scratch, files_.BlockSize());
    if (!journal) {
      return;  // another editor has finished its change
    }
    const std::unique_ptr<File> copy = files_.Open(aside, OpenMode::Create);
    AppendFile(*scratch, *copy, files_.BlockSize());
    copy->Flush();
    if (!ReadJournal(*copy, files_.BlockSize())) {
      throw Failure(aside, "write the file", "It does not hold what was written to it");
    }
    scratch->Truncate(journal->descriptionSize);
    scratch->Flush();
  }
  RemoveScratchFile(files_, scratchFile);
}

bool MenuFile::TakeBackHalfLine() {
  if (!halfLine_) {
    return false;
  }
  bool isWhole = false;
  const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Change);
  const std::uint64_t size = menu->Size();
  if (size > halfLine_->start && SumBefore(*menu, halfLine_->start) == halfLine_->startSum) {
    // Another window may have written the menu since.
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
