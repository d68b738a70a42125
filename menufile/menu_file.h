#ifndef CORVALIS_MENUFILE_MENU_FILE_H_
#define CORVALIS_MENUFILE_MENU_FILE_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "menufile/block_writer.h"
#include "menufile/checksum.h"
#include "menufile/file_system.h"
#include "menufile/journal.h"

namespace menufile {

// The result of a change.
enum class ChangeResult {
  Made,
  // The change failed, and its ErrorMode ignores failures.
  Failed,
  // An earlier, interrupted change was finished instead. This one was not made, and
  // the window has to load the menu again.
  EarlierFinished,
};

// A menu file that one window works on. It makes the changes safe. The menu itself is
// not kept in memory; the fields only remember interrupted changes and what the user
// said about them.
//
// A scratch file with a journal (menufile/journal.h) may be the only complete copy of
// a menu. So a scratch file is searched for a journal before it is deleted or written
// over. What happens then depends on the journal:
//
//   it belongs to this menu         the change is finished first
//   it belongs to another menu      put aside as "temporaryfile-1"; that menu's editor
//                                   finds it there
//   this menu is complete, but not  put aside as "temporaryfile-overtaken-1"; the next
//   as the journal says             start asks the user
//   the user said No, or this       put aside as "temporaryfile-declined-1"; no editor
//   change was reported as failed,  looks there
//   or a later one has been
//   finished, and this one was not
//   overtaken
class MenuFile {
 public:
  // `files` is borrowed. `path` is in the system's ANSI code page.
  MenuFile(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

  FileSystem& files() const { return files_; }
  const std::string& path() const { return path_; }

  // Called at the start. Returns true if a change of this menu was interrupted and its
  // journal is in the current directory or in the menu's own. Files that cannot be
  // read are skipped.
  bool WasCutShort();
  // The user's answer after WasCutShort() returned true. Yes finishes the change,
  // unless another window has done so meanwhile, or the menu file has been replaced by
  // another complete menu. Throws Failure if that fails.
  void AnswerYes();
  void AnswerNo() { saidNo_ = asked_; }

  // All bytes of the menu file, for the window to show. Throws Failure.
  std::string Load();

  // Called before each change. Finishes earlier changes that were interrupted. Returns true
  // if the window has to load the menu again: this call, or one before it that failed, has
  // finished a change. Throws Failure if that fails.
  bool FinishEarlier();
  // True if a change of this window began to write the menu file and did not complete
  // it.
  bool HasUnfinished() const { return unfinished_.has_value() || halfLine_.has_value(); }

  // How a change uses its scratch file.
  struct ScratchUse {
    const char* name = nullptr;
    // If false, an existing scratch file is overwritten from its front. The rest of a
    // longer one ends up after the new menu.
    bool deletesFirst = true;
    bool deletesAfterFailure = false;
  };

  // Reads the menu file and writes the description of the new menu into the scratch file.
  // Returns the checksum of the menu file if it has read all of it: that saves reading it
  // once more.
  using DescriptionWriter =
      std::function<std::optional<std::uint64_t>(File& menu, BlockWriter& description)>;

  // Calls `write`. Then empties the menu file, writes `head` and the description to it, and
  // deletes the scratch file.
  //
  // Throws Failure. The menu file is then unchanged, unless HasUnfinished() is true:
  // then the scratch file holds a journal of the new menu.
  void Replace(const ScratchUse& scratch, std::string_view head, const DescriptionWriter& write);

  // Writes `lines` after the last byte of the menu file. If the last line has no line
  // end, it gets one first. The scratch file `name` holds a journal meanwhile, or
  // a file beside it if that name is taken. There is no journal if it cannot be written.
  //
  // Throws Failure. The menu file is then unchanged, unless HasUnfinished() is true.
  void Append(const char* name, std::string_view lines);

  // Makes the name of a scratch file free. A file with a journal is put aside. A file
  // without one is deleted if `deletes` is true. It is deleted, too, if it holds a
  // menu, whose end would otherwise be read as entries of this one. A failure to
  // delete it is ignored. Throws Failure for any other.
  void FreeScratchFile(const char* name, bool deletes);

 private:
  // A file that may hold a journal.
  struct Place {
    std::string file;         // its path
    std::string scratchFile;  // the path that it had before it was put aside
  };
  // A journal of this menu.
  struct Found {
    Place place;
    Journal journal;
  };
  // The last change of this object.
  struct Left {
    std::string scratchFile;
    std::uint64_t menuSum;  // the checksum of the menu file after it
  };
  // Lines that were written in part, without a journal, and could not be cut off.
  struct HalfLine {
    std::uint64_t start;     // the size of the menu file without them
    std::uint64_t startSum;  // its checksum without them
    std::string lines;
  };
  // A change of this object that began to write the menu file.
  struct Unfinished {
    std::uint64_t serial;
    // False if the menu file may hold the beginning of the new menu and the end of the old.
    bool isEmptied;
  };
  // A change, and the menu file at some time.
  struct Seen {
    std::uint64_t serial = 0;
    std::uint64_t menuSum = 0;  // the checksum of the whole menu file
  };

  // menufile/find_journals.cc
  std::string MenuName();
  std::vector<std::string> PlacesToLook();
  std::vector<Place> FilesToLookAt(bool mayFail);
  // All journals of this menu, the latest first. Journals with the same serial are
  // copies. If `mayFail` is true, files that cannot be read are skipped.
  std::vector<Found> FindJournals(bool mayFail);

  // menufile/restore.cc
  MenuState StateBy(const Found& found);
  std::uint64_t SumOf(File& menu) const;
  std::uint64_t SumOfMenu();
  bool IsReplaced(MenuState state);
  void Settle(const Found& found);
  bool Finish(const Found& found);
  bool FinishAsked(Found found);
  static bool IsOvertaken(const Found& found);
  bool IsDeclined(const Found& found);
  void FlushMenu();
  void CleanUpAfter(const Found& finished);
  void Retire(const Found& found);
  std::unique_ptr<File> OpenIfStillThere(const std::string& scratchFile);
  std::unique_ptr<File> OpenWithItsJournal(const Found& found);
  std::string FreeName(const std::string& prefix);
  // Returns the new path; an empty one if the journal is gone.
  std::string PutAside(const Found& found, const char* infix);
  void TakeBackHalfLine();
  void MustNotFinish(std::uint64_t serial, std::uint64_t menuSum);

  // menufile/menu_file.cc
  std::unique_ptr<File> OpenScratchFile(const ScratchUse& use);
  void ReplaceBy(File& menu, const char* name, File& scratch, const Journal& journal,
                 const Checksum& description, std::uint64_t oldSum);
  void AddLines(File& menu, const char* name, const std::string& lines);
  Journal NewJournal(File& menu);
  std::string PlaceForJournal(const std::string& name);
  std::unique_ptr<File> OpenJournal(const std::string& name, const Journal& journal);
  bool TakeLeft(const std::string& scratchFile, std::uint64_t menuSum);
  bool MakeDeletionsDurable(const std::string& used);
  bool FlushScratchFile(const std::string& name);

  FileSystem& files_;
  std::string path_;
  Seen asked_;  // what WasCutShort() found
  // FinishEarlier() does not finish these changes while the menu file has these checksums.
  // If the menu file has changed since, another window may have begun to finish one.
  Seen saidNo_;
  Seen ended_;  // the last change that was finished, or that was reported as failed
  std::uint64_t latestSerial_ = 0;  // the highest one seen or given
  // True if this object began to finish a change and the window has not loaded the menu since.
  bool mustLoadAgain_ = false;
  std::optional<Unfinished> unfinished_;
  std::optional<HalfLine> halfLine_;
  std::optional<Left> left_;
};

// Writes the menu file as the journal says and flushes it. Returns the checksum of what it
// wrote. Throws Failure. `path` is what a Failure calls the menu file.
std::uint64_t WriteMenu(File& menu, File& scratch, const std::string& path, const Journal& journal,
                        std::size_t blockSize);

// Cuts the journal off the scratch file and flushes it. Returns false if that failed.
bool DropJournal(File& scratch, const Journal& journal);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_MENU_FILE_H_
