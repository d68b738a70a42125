#include "tests/windows/faulty_files.h"

#include <algorithm>
#include <utility>

#include "menufile/failure.h"

namespace {

using menufile::Failure;

class LimitedFile final : public menufile::File {
 public:
  LimitedFile(std::unique_ptr<menufile::File> file, std::string path, std::size_t& bytesLeft)
      : file_(std::move(file)), path_(std::move(path)), bytesLeft_(bytesLeft) {}

  std::string ReadAll() override { return file_->ReadAll(); }
  std::size_t Read(std::uint64_t offset, std::span<char> bytes) override {
    return file_->Read(offset, bytes);
  }
  void Truncate(std::uint64_t size) override { file_->Truncate(size); }
  std::uint64_t SeekToEnd() override { return file_->SeekToEnd(); }
  void Write(std::string_view bytes) override {
    const std::size_t count = std::min(bytes.size(), bytesLeft_);
    file_->Write(bytes.substr(0, count));
    bytesLeft_ -= count;
    if (count < bytes.size()) {
      throw Failure(path_, "write the file", "The disk is full");
    }
  }
  void Flush() override { file_->Flush(); }

 private:
  std::unique_ptr<menufile::File> file_;
  std::string path_;
  std::size_t& bytesLeft_;
};

}  // namespace

std::unique_ptr<menufile::File> FaultyFiles::Open(const std::string& path,
                                                  menufile::OpenMode mode) {
  const std::string name = path.substr(path.find_last_of('\\') + 1);
  if (mode != menufile::OpenMode::Read && unwritable.count(name) > 0) {
    throw Failure(path, "write the file", "Access is denied");
  }
  std::unique_ptr<menufile::File> file = files_.Open(path, mode);
  if (name == limitedFile && mode != menufile::OpenMode::Read) {
    return std::make_unique<LimitedFile>(std::move(file), path, bytesLeft);
  }
  return file;
}
