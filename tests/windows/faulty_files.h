#ifndef CORVALIS_TESTS_WINDOWS_FAULTY_FILES_H_
#define CORVALIS_TESTS_WINDOWS_FAULTY_FILES_H_

#include <cstddef>
#include <limits>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "menufile/file_system.h"

// A file system in which some operations fail. It passes all others to `files`. The names
// of files are without folders.
class FaultyFiles final : public menufile::FileSystem {
 public:
  explicit FaultyFiles(menufile::FileSystem& files) : files_(files) {}

  std::set<std::string> unwritable;
  // The disk is full for this file after `bytesLeft` bytes more.
  std::string limitedFile;
  std::size_t bytesLeft = std::numeric_limits<std::size_t>::max();
  void FillDiskOf(const std::string& file, std::size_t bytes) {
    limitedFile = file;
    bytesLeft = bytes;
  }
  // After that many operations more, every one fails.
  std::optional<int> operationsLeft;

  std::unique_ptr<menufile::File> Open(const std::string& path, menufile::OpenMode mode) override;
  std::unique_ptr<menufile::File> OpenIfThere(const std::string& path) override;
  void Remove(const std::string& path,
              const std::function<bool(menufile::File& file)>& mayGo) override;
  std::vector<std::string> FilesThatBeginWith(const std::string& prefix) override;
  std::string Beside(const std::string& path, const std::string& name) override {
    return files_.Beside(path, name);
  }
  std::uint64_t FreeBytes(const std::string& path) override { return files_.FreeBytes(path); }
  std::uint64_t Now() override { return files_.Now(); }

 private:
  class FaultyFile;

  void Count(const std::string& path);

  menufile::FileSystem& files_;
};

#endif  // CORVALIS_TESTS_WINDOWS_FAULTY_FILES_H_
