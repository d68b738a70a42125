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

// What became of a change.
enum class ChangeResult {
  Made,
  // It failed, and its ErrorMode ignores that.
  Failed,
  // An earlier change had been cut short and was finished now; this one was not
  // made. What shows the menu has to read it again.
  EarlierFinished,
};

// A menu file as one window works on it, and the safety of its changes. Nothing
// of the menu is kept in memory: only what the user said about a change that was
// cut short, and what tells that a change of this window was.
//
// A scratch file with a journal (menufile/journal.h) may be the only whole copy
// of a menu. So nobody deletes a scratch file or writes over it before having
// looked for one. A journal of this menu is finished first. One of another menu is
// put aside, as "temporaryfile-1" say, where that menu finds it. So is one of this menu
// where the menu is whole and another by now, as "temporaryfile-overtaken-1": the next
// start asks, and nothing else finishes it. One that the user did not want finished
// goes where nobody looks for it, as "temporaryfile-declined-1".
class MenuFile {
 public:
  // `files` is borrowed. `path` is in the system's ANSI code page.
  MenuFile(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

  FileSystem& files() const { return files_; }
  const std::string& path() const { return path_; }

  // For the start: true if a change of this menu was cut short and all that it
  // takes to finish it is there, in the current directory or in the menu's own. A
  // file that cannot be read is passed over.
  bool WasCutShort();
  // The user's answer to that. Yes finishes the change, unless another window has
  // done so meanwhile or another whole menu stands there by now, and throws Failure
  // when it cannot.
  void AnswerYes();
  void AnswerNo() { declined_ = asked_; }

  // For the time before a change: true if an earlier one was finished now, so that
  // what shows the menu has to read it again. Throws Failure when finishing it
  // failed.
  bool FinishEarlier();
  // True if a change of this window began to write the menu file and could not
  // end it.
  bool HasUnfinished() const { return unfinished_.has_value() || halfLine_.has_value(); }

  // How a change uses its scratch file.
  struct ScratchUse {
    const char* name = nullptr;
    // False where a file that is there already is written over from its front, and
    // what is longer in it ends up after the new menu.
    bool deletesFirst = true;
    bool deletesAfterFailure = false;
  };

  // Lets `write` write the description of the menu as it is to be, with the menu
  // file to read from. Then empties the menu file, writes `head` and the
  // description to it, and deletes the scratch file.
  //
  // Throws Failure. Then the menu file is as it was, unless HasUnfinished() is true:
  // in that case a journal in the scratch file says how it is to be.
  void Replace(const ScratchUse& scratch, std::string_view head,
               const std::function<void(File& menu, BlockWriter& description)>& write);

  // Adds `lines` after the last byte of the menu file, with a journal in the
  // scratch file `name` where that name is free and the file can be made. Lines that
  // would go on the end of an unended one get a line end in front.
  //
  // Throws Failure. Then the lines were taken back, unless HasUnfinished() is true.
  void Append(const char* name, std::string_view lines);

  // Makes the name of a scratch file free: a journal there is put aside. A file
  // without one is deleted if `deletes` is true or if it holds a menu, whose end
  // would be read as entries of this one. That it cannot be deleted is ignored.
  // Throws Failure.
  void FreeScratchFile(const char* name, bool deletes);

 private:
  // A journal of this menu, and the path of the scratch file that it stands in.
  struct Found {
    std::string scratchFile;
    Journal journal;
  };
  // The menu file as the last change of this object left it.
  struct Left {
    std::string scratchFile;  // that the change used
    std::uint64_t size;
    std::uint64_t sum;
  };
  // Lines that were written in part and could not be taken back.
  struct HalfLine {
    std::uint64_t start;     // the size of the menu file without them
    std::uint64_t startSum;  // the SumBefore() of that
    std::string lines;
  };

  // menufile/restore.cc
  std::string MenuName();
  std::vector<std::string> PlacesToLook();
  std::optional<Journal> JournalOfThisMenu(const std::string& scratchFile);
  // All journals of this menu, the latest first. Those of one serial are copies of
  // each other. If `mayFail` is true, files that cannot be read are passed over.
  std::vector<Found> FindJournals(bool mayFail);
  MenuState StateBy(const Found& found);
  std::uint64_t SumOfMenu();
  bool IsReplaced(MenuState state);
  bool Settle(const Found& found);
  bool Finish(const Found& found);
  void Retire(const Found& found);
  void RetireCopies(std::uint64_t serial);
  void PutAside(const std::string& scratchFile, const char* infix);
  // True where nothing was missing of the lines after all.
  bool TakeBackHalfLine();

  // menufile/menu_file.cc
  std::unique_ptr<File> OpenScratchFile(const char* name);
  void ReplaceBy(File& menu, const char* name, File& scratch, Journal journal,
                 const Checksum& description);
  void AddLines(File& menu, const char* name, const std::string& lines);
  Journal NewJournal(File& menu) const;
  std::unique_ptr<File> OpenJournal(const char* name, const Journal& journal);
  void MakeOldJournalsGoneForGood(File& menu, const std::string& used);
  bool IsAsLeft(File& menu, const std::string& scratchFile) const;

  FileSystem& files_;
  std::string path_;
  std::uint64_t asked_ = 0;     // the serial of the change that WasCutShort() saw
  std::uint64_t askedSum_ = 0;  // the checksum of the menu file as it was then
  std::uint64_t declined_ = 0;  // the serial of the last change that is not to be finished
  std::optional<std::uint64_t> unfinished_;  // the serial of a change of this object
  std::optional<HalfLine> halfLine_;
  std::optional<Left> left_;
};

// Writes the menu file as the journal says and waits until it is on the disk.
// Returns the checksum of what was written. Throws Failure.
std::uint64_t WriteMenu(File& menu, File& scratch, const std::string& path, const Journal& journal,
                        std::size_t blockSize);

// Cuts the scratch file back to the bytes before its journal, and waits until that
// is on the disk. A failure is ignored.
void DropJournal(File& scratch, const Journal& journal);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_MENU_FILE_H_
