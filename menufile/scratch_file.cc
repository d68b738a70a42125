#include "menufile/scratch_file.h"

#include "menufile/failure.h"

namespace menufile {

void RemoveScratchFile(FileSystem& files, const std::string& name) {
  try {
    files.Remove(name);
  } catch (const Failure&) {
    // Mostly there is none; and one that stays does no harm.
  }
}

}  // namespace menufile
