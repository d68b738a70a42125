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

// Reads the bytes of a menu file in sequence: first the marker, then fields. A record
// is a number of fields, not a line. If a line holds too few, the record goes on in
// the next line.
//
// Records borrow from the bytes, which have to outlive them. If the bytes come from a
// FileWindow, a record is valid until the second record after it is read.
class MenuReader {
 public:
  // What reading a field after the last byte does.
  enum class PastEnd {
    Throws,       // throws Failure, which names the record, the field and the offset
    LeavesEmpty,  // returns an empty value
  };

  // `path` is what a Failure calls the file.
  MenuReader(std::string_view bytes, std::string path, PastEnd pastEnd = PastEnd::Throws)
      : bytes_(bytes), path_(std::move(path)), pastEnd_(pastEnd) {}

  // Reads `file` no further than needed. `file` has to outlive this object.
  MenuReader(FileWindow& file, std::string path, PastEnd pastEnd = PastEnd::Throws)
      : file_(&file),
        bytes_(file.bytes()),
        moreFollows_(file.MoreFollows()),
        path_(std::move(path)),
        pastEnd_(pastEnd) {}

  // Moves after the first line that equals the marker. If there is none, moves to the
  // end and returns false: the file is not a menu file.
  bool SkipMarkerLine();

  // Moves after the first line that ends with the marker; other bytes may come before
  // it. Writers find the end of the picture this way. Returns the 0-based position of
  // the marker's first byte. If there is none, moves to the end and returns nothing.
  std::optional<std::uint64_t> SkipMarker();

  Value ReadTypeLine();
  AppearanceRecord ReadAppearance();
  // Counts the entries that it has read, so that a Failure can name one.
  MenuItemRecord ReadItem();
  DirectoryPointerRecord ReadDirectoryPointer();

  // True if no byte follows the last record or marker.
  bool AtEnd() const { return offset_ >= bytes_.size(); }
  // The 0-based position of the next byte in the file.
  std::uint64_t offset() const { return Position() + offset_; }

 private:
  // The position of bytes_ in the file.
  std::uint64_t Position() const { return file_ == nullptr ? 0 : file_->position(); }
  // Drops the bytes before `at` and reads on after the last one.
  void Advance(std::size_t at);
  std::optional<std::uint64_t> SkipMarker(bool wholeLine);
  // Reads a record with `read`. If the bytes in memory end too early, reads more and
  // starts the record again.
  template <typename Read>
  auto ReadRecord(const Read& read);
  // The names are for a Failure.
  Value ReadField(const char* record, const char* field);
  // The value of a field that has no end. Throws Failure if the file ends there and
  // PastEnd says so.
  Value EndedField(const Value& soFar, const char* record, const char* field);
  // The offset after the comma or the line end at `at`. At the end of the bytes, the
  // offset of `at` itself.
  std::size_t AfterFieldEnd(const char* at) const;

  FileWindow* file_ = nullptr;  // the file of bytes_; nullptr if they are no file's
  std::string_view bytes_;
  bool moreFollows_ = false;  // true if the file may have bytes after bytes_
  std::string path_;
  PastEnd pastEnd_;
  std::size_t offset_ = 0;  // of the next byte in bytes_
  std::size_t entriesRead_ = 0;
};

// True if a line of the file equals the marker: the file is a menu file.
bool HasMarkerLine(File& file, std::size_t blockSize);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_READER_H_
