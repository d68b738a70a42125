#ifndef CORVALIS_MENUFILE_BLOCK_WRITER_H_
#define CORVALIS_MENUFILE_BLOCK_WRITER_H_

#include <cstddef>
#include <cstdint>
#include <string>

#include "menufile/file_system.h"

namespace menufile {

// Puts together what is written to a file in small pieces, so that it is
// written in blocks.
class BlockWriter {
 public:
  BlockWriter(File& file, std::size_t blockSize) : file_(file), blockSize_(blockSize) {}

  // What was not written yet; pieces are appended here.
  std::string& text() { return text_; }

  // The bytes appended so far.
  std::uint64_t size() const { return written_ + text_.size(); }

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

 private:
  void WriteFirst(std::size_t size);

  File& file_;
  std::size_t blockSize_;
  std::string text_;
  std::uint64_t written_ = 0;
};

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_BLOCK_WRITER_H_
