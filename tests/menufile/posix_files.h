#ifndef CORVALIS_TESTS_MENUFILE_POSIX_FILES_H_
#define CORVALIS_TESTS_MENUFILE_POSIX_FILES_H_

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "menufile/file_system.h"

namespace menufile {

// Files on a real disk, in a new folder that the destructor deletes. All paths are
// relative to that folder.
class PosixFiles final : public FileSystem {
 public:
  PosixFiles();
  ~PosixFiles() override;

  void Put(const std::string& path, std::string_view bytes);
  std::optional<std::string> Get(const std::string& path) const;

  // Ends the process, without any cleanup, at the operation with this 1-based number. A
  // write writes half of its bytes before.
  void EndProcessAt(std::size_t operation) { endAt_ = operation; }
  // Sets BlockSize(), in bytes.
  void SetBlockSize(std::size_t size) { blockSize_ = size; }

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode) override;
  std::unique_ptr<File> OpenIfThere(const std::string& path) override;
  void Remove(const std::string& path, const std::function<bool(File& file)>& mayGo) override;
  std::size_t BlockSize() const override { return blockSize_; }
  std::vector<std::string> FilesThatBeginWith(const std::string& prefix) override;
  std::string Beside(const std::string&, const std::string& name) override { return name; }
  std::uint64_t FreeBytes(const std::string& path) override;
  std::uint64_t Now() override;

 private:
  class OpenFile;

  std::string Full(const std::string& path) const { return folder_ + '/' + path; }
  // Counts an operation. Returns true if the process is to end in it.
  bool IsToEnd() { return ++operations_ == endAt_; }
  void EndIfAsked();

  std::string folder_;
  std::size_t operations_ = 0;
  std::size_t endAt_ = 0;
  std::size_t blockSize_ = FileSystem::BlockSize();
  std::uint64_t lastTime_ = 0;
};

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_POSIX_FILES_H_
