#include "menufile/upgrade.h"

#include <limits>
#include <optional>
#include <string>

#include "menufile/failure.h"
#include "menufile/reader.h"
#include "menufile/records.h"
#include "menufile/scratch_file.h"

namespace menufile {

void UpgradeMenuFile(MenuFile& menu, std::string_view picture) {
  std::string head(picture);
  head += kMarkerLine;
  AppendTypeLine(head, TypeKeyword(MenuType::UserDefined));
  bool isMenuByNow = false;
  try {
    if (menu.FinishEarlier()) {
      return;
    }
    menu.Replace({kListScratchFile}, head, [&](File& file, BlockWriter& out) {
      // While the question was open another program may have written the menu.
      isMenuByNow = HasMarkerLine(file, menu.files().BlockSize());
      if (isMenuByNow) {
        throw Failure(menu.path(), "convert the file", "It has a marker line by now");
      }
      out.Copy(file, 0, std::numeric_limits<std::uint64_t>::max());
      return std::nullopt;
    });
  } catch (const Failure&) {
    if (menu.HasUnfinished()) {
      throw;
    }
    if (isMenuByNow) {
      RemoveScratchFile(menu.files(), kListScratchFile);
    }
  }
}

}  // namespace menufile
