#ifndef CORVALIS_MENUFILE_FILE_WINDOW_H_
#define CORVALIS_MENUFILE_FILE_WINDOW_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "menufile/checksum.h"
#include "menufile/file_system.h"

namespace menufile {

// The part of a file that is in memory. It moves through the file block by block. It
// holds more than a block only if its user keeps more.
class FileWindow {
 public:
  // Borrows `file` and begins at its 0-based offset `from`. The bytes of `head` come
  // first, as if they stood before that offset. Reads nothing yet.
  FileWindow(File& file, std::size_t blockSize, std::string_view head = {}, std::uint64_t from = 0);

  // The bytes now in memory. Views into them stay valid until the second call of
  // Advance() from now that drops something.
  std::string_view bytes() const { return {current_.bytes.get(), size_}; }

  // The number of bytes dropped so far.
  std::uint64_t position() const { return position_; }

  // Adds all bytes that are read from now on to `sum`, which is borrowed.
  void AddTo(Checksum& sum) { sum_ = &sum; }

  // True if the file may have bytes after these.
  bool MoreFollows() const { return moreFollows_; }

  // Drops the first `count` bytes in memory and reads on after the last one. Returns
  // false if the file has no more bytes. Throws Failure.
  bool Advance(std::size_t count);

 private:
  // The bytes are not set to zero: most files are much shorter than a block, and
  // memory that nobody touches costs nothing.
  struct Buffer {
    explicit Buffer(std::size_t count = 0)
        : bytes(std::make_unique_for_overwrite<char[]>(count)), size(count) {}
    std::unique_ptr<char[]> bytes;
    std::size_t size;
  };

  File& file_;
  std::size_t blockSize_;
  Buffer current_;
  Buffer previous_;
  std::size_t size_;  // the number of bytes that current_ holds
  std::uint64_t position_ = 0;
  std::uint64_t readTo_;
  bool moreFollows_ = true;
  Checksum* sum_ = nullptr;
};

// Reads as File::Read() does, but throws Failure if fewer bytes came although the
// file goes on. Such a short read must not count as the end of a menu.
std::size_t ReadToEnd(File& file, std::uint64_t offset, std::span<char> bytes);

// Writes all bytes of `from` to `to`, where the next Write() starts.
void AppendFile(File& from, File& to, std::size_t blockSize);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_FILE_WINDOW_H_
