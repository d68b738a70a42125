#ifndef CORVALIS_EDITOR_WINDOWS_FILES_H_
#define CORVALIS_EDITOR_WINDOWS_FILES_H_

#include "menufile/file_system.h"

namespace editor {

// The files of Windows.
class WindowsFileSystem final : public menufile::FileSystem {
 public:
  std::unique_ptr<menufile::File> Open(const std::string& path, menufile::OpenMode mode) override;
  void Remove(const std::string& path) override;
  bool IsSameFile(const std::string& path, const std::string& other) override;
  std::uint64_t LastWritten(const std::string& path) override;
};

}  // namespace editor

#endif  // CORVALIS_EDITOR_WINDOWS_FILES_H_
