#include "menufile/block_writer.h"

#include <string_view>

#include "menufile/failure.h"

namespace menufile {

void BlockWriter::WriteFirst(std::size_t size) {
  try {
    file_.Write(std::string_view(text_).substr(0, size));
  } catch (const Failure&) {
    // How much of it was written is not known: a second try could only add to it.
    text_.clear();
    throw;
  }
  written_ += size;
  text_.erase(0, size);
}

}  // namespace menufile
