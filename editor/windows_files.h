#ifndef CORVALIS_EDITOR_WINDOWS_FILES_H_
#define CORVALIS_EDITOR_WINDOWS_FILES_H_

#include "menufile/file_system.h"

namespace editor {

// The file system of Windows.
class WindowsFileSystem final : public menufile::FileSystem {
 public:
  std::unique_ptr<menufile::File> Open(const std::string& path, menufile::OpenMode mode) override;
  std::unique_ptr<menufile::File> OpenIfThere(const std::string& path) override;
  void Remove(const std::string& path,
              const std::function<bool(menufile::File& file)>& mayGo) override;
  std::vector<std::string> FilesThatBeginWith(const std::string& prefix) override;
  std::string Beside(const std::string& path, const std::string& name) override;
  std::uint64_t FreeBytes(const std::string& path) override;
  std::uint64_t Now() override;

 private:
  std::uint64_t lastTime_ = 0;
};

}  // namespace editor

#endif  // CORVALIS_EDITOR_WINDOWS_FILES_H_
