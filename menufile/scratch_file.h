#ifndef CORVALIS_MENUFILE_SCRATCH_FILE_H_
#define CORVALIS_MENUFILE_SCRATCH_FILE_H_

#include <cstdint>
#include <optional>
#include <string>

#include "menufile/file_system.h"

namespace menufile {

// The scratch files stand in the current directory, even if the menu file is elsewhere.
// For changes to the list of entries, to a directory pointer and of the menu type:
inline constexpr const char* kListScratchFile = "temporaryfile";
// For changes that the wizard, the Select Icon window or the Appearance page makes:
inline constexpr const char* kDialogScratchFile = "zoltempfileoktodelete";
inline constexpr const char* kScratchFiles[] = {kListScratchFile, kDialogScratchFile};

// Parts of the names of scratch files that were put aside (menufile/menu_file.h).
inline constexpr const char* kOvertaken = "-overtaken-";
inline constexpr const char* kDeclined = "-declined-";

// Deletes the file unless it holds a journal with another serial number; without `serial`,
// unless it holds any journal. Another editor may have just written it. A failure is ignored.
void RemoveScratchFile(FileSystem& files, const std::string& path,
                       std::optional<std::uint64_t> serial = std::nullopt);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_SCRATCH_FILE_H_
