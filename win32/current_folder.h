#ifndef CORVALIS_WIN32_CURRENT_FOLDER_H_
#define CORVALIS_WIN32_CURRENT_FOLDER_H_

#include <string>

namespace win32 {

// The current folder of the process.
std::wstring CurrentFolder();

// True if a file can be made in `folder`; if that is empty, in the current folder.
// This makes a file and deletes it again, because neither attributes nor access
// rights tell for sure.
bool TakesNewFile(const std::wstring& folder);

// The folder part of `path`, with its trailing backslash; empty if there is none.
std::wstring FolderOf(const std::wstring& path);

// The destructor makes the folder current again that was so at construction.
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
