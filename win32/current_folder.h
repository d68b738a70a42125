#ifndef CORVALIS_WIN32_CURRENT_FOLDER_H_
#define CORVALIS_WIN32_CURRENT_FOLDER_H_

#include <string>

namespace win32 {

// The current folder of the process.
std::wstring CurrentFolder();

// True if a file can be made in `folder` (empty: the current one). It is tried
// out with a file that is gone again when this returns: neither attributes nor
// access rights tell for sure.
bool TakesNewFile(const std::wstring& folder);

// The folder of the file or folder at `path`, with its trailing backslash; empty
// where the path names none.
std::wstring FolderOf(const std::wstring& path);

// Goes back to the folder that was the current one when this was made.
class CurrentFolderKept {
 public:
  CurrentFolderKept() : folder_(CurrentFolder()) {}
  CurrentFolderKept(const CurrentFolderKept&) = delete;
  CurrentFolderKept& operator=(const CurrentFolderKept&) = delete;
  ~CurrentFolderKept();

 private:
  std::wstring folder_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_CURRENT_FOLDER_H_
