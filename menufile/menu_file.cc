#include "menufile/menu_file.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "menufile/failure.h"
#include "menufile/file_window.h"
#include "menufile/reader.h"
#include "menufile/scratch_file.h"

namespace menufile {
namespace {

// Cuts the menu file to the bytes that the change keeps. A failure matters only if
// the new menu is shorter than the old one: a longer one is written over all of it.
// Returns true if the menu file holds no other bytes now.
bool MakeRoom(File& menu, const Journal& journal) {
  if (menu.Size() <= journal.keptSize) {
    return true;
  }
  try {
    menu.Truncate(journal.keptSize);
    return true;
  } catch (const Failure&) {
    if (menu.Size() > journal.FinishedSize()) {
      throw;
    }
    return false;
  }
}

// Adds the bytes of the file from `offset` on to a checksum.
void AddTo(Checksum& sum, File& file, std::uint64_t offset, std::size_t blockSize) {
  if (file.Size() <= offset) {
    return;
  }
  FileWindow window(file, blockSize, {}, offset);
  while (window.Advance(window.bytes().size())) {
    sum.Add(window.bytes());
  }
}

// Cuts added lines off again. Returns true if that worked.
bool TakeBackLines(File& menu, std::uint64_t oldSize) {
  try {
    menu.Truncate(oldSize);
    menu.Flush();
    return true;
  } catch (const Failure&) {
    return false;
  }
}

// Writes a journal without a description again, if it can.
void KeepJournal(File& scratch, const Journal& journal, std::size_t blockSize) {
  try {
    WriteJournal(scratch, "", journal, Checksum(), blockSize);
  } catch (const Failure&) {
  }
}

}  // namespace

std::uint64_t WriteMenu(File& menu, File& scratch, const std::string& path, const Journal& journal,
                        std::size_t blockSize) {
  Checksum sum;
  MakeRoom(menu, journal);
  menu.Seek(journal.keptSize);
  // Whole blocks until the last part: a write that ends inside a page of the system's
  // cache takes longer.
  std::uint64_t left = journal.head.size() + journal.descriptionSize;
  std::size_t written = 0;
  FileWindow window(scratch, blockSize, journal.head);
  while (left > 0) {
    const bool hasMore = window.Advance(written);
    const std::string_view bytes = window.bytes().substr(
        0, static_cast<std::size_t>(std::min<std::uint64_t>(left, window.bytes().size())));
    written = bytes.size() == left ? bytes.size() : bytes.size() - bytes.size() % blockSize;
    if (written == 0 && !hasMore) {
      throw Failure(path, "write the file", "The scratch file ends too early");
    }
    menu.Write(bytes.substr(0, written));
    sum.Add(bytes.substr(0, written));
    left -= written;
  }
  menu.Flush();
  return sum.value();
}

bool DropJournal(File& scratch, const Journal& journal) {
  try {
    scratch.Truncate(journal.descriptionSize);
    scratch.Flush();
    return true;
  } catch (const Failure&) {
    return false;
  }
}

void MenuFile::FreeScratchFile(const char* name, bool deletes) {
  std::optional<Journal> journal;
  bool holdsMenu = false;
  {
    const std::unique_ptr<File> scratch = files_.OpenIfThere(name);
    if (scratch == nullptr) {
      return;
    }
    const std::string menuName = MenuName();
    if (scratch->FullName() == menuName) {
      throw Failure(path_, "change the file", "It has the name of a scratch file");
    }
    journal = ReadJournal(*scratch, files_.BlockSize());
    if (journal && journal->menu == menuName) {
      // It came after FinishEarlier() looked, or could not be read then.
      throw Failure(path_, "change the file", "Another change to it has not ended");
    }
    holdsMenu = HasMarkerLine(*scratch, files_.BlockSize());
  }
  if (journal) {
    PutAside({{name, name}, std::move(*journal)}, "-");
  } else if (deletes || holdsMenu) {
    RemoveScratchFile(files_, name);
  }
}

// Opens a scratch file after FreeScratchFile(). If that could not delete the file, its
// old bytes stay, unless they are a menu.
std::unique_ptr<File> MenuFile::OpenScratchFile(const ScratchUse& use) {
  const char* const name = use.name;
  if (use.deletesFirst || files_.OpenIfThere(name) == nullptr) {
    try {
      // Another editor in this folder may be about to delete its own.
      return files_.Open(name, OpenMode::New);
    } catch (const Failure&) {
      if (files_.OpenIfThere(name) == nullptr) {
        throw;
      }
    }
  }
  std::unique_ptr<File> scratch = files_.Open(name, OpenMode::Create);
  if (scratch->Size() > 0) {
    // Another editor may have left it since the name was made free.
    if (ReadJournal(*scratch, files_.BlockSize())) {
      throw Failure(name, "write the file", "Another menu's change stands in it");
    }
    if (HasMarkerLine(*scratch, files_.BlockSize())) {
      scratch->Truncate(0);
    }
  }
  return scratch;
}

Journal MenuFile::NewJournal(File& menu) {
  Journal journal;
  journal.menu = menu.FullName();
  // Even if the clock was set back, this change must be the latest one.
  latestSerial_ = std::max(files_.Now(), latestSerial_ + 1);
  journal.serial = latestSerial_;
  return journal;
}

void MenuFile::Replace(const ScratchUse& use, std::string_view head,
                       const DescriptionWriter& write) {
  FreeScratchFile(use.name, use.deletesFirst);
  const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Change);
  std::unique_ptr<File> scratch = OpenScratchFile(use);
  try {
    BlockWriter out(*scratch, files_.BlockSize());
    std::optional<std::uint64_t> oldSum;
    try {
      oldSum = write(*menu, out);
    } catch (const Failure&) {
      out.WriteRest();
      throw;
    }
    out.WriteRest();
    // The rest of an old, longer scratch file belongs to the description.
    Checksum sum = out.sum();
    const std::uint64_t size = std::max(out.size(), scratch->Size());
    AddTo(sum, *scratch, out.size(), files_.BlockSize());
    Journal journal = NewJournal(*menu);
    journal.head = head;
    journal.descriptionSize = size;
    ReplaceBy(*menu, use.name, *scratch, journal, sum, oldSum ? *oldSum : SumOf(*menu));
  } catch (const std::exception&) {
    scratch.reset();
    if (use.deletesAfterFailure && !HasUnfinished()) {
      RemoveScratchFile(files_, use.name, latestSerial_);
    }
    throw;
  }
  scratch.reset();
  RemoveScratchFile(files_, use.name, latestSerial_);
}

