#include "menufile/rewrite.h"

#include <cstdint>
#include <optional>
#include <span>

#include "menufile/block_writer.h"
#include "menufile/failure.h"
#include "menufile/file_window.h"
#include "menufile/reader.h"

namespace menufile {
namespace {

// Writes the lines after the marker line.
class MenuWriter final : public RecordStream {
 public:
  MenuWriter(MenuReader& reader, BlockWriter& out) : reader_(reader), out_(out) {}

  void Run(const MenuChange& change) {
    const Value oldType = reader_.ReadTypeLine();
    AppendTypeLine(out_.text(), change.type ? TypeKeyword(*change.type) : oldType.Text());
    const AppearanceRecord appearance = reader_.ReadAppearance();
    if (change.appearanceLine) {
      out_.text() += *change.appearanceLine;
    } else {
      AppendLine(out_.text(), appearance);
    }
    if (change.recordRule) {
      for (std::size_t counter = 0; !reader_.AtEnd(); ++counter) {
        const MenuItemRecord record = reader_.ReadItem();
        change.recordRule(counter, record, *this);
      }
    }
    out_.text() += change.directoryLine;
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

// Copies the picture and the marker, and writes CR LF after it, whatever line end it
// had. If there is no marker, copies the whole file.
void CopyPicture(MenuReader& reader, File& menu, BlockWriter& out) {
  if (const std::optional<std::uint64_t> marker = reader.SkipMarker()) {
    out.Copy(menu, 0, *marker);
    out.text() += kMarkerText;
    out.text() += "\r\n";
    return;
  }
  const std::uint64_t size = reader.offset();
  out.Copy(menu, 0, size);
  // The format's own copy writes the rest of the line and CR LF after every "<", and
  // then writes the next bytes over them. If "<" is the last byte, the CR LF stays.
  char last = 0;
  if (size > 0 && ReadToEnd(menu, size - 1, std::span(&last, 1)) == 1 && last == '<') {
    out.text() += "\r\n";
  }
}

// Writes the description: the whole menu, or what comes after a new picture. Returns the
// checksum of the old menu if it has read all of it. Only a change that drops the records
// does not.
std::optional<std::uint64_t> WriteDescription(File& file, const std::string& path,
                                              const MenuChange& change, std::size_t blockSize,
                                              BlockWriter& out) {
  Checksum sum;
  FileWindow window(file, blockSize);
  window.AddTo(sum);
  MenuReader reader(window, path,
                    change.errorMode == ErrorMode::Ignores ? MenuReader::PastEnd::LeavesEmpty
                                                           : MenuReader::PastEnd::Throws);
  if (change.picture) {
    reader.SkipMarker();
    out.text() += kMarkerLine;
  } else {
    CopyPicture(reader, file, out);
  }
  MenuWriter(reader, out).Run(change);
  return window.MoreFollows() ? std::nullopt : std::optional(sum.value());
}

}  // namespace

void KeepRecord(std::size_t, const MenuItemRecord& record, RecordStream& records) {
  records.Write(record);
}

ChangeResult RewriteMenuFile(MenuFile& menu, const MenuChange& change) {
  const bool ignoresFailures = change.errorMode == ErrorMode::Ignores;
  try {
    if (menu.FinishEarlier()) {
      return ChangeResult::EarlierFinished;
    }
    menu.Replace({change.scratchFile, change.deleteScratchFirst, ignoresFailures},
                 change.picture.value_or(std::string()), [&](File& file, BlockWriter& out) {
                   return WriteDescription(file, menu.path(), change, menu.files().BlockSize(),
                                           out);
                 });
    return ChangeResult::Made;
  } catch (const Failure&) {
    if (!ignoresFailures) {
      throw;
    }
    return ChangeResult::Failed;
  }
}

}  // namespace menufile
