#ifndef CORVALIS_MENUFILE_FILE_WINDOW_H_
#define CORVALIS_MENUFILE_FILE_WINDOW_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "menufile/file_system.h"

namespace menufile {

// The part of a file that is in memory. It moves on to the end of the file, block
// by block. It grows beyond a block only where its user needs more at once.
class FileWindow {
 public:
  // Begins at the 0-based offset `from` of the file, with `head` in front as if it
  // stood there.
  FileWindow(File& file, std::size_t blockSize, std::string_view head = {}, std::uint64_t from = 0);

  // The bytes now in memory. Views into them stay valid until the second call of
  // Advance() from now that drops something.
  std::string_view bytes() const { return {current_.bytes.get(), size_}; }

  // How many bytes were dropped so far.
  std::uint64_t position() const { return position_; }

  // True if the file may have bytes after these.
  bool MoreFollows() const { return moreFollows_; }

  // Drops the first `count` bytes in memory and reads the bytes after the last one.
  // Returns false when the file has no more.
  bool Advance(std::size_t count);

 private:
  // Not filled with zeros: most files are much shorter than a block, and memory
  // that no one touches costs nothing.
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
  std::size_t size_;  // of the bytes that current_ holds
  std::uint64_t position_ = 0;
  std::uint64_t readTo_;
  bool moreFollows_ = true;
};

// Reads as File::Read() does, and throws Failure where fewer bytes came although the
// file goes on: what is missing must not count as the end of a menu.
std::size_t ReadToEnd(File& file, std::uint64_t offset, std::span<char> bytes);

// Writes what `from` holds to the place where the next byte of `to` goes, and
// returns the number of bytes.
std::uint64_t AppendFile(File& from, File& to, std::size_t blockSize);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_FILE_WINDOW_H_
