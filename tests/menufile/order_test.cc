// The order of the file operations: the menu file is not emptied or written
// before the scratch file stands complete on the disk, and the scratch file is
// not deleted before the menu file does.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "menufile/failure.h"
#include "menufile/rewrite.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/operation.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using Kind = Operation::Kind;
using Log = std::vector<std::string>;

Log LogOf(const Operation& operation) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(2, "icon"));
  RewriteMenuFile(files, kMenuPath, ChangeFor(operation));
  return files.log();
}

TEST(OrderOfOperations, OfAMove) {
  EXPECT_EQ((Log{"remove temporaryfile", "open to change C:\\menus\\a.menu",
                 "open or make temporaryfile", "read from 0: C:\\menus\\a.menu",
                 "read from 0: C:\\menus\\a.menu", "write 149 bytes to temporaryfile",
                 "flush temporaryfile", "truncate to 0: C:\\menus\\a.menu",
                 "read from 0: temporaryfile", "write 149 bytes to C:\\menus\\a.menu",
                 "flush C:\\menus\\a.menu", "remove temporaryfile"}),
            LogOf(MakeOperation(Kind::MoveUp, 1)));
}

TEST(OrderOfOperations, OfAnIconChangeWhichDoesNotDeleteFirst) {
  Operation operation = MakeOperation(Kind::ChangeIcon, 1);
  operation.iconFile = "C:\\icons.dll";
  operation.iconIndex = "1";
  EXPECT_EQ((Log{"open to read zoltempfileoktodelete",  // does it hold a menu?
                 "open to change C:\\menus\\a.menu", "open or make zoltempfileoktodelete",
                 "read from 0: C:\\menus\\a.menu", "read from 0: C:\\menus\\a.menu",
                 "write 149 bytes to zoltempfileoktodelete", "flush zoltempfileoktodelete",
                 "truncate to 0: C:\\menus\\a.menu", "read from 0: zoltempfileoktodelete",
                 "write 149 bytes to C:\\menus\\a.menu", "flush C:\\menus\\a.menu",
                 "remove zoltempfileoktodelete"}),
            LogOf(operation));
}

TEST(OrderOfOperations, OfANewPicture) {
  Operation operation = MakeOperation(Kind::SaveAppearance);
  operation.picture = "bitmap";
  EXPECT_EQ((Log{"remove zoltempfileoktodelete", "open to change C:\\menus\\a.menu",
                 "open or make zoltempfileoktodelete", "read zoltempfileoktodelete",
                 "read from 0: C:\\menus\\a.menu", "write 154 bytes to zoltempfileoktodelete",
                 "flush zoltempfileoktodelete", "truncate to 0: C:\\menus\\a.menu",
                 "read from 0: zoltempfileoktodelete", "write 154 bytes to C:\\menus\\a.menu",
                 "flush C:\\menus\\a.menu", "remove zoltempfileoktodelete"}),
            LogOf(operation));
}

TEST(OrderOfOperations, OfAMenuOfSeveralBlocks) {
  MemoryFiles files;
  files.Put(kMenuPath, UserMenu(2, "icon"));
  files.SetBlockSize(64);
  const Operation operation = MakeOperation(Kind::MoveUp, 1);
  RewriteMenuFile(files, kMenuPath, ChangeFor(operation));
  EXPECT_EQ((Log{"remove temporaryfile",
                 "open to change C:\\menus\\a.menu",
                 "open or make temporaryfile",
                 "read from 0: C:\\menus\\a.menu",
                 "read from 0: C:\\menus\\a.menu",
                 "read from 64: C:\\menus\\a.menu",
                 "read from 128: C:\\menus\\a.menu",
                 "write 64 bytes to temporaryfile",
                 "write 64 bytes to temporaryfile",
                 "write 21 bytes to temporaryfile",
                 "flush temporaryfile",
                 "truncate to 0: C:\\menus\\a.menu",
                 "read from 0: temporaryfile",
                 "write 64 bytes to C:\\menus\\a.menu",
                 "read from 64: temporaryfile",
                 "write 64 bytes to C:\\menus\\a.menu",
                 "read from 128: temporaryfile",
                 "write 21 bytes to C:\\menus\\a.menu",
                 "flush C:\\menus\\a.menu",
                 "remove temporaryfile"}),
            files.log());
}

// Operation `number` fails; where it is one of the scratch file's, the menu
// file must not be touched by any that follows.
TEST(OrderOfOperations, WithoutACompleteScratchFileTheMenuIsNotTouched) {
  int checked = 0;
  for (int kind = 0; kind < kOperationKinds; ++kind) {
    const Operation operation = MakeOperation(static_cast<Kind>(kind), 1);
    const Log log = LogOf(operation);
    const std::string scratch = ScratchFileOf(operation.kind);
    for (std::size_t number = 1; log[number - 1] != "truncate to 0: C:\\menus\\a.menu"; ++number) {
      // That there is no old one is no failure.
      if (log[number - 1] == "remove " + scratch || log[number - 1] == "open to read " + scratch) {
        continue;
      }
      MemoryFiles files;
      files.Put(kMenuPath, UserMenu(2, "icon"));
      files.SetFault({number, Fault::Kind::FailsOnce, Fault::Done::Half});
      try {
        RewriteMenuFile(files, kMenuPath, ChangeFor(operation));
        EXPECT_TRUE(IgnoresFailures(operation.kind)) << NameOf(operation.kind);
      } catch (const Failure&) {
        EXPECT_FALSE(IgnoresFailures(operation.kind)) << NameOf(operation.kind);
      }
      EXPECT_EQ(UserMenu(2, "icon"), files.Get(kMenuPath));
      for (const std::string& done : files.log()) {
        EXPECT_TRUE(done == "open to change C:\\menus\\a.menu" || done.starts_with("read ") ||
                    done.find(kMenuPath) == std::string::npos)
            << done << " behind the failed " << log[number - 1];
      }
      ++checked;
    }
  }
  EXPECT_EQ(kOperationKinds * 6, checked);
}

}  // namespace
}  // namespace menufile
