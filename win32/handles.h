#ifndef CORVALIS_WIN32_HANDLES_H_
#define CORVALIS_WIN32_HANDLES_H_

#include <windows.h>

#include <utility>

namespace win32 {

// Owns one handle and gives it back to Windows when it goes. A raw handle
// anywhere else is borrowed.
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

  // Hands the handle over; the caller owns it from here on.
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
// Of a file, among others: INVALID_HANDLE_VALUE must not get here.
using UniqueKernelHandle = UniqueHandle<HANDLE, ReleaseKernelObject>;
// Of FindFirstFile(): INVALID_HANDLE_VALUE must not get here.
using UniqueSearch = UniqueHandle<HANDLE, ReleaseSearch>;
using UniqueMemoryDc = UniqueHandle<HDC, ReleaseDc>;

// The window's own device context, given back on destruction.
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

// Selects an object into a device context and the former one back again.
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
