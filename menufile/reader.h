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
// Records borrow from the bytes, which have to outlive them. Where those are read
// from a file meanwhile, a record is good until the second one behind it is read.
class MenuReader {
 public:
  // What happens when a field is to be read behind the last byte.
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

  // Moves behind the first line that equals the marker. False, at the end of
  // the bytes, when there is none. This decides what a menu file is.
  bool SkipMarkerLine();

  // Moves behind the first line that ends with the marker; it need not begin
  // with it. This is how writers look for the place where the picture ends.
  // Returns the 0-based position of the marker's first byte; nothing, at the
  // end of the bytes, when there is none.
  std::optional<std::uint64_t> SkipMarker();

  Value ReadTypeLine();
  AppearanceRecord ReadAppearance();
  // Counts the entries that it has read, so that a Failure can name one.
  MenuItemRecord ReadItem();
  DirectoryPointerRecord ReadDirectoryPointer();

  // Behind a record or the marker: whether that was the end of the bytes.
  bool AtEnd() const { return offset_ >= bytes_.size(); }
  // 0-based, of the next byte.
  std::uint64_t offset() const { return Position() + offset_; }

 private:
  // Of the first of bytes_ in the file.
  std::uint64_t Position() const { return file_ == nullptr ? 0 : file_->position(); }
  // Drops the bytes before `at` and reads on behind the last one.
  void ReadOn(std::size_t at);
  std::optional<std::uint64_t> SkipMarker(bool wholeLine);
  // What `read` makes of the fields of a record.
  template <typename Read>
  auto ReadRecord(const Read& read);
  // The names are for a Failure.
  Value ReadField(const char* record, const char* field);
  // What a field is that bytes_ end in. Throws where that is a Failure.
  Value EndedField(const Value& soFar, const char* record, const char* field);
  // Behind the comma or the line end at `at`, if there is one.
  std::size_t BehindFieldEnd(const char* at) const;

  FileWindow* file_ = nullptr;  // that bytes_ are of, if they are of a file
  std::string_view bytes_;
  bool moreFollows_ = false;  // behind bytes_
  std::string path_;
  PastEnd pastEnd_;
  std::size_t offset_ = 0;  // in bytes_
  std::size_t entriesRead_ = 0;
};

// Whether a line of the file equals the marker, so that it holds a menu.
bool HasMarkerLine(File& file, std::size_t blockSize);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_READER_H_
