#ifndef CORVALIS_MENUFILE_SCRATCH_FILE_H_
#define CORVALIS_MENUFILE_SCRATCH_FILE_H_

#include <string>

#include "menufile/file_system.h"

namespace menufile {

// Deletes the file. That it does not exist, or cannot be deleted, is ignored.
void RemoveScratchFile(FileSystem& files, const std::string& name);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_SCRATCH_FILE_H_
