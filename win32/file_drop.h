#ifndef CORVALIS_WIN32_FILE_DROP_H_
#define CORVALIS_WIN32_FILE_DROP_H_

#include <windows.h>

#include <string>
#include <vector>

namespace win32 {

struct DroppedFiles {
  // The full paths in the ANSI code page (PathToBytes()), in the order of the drop.
  std::vector<std::string> paths;
  // The full paths that the code page cannot hold.
  std::vector<std::wstring> refused;
};

// Lets a control accept files that are dropped on it from any program. It refuses
// everything else, and everything while its window is disabled; the mouse pointer
// shows that. Needs OleInitialize().
class FileDrop {
 public:
  FileDrop() = default;
  FileDrop(const FileDrop&) = delete;
  FileDrop& operator=(const FileDrop&) = delete;
  ~FileDrop() { Detach(); }

  // A drop is reported to the control's form as kFilesDropped, after the drop has
  // ended: until then the program that the files come from is blocked.
  void Attach(HWND control);

  // To be called before the control is destroyed.
  void Detach();

  // Returns the files that were dropped since the last call.
  DroppedFiles Take();

 private:
  class Target;

  HWND control_ = nullptr;
  std::vector<std::wstring> paths_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_FILE_DROP_H_
