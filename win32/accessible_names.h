#ifndef CORVALIS_WIN32_ACCESSIBLE_NAMES_H_
#define CORVALIS_WIN32_ACCESSIBLE_NAMES_H_

#include <windows.h>

#include <vector>

struct IAccPropServices;

namespace win32 {

// Names that screen readers say for controls that have neither a text of their own
// nor a label right before them. Windows keeps such a name beside the window (MSAA
// calls it an annotation). COM has to be initialised on the thread.
class AccessibleNames {
 public:
  AccessibleNames() = default;
  AccessibleNames(const AccessibleNames&) = delete;
  AccessibleNames& operator=(const AccessibleNames&) = delete;
  ~AccessibleNames() { Clear(); }

  // False where no name can be set at all: Wine does not know how.
  bool Set(HWND control, const wchar_t* name);

  // Takes all names back, which Windows wants to be done before the controls go.
  void Clear();

 private:
  IAccPropServices* services_ = nullptr;
  std::vector<HWND> named_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_ACCESSIBLE_NAMES_H_
