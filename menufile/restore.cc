// What becomes of the journals of changes that were cut short: at the start of the
// program, and before each change.
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

constexpr const char* kToBeFound = "-";
constexpr const char* kDeclined = "-declined-";

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

std::vector<MenuFile::Found> MenuFile::FindJournals() {
  std::vector<Found> found;
  std::set<std::uint64_t> serials;  // one file may have two paths
  for (const std::string& prefix : PlacesToLook()) {
    std::vector<std::string> paths;
    try {
      paths = files_.FilesThatBeginWith(prefix);
    } catch (const Failure&) {
    }
    for (const std::string& path : paths) {
      if (path.starts_with(prefix + kDeclined)) {
        continue;
      }
      try {
        std::optional<Journal> journal = JournalOfThisMenu(path);
        if (journal && serials.insert(journal->serial).second) {
          found.push_back({path, std::move(*journal)});
        }
      } catch (const Failure&) {
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

bool MenuFile::WasCutShort() {
  for (const Found& found : FindJournals()) {
    try {
      const MenuState state = StateBy(found);
      if (CanBeFinished(state)) {
        asked_ = found.journal.serial;
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
  for (const Found& found : FindJournals()) {
    if (isFinished) {
      PutAside(found.scratchFile, kDeclined);  // of an earlier change
      continue;
    }
    const MenuState state = StateBy(found);
    isFinished = state == MenuState::Finished || (CanBeFinished(state) && Finish(found));
  }
}

bool MenuFile::FinishEarlier() {
  TakeBackHalfLine();
  bool isFinished = false;
  for (const std::string& path : PlacesToLook()) {
    std::optional<Journal> journal;
    try {
      journal = JournalOfThisMenu(path);
    } catch (const Failure&) {
      // Whoever needs this name looks again.
      if (unfinished_) {
        throw;
      }
    }
    if (journal) {
      isFinished = Settle({path, std::move(*journal)}) || isFinished;
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
  // Somebody else may have put another menu there since. The next start asks.
  if (state == MenuState::Different && unfinished_ != serial &&
      IsLoadable(*files_.Open(path_, OpenMode::Read), path_, files_.BlockSize())) {
    PutAside(found.scratchFile, kToBeFound);
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
  return true;
}

// Deletes a scratch file whose journal is of no use any more. One that cannot be
// deleted loses its journal.
void MenuFile::Retire(const Found& found) {
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

// Gives a file with a journal a name of its own. Where another program reads the
// file, so that it has to keep its name, its bytes are copied.
void MenuFile::PutAside(const std::string& scratchFile, const char* infix) {
  std::string aside;
  int number = 0;
  do {
    aside = scratchFile + infix + std::to_string(++number);
  } while (files_.OpenIfThere(aside) != nullptr);
  try {
    files_.Rename(scratchFile, aside);
    files_.Open(aside, OpenMode::Change)->Flush();
    return;
  } catch (const Failure&) {
    if (files_.OpenIfThere(scratchFile) == nullptr) {
      throw;  // it has the new name
    }
  }
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

void MenuFile::TakeBackHalfLine() {
  if (!halfLine_) {
    return;
  }
  const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Change);
  const std::uint64_t size = menu->Size();
  if (size > halfLine_->start && size <= halfLine_->end) {
    menu->Truncate(halfLine_->start);
    menu->Flush();
  }
  halfLine_.reset();
}

}  // namespace menufile
