#include "menufile/upgrade.h"

#include "menufile/failure.h"
#include "menufile/records.h"
#include "menufile/rewrite.h"
#include "menufile/scratch_file.h"

namespace menufile {
namespace {

// True when `menu` holds `picture` and, behind the lines that every menu has,
// `description`; false when it holds `old`, its bytes so far.
bool Replace(File& menu, std::string_view picture, std::string_view description,
             const std::string& old) {
  std::string head(picture);
  head += kMarkerLine;
  AppendTypeLine(head, TypeKeyword(MenuType::UserDefined));
  try {
    menu.Truncate(0);
    menu.Write(head);
    menu.Write(description);
    menu.Flush();
    return true;
  } catch (const Failure&) {
    // A failure says nothing of how much was done before it.
    if (menu.ReadAll() != old) {
      menu.Truncate(0);
      menu.Write(old);
      menu.Flush();
    }
    return false;
  }
}

}  // namespace

bool UpgradeMenuFile(FileSystem& files, const std::string& path, std::string_view picture) {
  std::unique_ptr<File> menu;
  std::unique_ptr<ScratchFile> scratch;
  std::string old;
  try {
    RemoveScratchFile(files, kListScratchFile);
    menu = files.Open(path, OpenMode::Change);
    old = menu->ReadAll();
    scratch = std::make_unique<ScratchFile>(files, kListScratchFile);
    scratch->Write(old);
    scratch->Complete();
  } catch (const Failure&) {
    return false;
  }
  bool converted = false;
  try {
    converted = Replace(*menu, picture, scratch->Contents(), old);
  } catch (const Failure& failure) {
    throw Failure(path, "convert the file",
                  failure.reason() + ". What the file held is complete in the file \"" +
                      kListScratchFile + "\" in the current folder");
  }
  menu.reset();
  scratch.reset();
  RemoveScratchFile(files, kListScratchFile);
  return converted;
}

}  // namespace menufile
