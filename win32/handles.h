#ifndef CORVALIS_WIN32_HANDLES_H_
#define CORVALIS_WIN32_HANDLES_H_

#include <windows.h>

#include <utility>

namespace win32 {

// Owns one handle and releases it on destruction. A raw handle anywhere else is
// borrowed.
template <typename Handle, typename Release>
class UniqueHandle {
 public:
  UniqueHandle() = default;
  explicit UniqueHandle(Handle handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    reset(other.release());
    return *this;
  }
  ~UniqueHandle() { reset(); }

  Handle get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }

  // Returns the handle; the caller owns it from here on.
  Handle release() { return std::exchange(handle_, nullptr); }

  void reset(Handle handle = nullptr) {
    const Handle old = std::exchange(handle_, handle);
    if (old != nullptr && old != handle) {
      Release{}(old);
    }
  }

 private:
  Handle handle_ = nullptr;
};

struct ReleaseIcon {
  void operator()(HICON icon) const { DestroyIcon(icon); }
};
struct ReleaseObject {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct ReleaseDc {
  void operator()(HDC dc) const { DeleteDC(dc); }
};
struct ReleaseSearch {
  void operator()(HANDLE search) const { FindClose(search); }
};
struct ReleaseKernelObject {
  void operator()(HANDLE object) const { CloseHandle(object); }
};

using UniqueIcon = UniqueHandle<HICON, ReleaseIcon>;
using UniqueFont = UniqueHandle<HFONT, ReleaseObject>;
using UniqueBitmap = UniqueHandle<HBITMAP, ReleaseObject>;
using UniqueBrush = UniqueHandle<HBRUSH, ReleaseObject>;
// The handle of a file, for example. It must not be INVALID_HANDLE_VALUE.
using UniqueKernelHandle = UniqueHandle<HANDLE, ReleaseKernelObject>;
// A handle of FindFirstFile(). It must not be INVALID_HANDLE_VALUE.
using UniqueSearch = UniqueHandle<HANDLE, ReleaseSearch>;
using UniqueMemoryDc = UniqueHandle<HDC, ReleaseDc>;

// The device context of a window, or of the screen for nullptr.
class WindowDc {
 public:
  explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  ~WindowDc() { ReleaseDC(window_, dc_); }
  HDC get() const { return dc_; }

 private:
  HWND window_;
  HDC dc_;
};

// Selects an object into a device context. The destructor selects the former one.
class SelectedObject {
 public:
  SelectedObject(HDC dc, HGDIOBJ object) : dc_(dc), former_(SelectObject(dc, object)) {}
  SelectedObject(const SelectedObject&) = delete;
  SelectedObject& operator=(const SelectedObject&) = delete;
  ~SelectedObject() { SelectObject(dc_, former_); }

 private:
  HDC dc_;
  HGDIOBJ former_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_HANDLES_H_
