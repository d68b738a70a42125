#ifndef CORVALIS_MENUFILE_REWRITE_H_
#define CORVALIS_MENUFILE_REWRITE_H_

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "menufile/menu_file.h"
#include "menufile/records.h"
#include "menufile/scratch_file.h"

namespace menufile {

enum class ErrorMode {
  // RewriteMenuFile() throws the first Failure.
  Throws,
  // RewriteMenuFile() returns ChangeResult::Failed. Fields missing at the end of the
  // file count as empty.
  Ignores,
};

// What a record rule reads more records from and writes records to.
class RecordStream {
 public:
  // Reads the next record, at first the one after the rule's own. A record is valid
  // until the second one after it is read.
  virtual MenuItemRecord ReadNext() = 0;
  virtual void Write(const MenuItemRecord& record) = 0;
  // Writes the line of a separator.
  void WriteSeparator() { Write(MenuItemRecord{}); }

 protected:
  ~RecordStream() = default;
};

// Called for each item record, the top one first. The rule decides whether to write
// it, and may read and write others. `counter` is the 0-based number of the call. It
// lags behind the number of the record by one for each record that a rule has read
// itself.
using RecordRule =
    std::function<void(std::size_t counter, const MenuItemRecord& record, RecordStream& records)>;

// The rule that changes nothing.
void KeepRecord(std::size_t counter, const MenuItemRecord& record, RecordStream& records);

// One change to a menu file: the points in which rewrites differ.
// menufile/changes.h makes them.
struct MenuChange {
  const char* scratchFile = kListScratchFile;
  // If false, an existing scratch file is overwritten from its front. The rest of a
  // longer one ends up after the new menu.
  bool deleteScratchFirst = true;
  ErrorMode errorMode = ErrorMode::Throws;
  // The new type. If absent, the type line stays.
  std::optional<MenuType> type;
  // The new appearance line, with its line end. If absent, the line stays.
  std::optional<std::string> appearanceLine;
  // If empty, the old records are dropped unread.
  RecordRule recordRule;
  // Written after the records; it has its line end.
  std::string directoryLine;
  // The bytes of a new picture. If absent, the picture stays.
  std::optional<std::string> picture;
};

// Applies `change` to the menu file: writes the new menu into the scratch file,
// empties the menu file, copies the scratch file back and deletes it. With a new
// picture, the scratch file holds only what comes after the picture.
//
// The menu file is not touched before the scratch file is complete on the disk, with
// a journal. The journal stays until the menu file is complete on the disk.
ChangeResult RewriteMenuFile(MenuFile& menu, const MenuChange& change);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_REWRITE_H_