void MenuFile::ReplaceBy(File& menu, const char* name, File& scratch, const Journal& journal,
                         const Checksum& description, std::uint64_t oldSum) {
  const std::uint64_t oldSize = menu.Size();
  bool isDurable = TakeLeft(name, oldSum);
  try {
    WriteJournal(scratch, name, journal, description, files_.BlockSize());
    if (journal.FinishedSize() > oldSize + files_.FreeBytes(path_)) {
      throw Failure(path_, "write the file", "There is not enough space on the disk");
    }
    isDurable = isDurable || MakeDeletionsDurable(name);
  } catch (const std::exception&) {
    DropJournal(scratch, journal);
    // The caller reports a failure, so nobody must finish this change, even if the
    // journal could not be dropped.
    MustNotFinish(journal.serial, oldSum);
    throw;
  }
  unfinished_ = Unfinished{journal.serial, false};
  try {
    unfinished_->isEmptied = MakeRoom(menu, journal);
  } catch (const std::exception&) {
    if (menu.Size() == oldSize) {  // nothing was cut
      unfinished_.reset();
      DropJournal(scratch, journal);
      MustNotFinish(journal.serial, oldSum);
    }
    throw;
  }
  const std::uint64_t newSum = WriteMenu(menu, scratch, path_, journal, files_.BlockSize());
  unfinished_.reset();
  if (isDurable) {
    left_ = Left{name, newSum};
  }
  try {
    scratch.Truncate(journal.descriptionSize);
  } catch (const Failure&) {
    // The menu file is as this journal says, so the journal does no harm.
  }
}

void MenuFile::Append(const char* name, std::string_view lines) {
  const std::unique_ptr<File> menu = files_.Open(path_, OpenMode::Change);
  const std::uint64_t size = menu->Size();
  char last = '\n';
  if (size > 0) {
    ReadToEnd(*menu, size - 1, {&last, 1});
  }
  // A new entry on the end of an unended line would spoil both.
  const bool isEnded = last == '\r' || last == '\n';
  AddLines(*menu, name, (isEnded ? "" : "\r\n") + std::string(lines));
}

