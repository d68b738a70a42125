#include "menufile/scratch_file.h"

#include "menufile/failure.h"

namespace menufile {

void RemoveScratchFile(FileSystem& files, const std::string& path) {
  try {
    files.Remove(path);
  } catch (const Failure&) {
    // A scratch file that stays does no harm.
  }
}

}  // namespace menufile
