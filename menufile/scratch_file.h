#ifndef CORVALIS_MENUFILE_SCRATCH_FILE_H_
#define CORVALIS_MENUFILE_SCRATCH_FILE_H_

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "menufile/file_system.h"

namespace menufile {

// The file in the current directory that holds the menu while the menu file
// itself is written. No one else may write or delete it while it is open, so
// that a second editor in the same directory fails before it does any harm.
class ScratchFile {
 public:
  // Opens the file, or makes it.
  ScratchFile(FileSystem& files, const std::string& name);

  // What an old file holds behind its first `size` bytes. Writing over it from
  // its front leaves that there, so it belongs to what the scratch file holds.
  std::string_view Tail(std::size_t size) const;

  // Writes over what the file holds, from its front.
  void Write(std::string_view bytes);

  // The same, and returns once it is on the disk.
  void WriteWhole(std::string_view bytes);

 private:
  std::unique_ptr<File> file_;
  std::string old_;  // what the file held when it was opened
};

// Deletes the file. That it does not exist, or cannot be deleted, is ignored.
void RemoveScratchFile(FileSystem& files, const std::string& name);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_SCRATCH_FILE_H_