void MenuFile::AddLines(File& menu, const char* name, const std::string& lines) {
  const std::uint64_t oldSize = menu.Size();
  Journal journal = NewJournal(menu);
  // A power cut may tear the disk block that is being written, and with it the old
  // bytes in that block.
  constexpr std::uint64_t kDiskBlock = 4096;
  journal.keptSize = oldSize - oldSize % kDiskBlock;
  journal.keptSum = SumBefore(menu, journal.keptSize);
  journal.head.resize(static_cast<std::size_t>(oldSize - journal.keptSize));
  journal.head.resize(ReadToEnd(menu, journal.keptSize, journal.head));
  journal.head += lines;
  const std::uint64_t oldSum = SumOf(menu);
  const std::string place = PlaceForJournal(name);
  std::unique_ptr<File> scratch = OpenJournal(place, journal);
  const bool hasJournal = scratch != nullptr;
  if (!hasJournal) {
    MustNotFinish(journal.serial, oldSum);  // in case there is one on the disk all the same
  }
  const auto closeJournal = [&](bool isMade) {
    if (!hasJournal) {
      return;
    }
    const bool isDropped = DropJournal(*scratch, journal);
    if (!isDropped && isMade) {
      // A power cut may bring back the journal that is on the disk. One that is in the file
      // says that the menu is as it should be, and the next change drops it.
      KeepJournal(*scratch, journal, files_.BlockSize());
      return;
    }
    scratch.reset();
    RemoveScratchFile(files_, place, journal.serial);
  };
  try {
    const std::string used = hasJournal ? place : "";
    if (!TakeLeft(used, oldSum)) {
      MakeDeletionsDurable(used);
    }
    menu.Seek(oldSize);
    menu.Write(lines);
    menu.Flush();
  } catch (const std::exception&) {
    if (TakeBackLines(menu, oldSize)) {
      closeJournal(false);
      MustNotFinish(journal.serial, oldSum);
    } else if (hasJournal) {
      unfinished_ = Unfinished{journal.serial, true};
    } else {
      halfLine_ = HalfLine{oldSize, oldSum, lines};
    }
    throw;
  }
  closeJournal(true);
}

// Returns the scratch file's own name; if it is taken, another name that
// FindJournals() finds; if the folder cannot be read, no name.
std::string MenuFile::PlaceForJournal(const std::string& name) {
  try {
    return files_.OpenIfThere(name) == nullptr ? name : FreeName(name + '-');
  } catch (const Failure&) {
    return {};
  }
}

// Returns nullptr if there is no name, or if the folder takes no file.
std::unique_ptr<File> MenuFile::OpenJournal(const std::string& name, const Journal& journal) {
  if (name.empty()) {
    return nullptr;
  }
  std::unique_ptr<File> scratch;
  try {
    scratch = files_.Open(name, OpenMode::New);
    WriteJournal(*scratch, name, journal, Checksum(), files_.BlockSize());
    return scratch;
  } catch (const Failure&) {
  }
  if (scratch != nullptr) {
    DropJournal(*scratch, journal);
    scratch.reset();
    RemoveScratchFile(files_, name, journal.serial);
  }
  return nullptr;
}

// Returns true if the menu file is still as the last change of this object left it, which
// used the same scratch file and made all deletions durable. Forgets that change. Another
// window may have made a change since that left the same bytes: then a start after a power
// cut may ask about that one.
bool MenuFile::TakeLeft(const std::string& scratchFile, std::uint64_t menuSum) {
  const std::optional<Left> left = std::exchange(left_, std::nullopt);
  return left && left->scratchFile == scratchFile && left->menuSum == menuSum;
}

// Makes the deletion of earlier journals durable. A power cut may bring back a file
// that was deleted or shortened but never flushed, with the journal of a finished change.
// If this change used another scratch file, that journal would undo it. The flush of this
// change's own scratch file settles that name. The other names need a flush as well.
//
// Returns false if not all could be flushed, because the folder takes no file or another
// window has one open. Throws Failure if a flush fails.
bool MenuFile::MakeDeletionsDurable(const std::string& used) {
  bool isDone = true;
  for (const std::string scratchFile : kScratchFiles) {
    std::vector<std::string> names;
    try {
      names = files_.FilesThatBeginWith(scratchFile);
    } catch (const Failure&) {
      isDone = false;
    }
    if (std::find(names.begin(), names.end(), scratchFile) == names.end()) {
      names.push_back(scratchFile);
    }
    for (const std::string& name : names) {
      isDone = (name == used || FlushScratchFile(name)) && isDone;
    }
  }
  return isDone;
}

bool MenuFile::FlushScratchFile(const std::string& name) {
  bool isThere = false;
  std::unique_ptr<File> scratch;
  try {
    isThere = files_.OpenIfThere(name) != nullptr;
    scratch = files_.Open(name, isThere ? OpenMode::Change : OpenMode::Create);
  } catch (const Failure&) {
    return false;
  }
  scratch->Flush();
  scratch.reset();
  if (!isThere) {
    RemoveScratchFile(files_, name);
  }
  return true;
}

}  // namespace menufile
