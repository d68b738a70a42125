#include "menufile/rewrite.h"

#include <algorithm>
#include <memory>
#include <span>

#include "menufile/block_writer.h"
#include "menufile/failure.h"
#include "menufile/file_window.h"
#include "menufile/reader.h"
#include "menufile/scratch_file.h"

namespace menufile {
namespace {

// What stands behind the marker line, written line by line.
class MenuWriter final : public RecordStream {
 public:
  MenuWriter(MenuReader& reader, BlockWriter& out) : reader_(reader), out_(out) {}

  void Run(const MenuChange& change) {
    const Value oldType = reader_.ReadTypeLine();
    AppendTypeLine(out_.text(), change.type ? TypeKeyword(*change.type) : oldType.Text());
    const AppearanceRecord old = reader_.ReadAppearance();
    AppendLine(out_.text(), change.appearance.value_or(old));
    if (change.recordRule) {
      for (std::size_t counter = 0; !reader_.AtEnd(); ++counter) {
        const MenuItemRecord record = reader_.ReadItem();
        change.recordRule(counter, record, *this);
      }
    }
    if (change.directory) {
      AppendLine(out_.text(), *change.directory);
    }
  }

  MenuItemRecord ReadNext() override { return reader_.ReadItem(); }
  void Write(const MenuItemRecord& record) override {
    AppendLine(out_.text(), record);
    out_.WriteBlocks();
  }

 private:
  MenuReader& reader_;
  BlockWriter& out_;
};

// Copies the first `size` bytes of the file, mostly a small part of it.
void CopyBeginning(File& menu, std::uint64_t size, std::size_t blockSize, BlockWriter& out) {
  const auto atOnce = static_cast<std::size_t>(std::min<std::uint64_t>(blockSize, size));
  FileWindow window(menu, atOnce);
  while (size > 0 && window.ReadOn(window.bytes().size())) {
    const std::string_view bytes =
        window.bytes().substr(0, static_cast<std::size_t>(std::min<std::uint64_t>(atOnce, size)));
    out.text() += bytes;
    out.WriteBlocks();
    size -= bytes.size();
  }
}

// Copies the picture and the marker line, whatever its line end was.
void CopyPicture(MenuReader& reader, File& menu, std::size_t blockSize, BlockWriter& out) {
  if (const std::optional<std::uint64_t> marker = reader.SkipMarker()) {
    CopyBeginning(menu, *marker, blockSize, out);
    out.text() += kMarkerText;
    out.text() += "\r\n";
    return;
  }
  const std::uint64_t size = reader.offset();
  CopyBeginning(menu, size, blockSize, out);
  // The copy writes the rest of the line behind every "<", to be overwritten by
  // the bytes that follow. Behind a last "<" there is nothing but its line end.
  char last = 0;
  if (size > 0 && menu.Read(size - 1, std::span(&last, 1)) == 1 && last == '<') {
    out.text() += "\r\n";
  }
}

// Writes the text of the scratch file: the whole menu, or with a new picture
// what follows that.
void WriteText(File& menu, const std::string& path, const MenuChange& change, std::size_t blockSize,
               BlockWriter& out) {
  FileWindow window(menu, blockSize);
  MenuReader reader(window, path,
                    change.errorMode == ErrorMode::Ignores ? MenuReader::PastEnd::LeavesEmpty
                                                           : MenuReader::PastEnd::Throws);
  if (change.picture) {
    reader.SkipMarker();
    out.text() += kMarkerLine;
  } else {
    CopyPicture(reader, menu, blockSize, out);
  }
  MenuWriter(reader, out).Run(change);
}

// Leaves the changed menu in the scratch file, on the disk. Where making it
// fails half-way, the scratch file holds the text so far.
void WriteScratchFile(File& scratch, File& menu, const std::string& path, const MenuChange& change,
                      std::size_t blockSize) {
  // An old scratch file is written over from its front, and what is longer in it
  // stays behind the text. A new picture goes in front of that: while the menu
  // file is being written it stands nowhere else.
  const std::string_view picture = change.picture.value_or(std::string_view());
  const std::string old = picture.empty() ? std::string() : scratch.ReadAll();
  BlockWriter out(scratch, blockSize);
  out.text() = picture;
  const auto finish = [&] {
    const std::uint64_t textSize = out.size() - picture.size();
    if (textSize < old.size()) {
      out.text() += std::string_view(old).substr(static_cast<std::size_t>(textSize));
    }
    out.WriteRest();
  };
  try {
    WriteText(menu, path, change, blockSize, out);
  } catch (const Failure&) {
    finish();
    throw;
  }
  finish();
  scratch.Flush();
}

// Whether a change that was interrupted left the file, so that it holds a menu or
// the larger part of one.
bool HoldsMenu(FileSystem& files, const std::string& path) {
  std::unique_ptr<File> file;
  try {
    file = files.Open(path, OpenMode::Read);
  } catch (const Failure&) {
    return false;  // mostly there is none
  }
  return HasMarkerLine(*file, files.BlockSize());
}

}  // namespace

void KeepRecord(std::size_t, const MenuItemRecord& record, RecordStream& records) {
  records.Write(record);
}

RewriteResult RewriteMenuFile(FileSystem& files, const std::string& path,
                              const MenuChange& change) {
  RewriteResult result = RewriteResult::MenuUntouched;
  // Else the change would begin with deleting the menu.
  if (files.IsSameFile(path, change.scratchFile)) {
    if (change.errorMode == ErrorMode::Throws) {
      throw Failure(path, "change the file", "It has the name of a scratch file");
    }
    return result;
  }
  try {
    // The end of another menu would be read as entries of this one.
    if (change.deleteScratchFirst || HoldsMenu(files, change.scratchFile)) {
      RemoveScratchFile(files, change.scratchFile);
    }
    const std::unique_ptr<File> menu = files.Open(path, OpenMode::Change);
    const std::unique_ptr<File> scratch = files.Open(change.scratchFile, OpenMode::Create);
    WriteScratchFile(*scratch, *menu, path, change, files.BlockSize());
    // From here on only the scratch file is sure to be complete.
    result = RewriteResult::MenuMayBeCut;
    menu->Truncate(0);
    AppendFile(*scratch, *menu, files.BlockSize());
    menu->Flush();
    result = RewriteResult::Done;
  } catch (const Failure& failure) {
    if (change.errorMode == ErrorMode::Throws) {
      if (result == RewriteResult::MenuMayBeCut) {
        throw MenuMayBeCutFailure(failure);
      }
      throw;
    }
  }
  if (result != RewriteResult::MenuMayBeCut) {
    RemoveScratchFile(files, change.scratchFile);
  }
  return result;
}

}  // namespace menufile
