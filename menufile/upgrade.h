#ifndef CORVALIS_MENUFILE_UPGRADE_H_
#define CORVALIS_MENUFILE_UPGRADE_H_

#include <string_view>

#include "menufile/menu_file.h"

namespace menufile {

// Turns a file without a marker line into a user-defined menu: `picture`, the
// marker line and the type line are put in front of what the file holds, which
// stays as it is. (A previous-version file is just an appearance line and the
// entries.) The old bytes go through the scratch file "temporaryfile" in the
// current directory.
//
// A file that cannot be converted, or has a marker line by now, stays as it was,
// and nothing is told. Throws Failure when the file had been emptied and could not be
// written: what it is to hold is then in the scratch file, with a journal.
void UpgradeMenuFile(MenuFile& menu, std::string_view picture);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_UPGRADE_H_
