#ifndef CORVALIS_MENUFILE_BLOCK_WRITER_H_
#define CORVALIS_MENUFILE_BLOCK_WRITER_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "menufile/checksum.h"
#include "menufile/file_system.h"

namespace menufile {

// Puts together what is written to a file in small pieces, so that it is
// written in blocks. Its operations throw Failure.
class BlockWriter {
 public:
  BlockWriter(File& file, std::size_t blockSize) : file_(file), blockSize_(blockSize) {}

  // What was not written yet. New pieces are appended here.
  std::string& text() { return text_; }

  // The size in bytes and the checksum of all that was written.
  std::uint64_t size() const { return size_; }
  const Checksum& sum() const { return sum_; }

  // Writes the whole blocks of the text. Called after each piece.
  void WriteBlocks() {
    if (text_.size() >= blockSize_) {
      WriteFirst(text_.size() - text_.size() % blockSize_);
    }
  }

  // Writes all of the text.
  void WriteRest() {
    if (!text_.empty()) {
      WriteFirst(text_.size());
    }
  }

  // Copies `count` bytes of another file, from `offset` on, or fewer where it
  // ends. Writes all of the text but the last block.
  void Copy(File& from, std::uint64_t offset, std::uint64_t count);

 private:
  void WriteFirst(std::size_t count);

  File& file_;
  std::size_t blockSize_;
  std::string text_;
  std::uint64_t size_ = 0;
  Checksum sum_;
};

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_BLOCK_WRITER_H_
