#include "menufile/upgrade.h"

#include "menufile/failure.h"
#include "menufile/records.h"
#include "menufile/rewrite.h"
#include "menufile/scratch_file.h"

namespace menufile {
namespace {

// True when `menu` holds its `converted` bytes, false when it holds its `old`
// ones.
bool Replace(File& menu, const std::string& converted, const std::string& old) {
  try {
    menu.Truncate(0);
    menu.Write(converted);
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

std::string ConvertedMenu(std::string_view picture, std::string_view old) {
  std::string menu(picture);
  menu += kMarkerLine;
  AppendTypeLine(menu, TypeKeyword(MenuType::UserDefined));
  menu += old;
  return menu;
}

bool UpgradeMenuFile(FileSystem& files, const std::string& path, std::string_view picture) {
  std::unique_ptr<File> menu;
  std::unique_ptr<ScratchFile> scratch;
  std::string old;
  std::string description;
  try {
    RemoveScratchFile(files, kListScratchFile);
    menu = files.Open(path, OpenMode::Change);
    old = menu->ReadAll();
    scratch = std::make_unique<ScratchFile>(files, kListScratchFile);
    description = old;
    description += scratch->Tail(old.size());
    scratch->WriteWhole(description);
  } catch (const Failure&) {
    return false;
  }
  bool converted = false;
  try {
    converted = Replace(*menu, ConvertedMenu(picture, description), old);
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
