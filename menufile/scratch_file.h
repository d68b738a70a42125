#ifndef CORVALIS_MENUFILE_SCRATCH_FILE_H_
#define CORVALIS_MENUFILE_SCRATCH_FILE_H_

#include <string>

#include "menufile/file_system.h"

namespace menufile {

// The scratch files stand in the current directory, whatever the menu's own.
// Changes to the list of entries, to a directory pointer and of the menu type:
inline constexpr const char* kListScratchFile = "temporaryfile";
// Changes that a window of their own or the Appearance page asks for:
inline constexpr const char* kDialogScratchFile = "zoltempfileoktodelete";
inline constexpr const char* kScratchFiles[] = {kListScratchFile, kDialogScratchFile};

// Deletes the file. That it does not exist, or cannot be deleted, is ignored.
void RemoveScratchFile(FileSystem& files, const std::string& path);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_SCRATCH_FILE_H_
