#ifndef CORVALIS_MENUFILE_SCRATCH_FILE_H_
#define CORVALIS_MENUFILE_SCRATCH_FILE_H_

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
  // Opens the file, or makes it. An old one is written over from its front;
  // what is longer in it stays.
  ScratchFile(FileSystem& files, const std::string& name);

  void Write(std::string_view bytes);

  // Returns once all that was written is on the disk.
  void Complete();

  // All that the file holds: what was written, and what an old file held
  // behind that.
  const std::string& Contents();

 private:
  std::unique_ptr<File> file_;
  std::string leftover_;  // what the file held when it was opened
  std::string contents_;
};

// Deletes the file. That it does not exist, or cannot be deleted, is ignored.
void RemoveScratchFile(FileSystem& files, const std::string& name);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_SCRATCH_FILE_H_
