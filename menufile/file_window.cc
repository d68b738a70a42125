#include "menufile/file_window.h"

#include <algorithm>
#include <utility>

#include "menufile/failure.h"

namespace menufile {

FileWindow::FileWindow(File& file, std::size_t blockSize, std::string_view head, std::uint64_t from)
    : file_(file), blockSize_(blockSize), current_(head.size()), size_(head.size()), readTo_(from) {
  std::copy(head.begin(), head.end(), current_.bytes.get());
}

bool FileWindow::Advance(std::size_t count) {
  const std::string_view kept = bytes().substr(count);
  // A record longer than a block is read again from its start after each call. The
  // window doubles each time, so that there are few such calls.
  const std::size_t wanted = moreFollows_ ? std::max(blockSize_, kept.size()) : 0;
  const std::size_t needed = kept.size() + wanted;
  if (count > 0 || current_.size < needed) {
    Buffer next = count > 0 ? std::move(previous_) : Buffer();
    if (next.size < needed) {
      next = Buffer(needed);
    }
    std::copy(kept.begin(), kept.end(), next.bytes.get());
    if (count > 0) {
      previous_ = std::move(current_);
    }
    current_ = std::move(next);
    size_ = kept.size();
    position_ += count;
  }
  if (wanted == 0) {
    return false;
  }
  const std::size_t got = ReadToEnd(file_, readTo_, {current_.bytes.get() + size_, wanted});
  if (sum_ != nullptr) {
    sum_->Add({current_.bytes.get() + size_, got});
  }
  moreFollows_ = got == wanted;
  readTo_ += got;
  size_ += got;
  return got > 0;
}

std::size_t ReadToEnd(File& file, std::uint64_t offset, std::span<char> bytes) {
  const std::size_t got = file.Read(offset, bytes);
  if (got < bytes.size() && file.Size() > offset + got) {
    throw Failure(file.FullName(), "read the file", "It gave less than it holds");
  }
  return got;
}

void AppendFile(File& from, File& to, std::size_t blockSize) {
  FileWindow window(from, blockSize);
  while (window.Advance(window.bytes().size())) {
    to.Write(window.bytes());
  }
}

}  // namespace menufile
