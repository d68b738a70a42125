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
  // The first failure is thrown; nothing is put back.
  Throws,
  // No Failure is thrown: ChangeResult::Failed tells it. Fields that the file does
  // not hold are empty.
  Ignores,
};

// The records after the appearance line, as a record rule sees them.
class RecordStream {
 public:
  // Reads the next record: at first the one after the rule's own. The last two
  // records that were read are good.
  virtual MenuItemRecord ReadNext() = 0;
  virtual void Write(const MenuItemRecord& record) = 0;
  // Writes the line of a separator.
  void WriteSeparator() { Write(MenuItemRecord{}); }

 protected:
  ~RecordStream() = default;
};

// Called once for each item record, top one first, with a counter from 0. It
// writes the record or does not, and may write or read others. The counter
// counts calls, so it lags by one once a rule has read a record itself.
using RecordRule =
    std::function<void(std::size_t counter, const MenuItemRecord& record, RecordStream& records)>;

// The rule that changes nothing.
void KeepRecord(std::size_t counter, const MenuItemRecord& record, RecordStream& records);

// One change to a menu file: what the rewrite does differently for each of its
// callers. menufile/changes.h makes them.
struct MenuChange {
  const char* scratchFile = kListScratchFile;
  // False where a scratch file that is there already is written over from its
  // front, and what is longer in it ends up after the new menu.
  bool deleteScratchFirst = true;
  ErrorMode errorMode = ErrorMode::Throws;
  // What the type line is to say. Absent: what it says.
  std::optional<MenuType> type;
  // The new appearance line, with its line end. Absent: the one in the file stays.
  std::optional<std::string> appearanceLine;
  // Empty: the records in the file are not read, and dropped.
  RecordRule recordRule;
  // Written after the records.
  std::string directoryLine;
  // A picture file to replace the one at the head. Absent: that one stays.
  std::optional<std::string> picture;
};

// Applies `change` to the menu file: writes the menu as it is to be into the
// scratch file, empties the menu file, copies the scratch file back and deletes
// it. A new picture goes to the menu file alone; the scratch file then holds what
// comes after the picture.
//
// The menu file is not touched before the scratch file stands complete on the
// disk, with a journal, and the journal stays until the menu file is complete there.
ChangeResult RewriteMenuFile(MenuFile& menu, const MenuChange& change);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_REWRITE_H_
