#ifndef CORVALIS_TESTS_WINDOWS_FAILING_FILES_H_
#define CORVALIS_TESTS_WINDOWS_FAILING_FILES_H_

#include <memory>
#include <string>

#include "menufile/failure.h"
#include "menufile/file_system.h"

// Files on which writing the one file of a given path can be made to fail; all
// else goes on to other files.
class FailingFiles final : public menufile::FileSystem {
 public:
  FailingFiles(menufile::FileSystem& files, std::string path)
      : files_(files), path_(std::move(path)) {}

  bool failing = false;

  std::unique_ptr<menufile::File> Open(const std::string& path, menufile::OpenMode mode) override {
    std::unique_ptr<menufile::File> file = files_.Open(path, mode);
    if (path != path_) {
      return file;
    }
    return std::make_unique<FailingFile>(*this, std::move(file));
  }
  void Remove(const std::string& path) override { files_.Remove(path); }
  std::uint64_t LastWritten(const std::string& path) override { return files_.LastWritten(path); }

 private:
  class FailingFile final : public menufile::File {
   public:
    FailingFile(const FailingFiles& owner, std::unique_ptr<menufile::File> file)
        : owner_(owner), file_(std::move(file)) {}
    std::string ReadAll() override { return file_->ReadAll(); }
    std::size_t Read(std::uint64_t offset, std::span<char> bytes) override {
      return file_->Read(offset, bytes);
    }
    void Truncate(std::uint64_t size) override { file_->Truncate(size); }
    std::uint64_t SeekToEnd() override { return file_->SeekToEnd(); }
    void Write(std::string_view bytes) override {
      if (owner_.failing) {
        file_->Write(bytes.substr(0, bytes.size() / 2));
        throw menufile::Failure(owner_.path_, "write the file", "There is no room on the disk");
      }
      file_->Write(bytes);
    }
    void Flush() override { file_->Flush(); }

   private:
    const FailingFiles& owner_;
    std::unique_ptr<menufile::File> file_;
  };

  menufile::FileSystem& files_;
  std::string path_;
};

#endif  // CORVALIS_TESTS_WINDOWS_FAILING_FILES_H_
