#include "menufile/rewrite.h"

#include "menufile/failure.h"
#include "menufile/reader.h"
#include "menufile/scratch_file.h"

namespace menufile {
namespace {

// The text behind the picture, or behind the copied picture and marker, made
// line by line. What was made before a failure stays in `out`.
class MenuWriter final : public RecordStream {
 public:
  MenuWriter(MenuReader& reader, std::string& out) : reader_(reader), out_(out) {}

  void Run(const MenuChange& change) {
    const Value oldType = reader_.ReadTypeLine();
    AppendTypeLine(out_, change.type ? TypeKeyword(*change.type) : oldType.Text());
    const AppearanceRecord old = reader_.ReadAppearance();
    AppendLine(out_, change.appearance.value_or(old));
    if (change.recordRule) {
      for (std::size_t counter = 0; !reader_.AtEnd(); ++counter) {
        const MenuItemRecord record = reader_.ReadItem();
        change.recordRule(counter, record, *this);
      }
    }
    if (change.directory) {
      AppendLine(out_, *change.directory);
    }
  }

  MenuItemRecord ReadNext() override { return reader_.ReadItem(); }
  void Write(const MenuItemRecord& record) override { AppendLine(out_, record); }

 private:
  MenuReader& reader_;
  std::string& out_;
};

// Copies the picture and the marker line, whatever its line end was.
void CopyPicture(MenuReader& reader, std::string_view bytes, std::string& out) {
  if (const std::optional<std::size_t> marker = reader.SkipMarker()) {
    out += bytes.substr(0, *marker);
    out += kMarkerText;
    out += "\r\n";
    return;
  }
  out += bytes;
  // The copy writes the rest of the line behind every "<", to be overwritten by
  // the bytes that follow. Behind a last "<" there is nothing but its line end.
  if (!bytes.empty() && bytes.back() == '<') {
    out += "\r\n";
  }
}

// Makes the text of the scratch file in `out`: the whole menu, or with a new
// picture what follows that.
void MakeText(std::string_view menu, const std::string& path, const MenuChange& change,
              std::string& out) {
  MenuReader reader(menu, path,
                    change.errorMode == ErrorMode::Ignores ? MenuReader::PastEnd::LeavesEmpty
                                                           : MenuReader::PastEnd::Throws);
  out.reserve(menu.size() + 64);
  if (change.picture) {
    reader.SkipMarker();
    out += kMarkerLine;
  } else {
    CopyPicture(reader, menu, out);
  }
  MenuWriter(reader, out).Run(change);
}

// Makes the bytes of the changed menu and leaves them on the disk, in the
// scratch file. Where that fails half-way, the scratch file holds the text so
// far.
std::string WriteScratchFile(ScratchFile& scratch, std::string_view menu, const std::string& path,
                             const MenuChange& change) {
  std::string text;
  try {
    MakeText(menu, path, change, text);
  } catch (const Failure&) {
    scratch.Write(text);
    throw;
  }
  text += scratch.Tail(text.size());
  // A new picture goes through the scratch file too: while the menu file is
  // being written it stands nowhere else.
  text.insert(0, change.picture.value_or(std::string_view()));
  scratch.WriteWhole(text);
  return text;
}

}  // namespace

void KeepRecord(std::size_t, const MenuItemRecord& record, RecordStream& records) {
  records.Write(record);
}

RewriteResult RewriteMenuFile(FileSystem& files, const std::string& path,
                              const MenuChange& change) {
  RewriteResult result = RewriteResult::MenuUntouched;
  try {
    if (change.deleteScratchFirst) {
      RemoveScratchFile(files, change.scratchFile);
    }
    const std::unique_ptr<File> menu = files.Open(path, OpenMode::Change);
    ScratchFile scratch(files, change.scratchFile);
    const std::string changed = WriteScratchFile(scratch, menu->ReadAll(), path, change);
    // From here on only the scratch file is sure to be complete.
    result = RewriteResult::MenuMayBeCut;
    menu->Truncate(0);
    menu->Write(changed);
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
