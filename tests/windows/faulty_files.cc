#include "tests/windows/faulty_files.h"

#include <algorithm>
#include <utility>

#include "menufile/failure.h"

namespace {

using menufile::Failure;
using menufile::File;

std::string NameOf(const std::string& path) { return path.substr(path.find_last_of('\\') + 1); }

}  // namespace

class FaultyFiles::FaultyFile final : public File {
 public:
  FaultyFile(FaultyFiles& files, std::string path, std::unique_ptr<File> file)
      : files_(files), path_(std::move(path)), file_(std::move(file)) {}

  std::string FullName() override { return file_->FullName(); }
  std::uint64_t Size() override { return file_->Size(); }
  void Seek(std::uint64_t offset) override { file_->Seek(offset); }
  std::string ReadAll() override {
    files_.Count(path_);
    return file_->ReadAll();
  }
  std::size_t Read(std::uint64_t offset, std::span<char> bytes) override {
    files_.Count(path_);
    return file_->Read(offset, bytes);
  }
  void Truncate(std::uint64_t size) override {
    files_.Count(path_);
    file_->Truncate(size);
  }
  void Write(std::string_view bytes) override {
    files_.Count(path_);
    if (NameOf(path_) != files_.limitedFile) {
      file_->Write(bytes);
      return;
    }
    const std::size_t count = std::min(bytes.size(), files_.bytesLeft);
    file_->Write(bytes.substr(0, count));
    files_.bytesLeft -= count;
    if (count < bytes.size()) {
      throw Failure(path_, "write the file", "The disk is full");
    }
  }
  void Flush() override {
    files_.Count(path_);
    file_->Flush();
  }

 private:
  FaultyFiles& files_;
  std::string path_;
  std::unique_ptr<File> file_;
};

void FaultyFiles::Count(const std::string& path) {
  if (operationsLeft && (*operationsLeft)-- <= 0) {
    throw Failure(path, "use the file", "It was made to fail");
  }
}

std::unique_ptr<File> FaultyFiles::Open(const std::string& path, menufile::OpenMode mode) {
  Count(path);
  if (mode != menufile::OpenMode::Read && unwritable.count(NameOf(path)) > 0) {
    throw Failure(path, "write the file", "Access is denied");
  }
  return std::make_unique<FaultyFile>(*this, path, files_.Open(path, mode));
}

std::unique_ptr<File> FaultyFiles::OpenIfThere(const std::string& path) {
  Count(path);
  std::unique_ptr<File> file = files_.OpenIfThere(path);
  return file == nullptr ? nullptr : std::make_unique<FaultyFile>(*this, path, std::move(file));
}

void FaultyFiles::Remove(const std::string& path, const std::function<bool(File& file)>& mayGo) {
  Count(path);
  files_.Remove(path, mayGo);
}

std::vector<std::string> FaultyFiles::FilesThatBeginWith(const std::string& prefix) {
  Count(prefix);
  return files_.FilesThatBeginWith(prefix);
}
