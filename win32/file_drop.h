#ifndef CORVALIS_WIN32_FILE_DROP_H_
#define CORVALIS_WIN32_FILE_DROP_H_

#include <windows.h>

#include <string>
#include <vector>

namespace win32 {

struct DroppedFiles {
  // The bytes of the full paths (PathToBytes()), in the order of the data.
  std::vector<std::string> paths;
  // Files whose paths have none.
  std::vector<std::wstring> refused;
};

// Lets a control accept files that are dragged onto it from any program. It
// takes nothing else, and nothing while its window is disabled; the pointer
// tells so. Needs OleInitialize().
class FileDrop {
 public:
  FileDrop() = default;
  FileDrop(const FileDrop&) = delete;
  FileDrop& operator=(const FileDrop&) = delete;
  ~FileDrop() { Detach(); }

  // The control's form is told of a drop by kFilesDropped, once the source has gone
  // on: it waits for the end of the drop, and nobody could use it meanwhile.
  void Attach(HWND control);
  // Due before the control is destroyed.
  void Detach();

  // Hands over what was dropped since the last call.
  DroppedFiles Take();

 private:
  class Target;

  HWND control_ = nullptr;
  std::vector<std::wstring> paths_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_FILE_DROP_H_
