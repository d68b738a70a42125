#include "menufile/upgrade.h"

#include <cstdint>
#include <memory>

#include "menufile/failure.h"
#include "menufile/file_window.h"
#include "menufile/reader.h"
#include "menufile/records.h"
#include "menufile/rewrite.h"
#include "menufile/scratch_file.h"

namespace menufile {
namespace {

// True when the menu file holds `head` and what the scratch file holds, false
// when it holds its old bytes: those that the scratch file begins with.
bool Replace(File& menu, std::string_view head, File& scratch, std::uint64_t oldSize,
             std::size_t blockSize) {
  try {
    menu.Truncate(0);
    menu.Write(head);
    AppendFile(scratch, menu, blockSize);
    menu.Flush();
    return true;
  } catch (const Failure&) {
    std::string old = scratch.ReadAll();
    old.resize(static_cast<std::size_t>(oldSize));
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

std::string ConvertedHead(std::string_view picture) {
  std::string head(picture);
  head += kMarkerLine;
  AppendTypeLine(head, TypeKeyword(MenuType::UserDefined));
  return head;
}

bool UpgradeMenuFile(FileSystem& files, const std::string& path, std::string_view picture) {
  // Else the conversion would begin with deleting the menu.
  if (files.IsSameFile(path, kListScratchFile)) {
    return false;
  }
  std::unique_ptr<File> menu;
  std::unique_ptr<File> scratch;
  std::uint64_t oldSize = 0;
  try {
    RemoveScratchFile(files, kListScratchFile);
    menu = files.Open(path, OpenMode::Change);
    // While the question was open another program may have written the menu.
    if (HasMarkerLine(*menu, files.BlockSize())) {
      return false;
    }
    scratch = files.Open(kListScratchFile, OpenMode::Create);
    oldSize = AppendFile(*menu, *scratch, files.BlockSize());
    scratch->Flush();
  } catch (const Failure&) {
    return false;
  }
  bool converted = false;
  try {
    converted = Replace(*menu, ConvertedHead(picture), *scratch, oldSize, files.BlockSize());
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
