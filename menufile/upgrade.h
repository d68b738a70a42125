#ifndef CORVALIS_MENUFILE_UPGRADE_H_
#define CORVALIS_MENUFILE_UPGRADE_H_

#include <string_view>

#include "menufile/menu_file.h"

namespace menufile {

// Converts a file without a marker line to a user-defined menu: puts `picture`, the
// marker line and the type line before its bytes. (A file of the previous version
// holds just an appearance line and entries.) The old bytes go through the scratch
// file "temporaryfile" in the current directory.
//
// A file that has a marker line by now, or that cannot be converted, stays unchanged,
// without a message. Throws Failure if the file was emptied and could not be written:
// the scratch file then holds its new bytes, with a journal.
void UpgradeMenuFile(MenuFile& menu, std::string_view picture);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_UPGRADE_H_
