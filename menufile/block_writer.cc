#include "menufile/block_writer.h"

#include <algorithm>

#include "menufile/failure.h"
#include "menufile/file_window.h"

namespace menufile {

void BlockWriter::WriteFirst(std::size_t count) {
  const std::string_view bytes = std::string_view(text_).substr(0, count);
  try {
    file_.Write(bytes);
  } catch (const Failure&) {
    // Nobody knows how much of it was written, so a second try could write some
    // bytes twice.
    text_.clear();
    throw;
  }
  sum_.Add(bytes);
  size_ += count;
  text_.erase(0, count);
}

void BlockWriter::Copy(File& from, std::uint64_t offset, std::uint64_t count) {
  // Most pictures are much shorter than a block.
  const auto atOnce = static_cast<std::size_t>(std::min<std::uint64_t>(blockSize_, count));
  FileWindow window(from, atOnce, {}, offset);
  while (count > 0 && window.Advance(window.bytes().size())) {
    const std::string_view bytes =
        window.bytes().substr(0, static_cast<std::size_t>(std::min<std::uint64_t>(atOnce, count)));
    text_ += bytes;
    WriteBlocks();
    count -= bytes.size();
  }
}

}  // namespace menufile
