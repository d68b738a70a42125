// Tests the order of writes: the scratch file is flushed with its journal before the menu
// file is emptied, and the menu file is flushed before the journal is removed.
#include <gtest/gtest.h>

#include "menufile/upgrade.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"
#include "tests/menufile/user_change.h"

namespace menufile {
namespace {

using Kind = UserChange::Kind;
using Writes = std::vector<std::string>;

// The writes of the second change of a window. The first one also flushes the other
// scratch file's name.
Writes WritesOf(Kind kind, std::size_t blockSize = 1000) {
  MemoryFiles files;
  files.SetBlockSize(blockSize);
  MenuFile menu(files, kMenuPath);
  UserChange change = SampleChange(kind, 1);
  change.appearance.picture = "bitmap";
  files.Put(kMenuPath, UserMenu(2, "icon"));
  UserChange first = SampleChange(
      ScratchFileOf(kind) == std::string("temporaryfile") ? Kind::SwitchToUserDefined : Kind::Edit,
      9);
  Make(menu, first);
  files.SetFault({});
  Make(menu, change);
  return files.Writes();
}

// Replaces sizes by N: that of a journal depends on the menu's name.
Writes WithoutSizes(Writes writes) {
  for (std::string& write : writes) {
    if (const std::size_t number = write.find_first_of("0123456789"); number != std::string::npos) {
      write.replace(number, write.find_first_not_of("0123456789", number) - number, "N");
    }
  }
  return writes;
}

TEST(OrderOfWrites, OfAListChange) {
  EXPECT_EQ((Writes{"write N bytes to temporaryfile", "write N bytes to temporaryfile",
                    "flush temporaryfile", "truncate to N: C:\\menus\\a.menu",
                    "write N bytes to C:\\menus\\a.menu", "flush C:\\menus\\a.menu",
                    "truncate to N: temporaryfile", "remove temporaryfile"}),
            WithoutSizes(WritesOf(Kind::MoveUp)));
}

TEST(OrderOfWrites, OfANewPicture) {
  EXPECT_EQ(
      (Writes{"write N bytes to zoltempfileoktodelete", "write N bytes to zoltempfileoktodelete",
              "flush zoltempfileoktodelete", "truncate to N: C:\\menus\\a.menu",
              "write N bytes to C:\\menus\\a.menu", "flush C:\\menus\\a.menu",
              "truncate to N: zoltempfileoktodelete", "remove zoltempfileoktodelete"}),
      WithoutSizes(WritesOf(Kind::SaveAppearance)));
}

}  // namespace
}  // namespace menufile
