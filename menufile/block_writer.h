#ifndef CORVALIS_MENUFILE_BLOCK_WRITER_H_
#define CORVALIS_MENUFILE_BLOCK_WRITER_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "menufile/checksum.h"
#include "menufile/file_system.h"

namespace menufile {

// Collects small pieces and writes them to a file in blocks. The operations throw
// Failure.
class BlockWriter {
 public:
  // Borrows `file`. `blockSize` is in bytes.
  BlockWriter(File& file, std::size_t blockSize) : file_(file), blockSize_(blockSize) {}

  // The bytes not written yet. The caller appends new pieces here.
  std::string& text() { return text_; }

  // The size in bytes and the checksum of everything written so far.
  std::uint64_t size() const { return size_; }
  const Checksum& sum() const { return sum_; }

  // Writes as many whole blocks as the buffer holds. The caller calls it after each
  // piece.
  void WriteBlocks() {
    if (text_.size() >= blockSize_) {
      WriteFirst(text_.size() - text_.size() % blockSize_);
    }
  }

  // Writes the rest of the buffer.
  void WriteRest() {
    if (!text_.empty()) {
      WriteFirst(text_.size());
    }
  }

  // Appends `count` bytes of another file, from the 0-based `offset` on, or fewer if
  // that file ends before. At most the last block stays in the buffer.
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
