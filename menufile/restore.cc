#include "menufile/restore.h"

#include <cstdint>
#include <initializer_list>

#include "menufile/failure.h"
#include "menufile/reader.h"
#include "menufile/rewrite.h"
#include "menufile/scratch_file.h"
#include "menufile/upgrade.h"

namespace menufile {
namespace {

std::optional<std::string> ReadFile(FileSystem& files, const std::string& path) {
  try {
    return files.Open(path, OpenMode::Read)->ReadAll();
  } catch (const Failure&) {
    return std::nullopt;
  }
}

// Whether `file` is what a writer of `whole` left that came no further: a strict
// beginning of it. Where the power was cut, zeros may follow: a file gets its
// new length before the bytes that belong there.
bool IsCutShort(std::string_view file, std::string_view whole) {
  const std::string_view beginning = file.substr(0, file.find_last_not_of('\0') + 1);
  return file.size() <= whole.size() && file != whole && whole.starts_with(beginning);
}

// Whether the bytes hold a whole menu: every line of it, each with its end.
bool IsComplete(std::string_view menu) {
  if (!menu.ends_with("\r\n")) {
    return false;
  }
  try {
    MenuReader reader(menu, "");
    if (!reader.SkipMarkerLine()) {
      return false;
    }
    const std::string type = reader.ReadTypeLine().Text();
    reader.ReadAppearance();
    if (type == TypeKeyword(MenuType::DirectoryPointer)) {
      reader.ReadDirectoryPointer();
      return reader.AtEnd();
    }
    while (!reader.AtEnd()) {
      reader.ReadItem();
    }
    return type == TypeKeyword(MenuType::UserDefined);
  } catch (const Failure&) {
    return false;
  }
}

// The bitmap file that the bytes begin with; its header tells its length. Empty
// when they begin with none, or hold only a part of it.
std::string_view LeadingBitmap(std::string_view bytes) {
  constexpr std::size_t kLengthOffset = 2;
  constexpr std::size_t kLengthEnd = 6;
  if (bytes.size() < kLengthEnd || !bytes.starts_with("BM")) {
    return {};
  }
  std::uint32_t length = 0;
  for (std::size_t i = kLengthEnd; i-- > kLengthOffset;) {
    length = length << 8 | static_cast<unsigned char>(bytes[i]);
  }
  return length <= bytes.size() ? bytes.substr(0, length) : std::string_view();
}

// What the change was to make of the menu file, if it was interrupted.
std::optional<std::string> IntendedMenu(std::string_view menu, const std::string& scratch,
                                        std::string_view defaultPicture) {
  if (MenuReader(scratch, "").SkipMarkerLine()) {
    if (!IsComplete(scratch)) {
      return std::nullopt;
    }
    if (IsCutShort(menu, scratch)) {
      return scratch;
    }
    const std::string_view picture = LeadingBitmap(menu);
    if (scratch.starts_with(kMarkerLine) && !picture.empty() &&
        IsCutShort(menu.substr(picture.size()), scratch)) {
      return std::string(picture) + scratch;
    }
    return std::nullopt;
  }
  // A conversion is known by its picture, or by a scratch file that makes a
  // menu: the file may be empty, or have been cut while it was put back.
  const std::string converted = ConvertedMenu(defaultPicture, scratch);
  const bool begins = IsCutShort(menu, converted);
  if (!scratch.empty() && ((begins && !menu.empty()) ||
                           ((begins || IsCutShort(menu, scratch)) && IsComplete(converted)))) {
    return converted;
  }
  return std::nullopt;
}

}  // namespace

std::optional<InterruptedChange> FindInterruptedChange(FileSystem& files, const std::string& path,
                                                       std::string_view defaultPicture) {
  std::optional<std::string> menu;
  for (const char* scratchFile : {kListScratchFile, kDialogScratchFile}) {
    const std::optional<std::string> scratch = ReadFile(files, scratchFile);
    if (!scratch) {
      continue;
    }
    if (!menu) {
      menu = ReadFile(files, path);
    }
    if (!menu) {
      break;
    }
    if (std::optional<std::string> intended = IntendedMenu(*menu, *scratch, defaultPicture)) {
      return InterruptedChange{scratchFile, *std::move(intended)};
    }
  }
  return std::nullopt;
}

void MakeMenuWhole(FileSystem& files, const std::string& path, std::string_view defaultPicture) {
  if (const auto change = FindInterruptedChange(files, path, defaultPicture)) {
    FinishInterruptedChange(files, path, *change);
  } else if (!IsComplete(files.Open(path, OpenMode::Read)->ReadAll())) {
    throw Failure(path, "change the file",
                  "Its last change was interrupted and cannot be finished. The whole menu is in a "
                  "file in the current folder, \"" +
                      std::string(kListScratchFile) + "\" or \"" + kDialogScratchFile + '"');
  }
}

void FinishInterruptedChange(FileSystem& files, const std::string& path,
                             const InterruptedChange& change) {
  {
    const std::unique_ptr<File> menu = files.Open(path, OpenMode::Change);
    menu->Truncate(0);
    menu->Write(change.menu);
    menu->Flush();
  }
  RemoveScratchFile(files, change.scratchFile);
}

}  // namespace menufile
