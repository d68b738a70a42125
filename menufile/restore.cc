#include "menufile/restore.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <utility>

#include "menufile/failure.h"
#include "menufile/file_window.h"
#include "menufile/reader.h"
#include "menufile/rewrite.h"
#include "menufile/scratch_file.h"
#include "menufile/upgrade.h"

namespace menufile {
namespace {

bool IsNewer(FileSystem& files, const std::string& path, const std::string& other) {
  try {
    return files.LastWritten(path) > files.LastWritten(other);
  } catch (const Failure&) {
    return false;
  }
}

// Whether `file` is what a writer of `whole` left that came no further: a strict
// beginning of it. Where the power was cut, zeros may follow: a file gets its
// new length before the bytes that belong there.
bool IsCutShort(FileWindow file, FileWindow whole) {
  bool isBeginning = true;
  std::string_view inFile = file.bytes();
  std::string_view inWhole = whole.bytes();
  for (;;) {
    if (inFile.empty() && file.ReadOn(file.bytes().size())) {
      inFile = file.bytes();
    }
    if (inWhole.empty() && whole.ReadOn(whole.bytes().size())) {
      inWhole = whole.bytes();
    }
    if (inFile.empty() || inWhole.empty()) {
      return inFile.empty() && (!inWhole.empty() || !isBeginning);
    }
    const std::size_t size = std::min(inFile.size(), inWhole.size());
    std::size_t same = 0;
    if (isBeginning) {
      same = static_cast<std::size_t>(
          std::mismatch(inFile.begin(), inFile.begin() + size, inWhole.begin()).first -
          inFile.begin());
      isBeginning = same == size;
    }
    if (inFile.substr(same, size - same).find_first_not_of('\0') != std::string_view::npos) {
      return false;
    }
    inFile.remove_prefix(size);
    inWhole.remove_prefix(size);
  }
}

// Whether what the reader reads is a whole menu: every line of it, each with its
// end.
bool IsComplete(FileWindow menu) {
  try {
    MenuReader reader(menu, "");
    if (!reader.SkipMarkerLine()) {
      return false;
    }
    const std::string type = reader.ReadTypeLine().Text();
    reader.ReadAppearance();
    if (type == TypeKeyword(MenuType::DirectoryPointer)) {
      reader.ReadDirectoryPointer();
    } else if (type == TypeKeyword(MenuType::UserDefined)) {
      while (!reader.AtEnd()) {
        reader.ReadItem();
      }
    } else {
      return false;
    }
    return reader.AtEnd() && reader.IsBehindLineEnd();
  } catch (const Failure&) {
    return false;
  }
}

// The bytes that the file begins with, up to `size` of them.
std::string Beginning(File& file, std::size_t size) {
  std::string bytes(size, '\0');
  bytes.resize(file.Read(0, bytes));
  return bytes;
}

// The size of the bitmap file that the file begins with; its header tells it. 0
// when it begins with none, or holds only a part of it.
std::uint64_t LeadingBitmapSize(File& file) {
  constexpr std::size_t kSizeOffset = 2;
  constexpr std::size_t kSizeEnd = 6;
  const std::string header = Beginning(file, kSizeEnd);
  if (header.size() < kSizeEnd || !header.starts_with("BM")) {
    return 0;
  }
  std::uint32_t size = 0;
  for (std::size_t i = kSizeEnd; i-- > kSizeOffset;) {
    size = size << 8 | static_cast<unsigned char>(header[i]);
  }
  char last = 0;
  return size > 0 && file.Read(size - 1, std::span(&last, 1)) == 1 ? size : 0;
}

// What the change was to leave, if it was interrupted.
std::optional<InterruptedChange> InterruptedChangeIn(File& menu, const std::string& scratchFile,
                                                     File& scratch, std::size_t blockSize,
                                                     std::string_view defaultPicture) {
  const auto isCutShort = [&](std::uint64_t from, std::string_view head) {
    return IsCutShort({menu, blockSize, {}, from}, {scratch, blockSize, head});
  };
  if (HasMarkerLine(scratch, blockSize)) {
    if (!IsComplete({scratch, blockSize})) {
      return std::nullopt;
    }
    if (isCutShort(0, {})) {
      return InterruptedChange{0, {}, scratchFile};
    }
    const std::uint64_t picture = LeadingBitmapSize(menu);
    if (picture > 0 && Beginning(scratch, kMarkerLine.size()) == kMarkerLine &&
        isCutShort(picture, {})) {
      return InterruptedChange{picture, {}, scratchFile};
    }
    return std::nullopt;
  }
  // A conversion is known by its picture, or by a scratch file that makes a
  // menu: the file may be empty, or have been cut while it was put back.
  const std::string head = ConvertedHead(defaultPicture);
  const bool begins = isCutShort(0, head);
  if (!Beginning(scratch, 1).empty() &&
      ((begins && !Beginning(menu, 1).empty()) ||
       ((begins || isCutShort(0, {})) && IsComplete({scratch, blockSize, head})))) {
    return InterruptedChange{0, head, scratchFile};
  }
  return std::nullopt;
}

}  // namespace

std::optional<InterruptedChange> FindInterruptedChange(FileSystem& files, const std::string& path,
                                                       std::string_view defaultPicture) {
  std::optional<InterruptedChange> found;
  for (const char* scratchFile : {kListScratchFile, kDialogScratchFile}) {
    try {
      const std::unique_ptr<File> scratch = files.Open(scratchFile, OpenMode::Read);
      const std::unique_ptr<File> menu = files.Open(path, OpenMode::Read);
      auto change =
          InterruptedChangeIn(*menu, scratchFile, *scratch, files.BlockSize(), defaultPicture);
      // An earlier change may have left the other one, and a menu file that was
      // cut early begins like either.
      if (change && (!found || IsNewer(files, scratchFile, found->scratchFile))) {
        found = std::move(change);
      }
    } catch (const Failure&) {
      // Mostly there is no scratch file.
    }
  }
  return found;
}

void MakeMenuWhole(FileSystem& files, const std::string& path, std::string_view defaultPicture) {
  if (const auto change = FindInterruptedChange(files, path, defaultPicture)) {
    FinishInterruptedChange(files, path, *change);
    return;
  }
  const std::unique_ptr<File> menu = files.Open(path, OpenMode::Read);
  if (!IsComplete({*menu, files.BlockSize()})) {
    throw Failure(path, "change the file",
                  "Its last change was interrupted and cannot be finished. The whole menu is in a "
                  "file in the current folder, \"" +
                      std::string(kListScratchFile) + "\" or \"" + kDialogScratchFile + '"');
  }
}

void FinishInterruptedChange(FileSystem& files, const std::string& path,
                             const InterruptedChange& change) {
  {
    const std::unique_ptr<File> scratch = files.Open(change.scratchFile, OpenMode::Change);
    const std::unique_ptr<File> menu = files.Open(path, OpenMode::Change);
    menu->Truncate(change.kept);
    menu->Write(change.head);
    AppendFile(*scratch, *menu, files.BlockSize());
    menu->Flush();
  }
  RemoveScratchFile(files, change.scratchFile);
}

}  // namespace menufile
