#ifndef CORVALIS_MENUFILE_RESTORE_H_
#define CORVALIS_MENUFILE_RESTORE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "menufile/file_system.h"

namespace menufile {

// A change that ended while the menu file was being written: by a power cut,
// say, or because the disk was full. The scratch file then holds what the menu
// file lacks. The change was to leave, one behind the other:
struct InterruptedChange {
  std::uint64_t kept = 0;  // so many bytes of the menu file as it is now: a picture
  std::string head;
  std::string scratchFile;  // what this file holds
};

// Looks for a scratch file in the current directory that shows that the last
// change to the menu file at `path` was interrupted. That is so where the menu
// file is a strict beginning (which zeros may follow in its place) of
//   - a complete menu in the scratch file;
//   - a bitmap file and the complete description in the scratch file;
//   - the conversion of the file in the scratch file, with `defaultPicture`.
// Where both scratch files show that, it is the one that was written last.
// Nothing when there is none, or when a file cannot be read.
std::optional<InterruptedChange> FindInterruptedChange(FileSystem& files, const std::string& path,
                                                       std::string_view defaultPicture);

// For the change after one that may have left the menu file cut short
// (RewriteResult::MenuMayBeCut): finishes that one where it did. Throws Failure
// when the menu file is not whole and could not be made so.
void MakeMenuWhole(FileSystem& files, const std::string& path, std::string_view defaultPicture);

// Writes the menu file as it was to be and deletes the scratch file. Throws
// Failure when the menu file could not be written; the scratch file then stays.
void FinishInterruptedChange(FileSystem& files, const std::string& path,
                             const InterruptedChange& change);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_RESTORE_H_
