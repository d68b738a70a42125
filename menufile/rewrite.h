#ifndef CORVALIS_MENUFILE_REWRITE_H_
#define CORVALIS_MENUFILE_REWRITE_H_

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "menufile/failure.h"
#include "menufile/file_system.h"
#include "menufile/records.h"

namespace menufile {

// The scratch files stand in the current directory, whatever the menu's own.
inline constexpr const char* kListScratchFile = "temporaryfile";
inline constexpr const char* kDialogScratchFile = "zoltempfileoktodelete";

enum class ErrorMode {
  // The first failure is thrown; nothing is put back.
  Throws,
  // Nothing is reported. What a failure leaves out is left out, and fields
  // that the file does not hold are empty.
  Ignores,
};

// The records behind the appearance line, as a record rule sees them.
class RecordStream {
 public:
  // The record behind the one that was read last, the rule's own at first. Of
  // the records read, the last two are good.
  virtual MenuItemRecord ReadNext() = 0;
  virtual void Write(const MenuItemRecord& record) = 0;
  // Writes the line of a separator.
  void WriteSeparator() { Write(MenuItemRecord{}); }

 protected:
  ~RecordStream() = default;
};

// Called once for each item record, top one first, with a counter from 0. It
// writes the record or does not, and may write or read others. The counter
// counts calls, so it runs behind the records once a rule reads one itself.
using RecordRule =
    std::function<void(std::size_t counter, const MenuItemRecord& record, RecordStream& records)>;

// The rule that changes nothing.
void KeepRecord(std::size_t counter, const MenuItemRecord& record, RecordStream& records);

// One change to a menu file: what the rewrite does differently for each of its
// callers.
struct MenuChange {
  const char* scratchFile = kListScratchFile;
  // Off where a scratch file that is there already is written over from its
  // front: what is longer in it then ends up behind the new menu. One that holds
  // a menu is deleted first all the same.
  bool deleteScratchFirst = true;
  ErrorMode errorMode = ErrorMode::Throws;
  // What the type line is to say. Absent: what it says.
  std::optional<MenuType> type;
  // Absent: the one in the file stays.
  std::optional<AppearanceRecord> appearance;
  // Absent: the records in the file are not read, and dropped.
  RecordRule recordRule;
  // Written behind the records.
  std::optional<DirectoryPointerRecord> directory;
  // A picture file to replace the one at the head. Absent: that one stays.
  std::optional<std::string_view> picture;
};

// What a change that failed left of the menu file.
enum class RewriteResult {
  Done,
  // A failure was ignored; the menu file is as it was.
  MenuUntouched,
  // A failure was ignored while the menu file was being written. It may be cut
  // short; the scratch file holds it whole.
  MenuMayBeCut,
};

// Thrown for MenuMayBeCut where failures are not ignored.
class MenuMayBeCutFailure final : public Failure {
 public:
  explicit MenuMayBeCutFailure(const Failure& failure) : Failure(failure) {}
};

// Applies `change` to the menu file at `path`: writes the menu as it is to be
// into the scratch file, empties the menu file, copies the scratch file back
// and deletes it.
//
// The menu file is not touched before the scratch file stands complete on the
// disk, and the scratch file is not deleted before the menu file does. When
// this fails in between, the scratch file stays where it is, and MakeMenuWhole()
// is due before the next change.
RewriteResult RewriteMenuFile(FileSystem& files, const std::string& path, const MenuChange& change);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_REWRITE_H_
