#ifndef CORVALIS_TESTS_WINDOWS_FAULTY_FILES_H_
#define CORVALIS_TESTS_WINDOWS_FAULTY_FILES_H_

#include <limits>
#include <memory>
#include <set>
#include <string>

#include "menufile/file_system.h"

// Files of which some fail. Names are without their folders.
class FaultyFiles final : public menufile::FileSystem {
 public:
  explicit FaultyFiles(menufile::FileSystem& files) : files_(files) {}

  // Opening it for writing fails.
  std::set<std::string> unwritable;
  // Once so many bytes more were written to this file, the disk is full for it.
  std::string limitedFile;
  std::size_t bytesLeft = std::numeric_limits<std::size_t>::max();

  std::unique_ptr<menufile::File> Open(const std::string& path, menufile::OpenMode mode) override;
  void Remove(const std::string& path) override { files_.Remove(path); }
  std::uint64_t LastWritten(const std::string& path) override { return files_.LastWritten(path); }

 private:
  menufile::FileSystem& files_;
};

#endif  // CORVALIS_TESTS_WINDOWS_FAULTY_FILES_H_
