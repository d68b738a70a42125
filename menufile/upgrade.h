#ifndef CORVALIS_MENUFILE_UPGRADE_H_
#define CORVALIS_MENUFILE_UPGRADE_H_

#include <string>
#include <string_view>

#include "menufile/file_system.h"

namespace menufile {

// What a user-defined menu with that picture holds in front of the appearance
// line, where a file without a marker line begins.
std::string ConvertedHead(std::string_view picture);

// Turns a file without a marker line into a user-defined menu: `picture`, the
// marker line and the type line are put in front of what the file holds, which
// stays as it is. (A previous-version file is just an appearance line and the
// entries.) The old bytes go through the scratch file "temporaryfile" in the
// current directory.
//
// False when the file could not be converted, or has a marker line by now, and
// stands as it was. Throws Failure only when the file could neither be converted
// nor put back; its old bytes then are in the scratch file, and the message says
// so.
bool UpgradeMenuFile(FileSystem& files, const std::string& path, std::string_view picture);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_UPGRADE_H_
