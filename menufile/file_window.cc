#include "menufile/file_window.h"

#include <algorithm>
#include <span>
#include <utility>

namespace menufile {

FileWindow::FileWindow(File& file, std::size_t blockSize, std::string_view head, std::uint64_t from)
    : file_(file),
      blockSize_(blockSize),
      current_(head.begin(), head.end()),
      size_(head.size()),
      readTo_(from) {}

bool FileWindow::ReadOn(std::size_t count) {
  if (count > 0) {
    const std::string_view kept = bytes().substr(count);
    previous_.resize(std::max(previous_.size(), kept.size()));
    std::copy(kept.begin(), kept.end(), previous_.begin());
    std::swap(current_, previous_);
    size_ = kept.size();
    position_ += count;
  }
  if (!moreFollows_) {
    return false;
  }
  // Who keeps much wants much: something that is longer than a block is then
  // looked at again only a few times.
  const std::size_t wanted = std::max(blockSize_, size_);
  current_.resize(std::max(current_.size(), size_ + wanted));
  const std::size_t got = file_.Read(readTo_, std::span(current_).subspan(size_, wanted));
  moreFollows_ = got == wanted;
  readTo_ += got;
  size_ += got;
  return got > 0;
}

std::uint64_t AppendFile(File& from, File& to, std::size_t blockSize) {
  FileWindow window(from, blockSize);
  while (window.ReadOn(window.bytes().size())) {
    to.Write(window.bytes());
  }
  return window.position() + window.bytes().size();
}

}  // namespace menufile
