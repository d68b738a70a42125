#ifndef CORVALIS_MENUFILE_READER_H_
#define CORVALIS_MENUFILE_READER_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "menufile/file_window.h"
#include "menufile/records.h"

namespace menufile {

// Reads the bytes of a menu file in sequence, first the marker, then fields. A
// record is a number of fields, not a line: where a line holds too few, the
// record goes on with the next one.
//
// Records borrow from the bytes, which have to outlive them. Where the bytes come
// from a FileWindow, a record is valid until the second record after it is read.
class MenuReader {
 public:
  // What happens when a field is to be read after the last byte.
  enum class PastEnd {
    Throws,       // Failure, telling the record, the field and the offset
    LeavesEmpty,  // the value is empty
  };

  // `path` is what a Failure calls the file.
  MenuReader(std::string_view bytes, std::string path, PastEnd pastEnd = PastEnd::Throws)
      : bytes_(bytes), path_(std::move(path)), pastEnd_(pastEnd) {}

  // Reads `file`, which has to outlive this object, as far as it is needed.
  MenuReader(FileWindow& file, std::string path, PastEnd pastEnd = PastEnd::Throws)
      : file_(&file),
        bytes_(file.bytes()),
        moreFollows_(file.MoreFollows()),
        path_(std::move(path)),
        pastEnd_(pastEnd) {}

  // Moves to the first byte after a line that equals the marker. Returns false, at
  // the end of the bytes, when there is none. This decides what a menu file is.
  bool SkipMarkerLine();

  // Moves to the first byte after a line that ends with the marker; it need not begin
  // with it. This is how writers look for the place where the picture ends.
  // Returns the 0-based position of the marker's first byte; nothing, at the
  // end of the bytes, when there is none.
  std::optional<std::uint64_t> SkipMarker();

  Value ReadTypeLine();
  AppearanceRecord ReadAppearance();
  // Counts the entries that it has read, so that a Failure can name one.
  MenuItemRecord ReadItem();
  DirectoryPointerRecord ReadDirectoryPointer();

  // True if the last record, or the marker, was the end of the bytes.
  bool AtEnd() const { return offset_ >= bytes_.size(); }
  // 0-based, of the next byte.
  std::uint64_t offset() const { return Position() + offset_; }

 private:
  // Of the first of bytes_ in the file.
  std::uint64_t Position() const { return file_ == nullptr ? 0 : file_->position(); }
  // Drops the bytes before `at` and reads the bytes after the last one.
  void Advance(std::size_t at);
  std::optional<std::uint64_t> SkipMarker(bool wholeLine);
  // Reads a record with `read`: once more from its first field where the bytes in
  // memory ended too early.
  template <typename Read>
  auto ReadRecord(const Read& read);
  // The names are for a Failure.
  Value ReadField(const char* record, const char* field);
  // The value of a field that the bytes end in. Throws where that is a Failure.
  Value EndedField(const Value& soFar, const char* record, const char* field);
  // The offset after the comma or the line end at `at`, if there is one.
  std::size_t AfterFieldEnd(const char* at) const;

  FileWindow* file_ = nullptr;  // that bytes_ are of, if they are of a file
  std::string_view bytes_;
  bool moreFollows_ = false;  // after bytes_
  std::string path_;
  PastEnd pastEnd_;
  std::size_t offset_ = 0;  // in bytes_
  std::size_t entriesRead_ = 0;
};

// True if a line of the file equals the marker, so that it holds a menu.
bool HasMarkerLine(File& file, std::size_t blockSize);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_READER_H_
