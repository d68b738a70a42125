#include "menufile/scratch_file.h"

#include "menufile/failure.h"
#include "menufile/journal.h"

namespace menufile {

void RemoveScratchFile(FileSystem& files, const std::string& path,
                       std::optional<std::uint64_t> serial) {
  try {
    files.Remove(path, [&](File& file) {
      const std::optional<Journal> journal = ReadJournal(file, files.BlockSize());
      return !journal || journal->serial == serial;
    });
  } catch (const Failure&) {
    // The file may stay: the next change looks for a journal in it before it uses it.
  }
}

}  // namespace menufile
