#ifndef CORVALIS_WIN32_ACCESSIBLE_NAMES_H_
#define CORVALIS_WIN32_ACCESSIBLE_NAMES_H_

#include <windows.h>

#include <vector>

struct IAccPropServices;

namespace win32 {

// Gives screen readers names for controls that have neither a text of their own nor
// a label right before them. (MSAA calls such a name an annotation.) COM has to be
// initialised on the thread.
class AccessibleNames {
 public:
  AccessibleNames() = default;
  AccessibleNames(const AccessibleNames&) = delete;
  AccessibleNames& operator=(const AccessibleNames&) = delete;
  ~AccessibleNames() { Clear(); }

  // Returns false if names cannot be set at all, as under Wine.
  bool Set(HWND control, const wchar_t* name);

  // Removes all names. Windows requires this before the controls are destroyed.
  void Clear();

 private:
  IAccPropServices* services_ = nullptr;
  std::vector<HWND> named_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_ACCESSIBLE_NAMES_H_
