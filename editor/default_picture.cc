#include "editor/default_picture.h"

#include <windows.h>

#include "resources/resource.h"

namespace editor {
namespace {

// An icon file begins with a header of 6 bytes and an entry of 16 bytes per image.
constexpr std::size_t kImageOffset = 6 + 16;
constexpr DWORD kIconVersion = 0x00030000;

}  // namespace

std::string_view DefaultPictureFile() {
  const HMODULE module = GetModuleHandleW(nullptr);
  const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(IDR_DEFAULT_MENU_ICON),
                                       MAKEINTRESOURCEW(10));  // RCDATA
  const HGLOBAL data = LoadResource(module, resource);
  return {static_cast<const char*>(LockResource(data)), SizeofResource(module, resource)};
}

win32::UniqueIcon DefaultIcon(SIZE size) {
  const std::string_view image = DefaultPictureFile().substr(kImageOffset);
  // Windows only reads the bytes, although the parameter is not const.
  BYTE* const bytes = reinterpret_cast<BYTE*>(const_cast<char*>(image.data()));
  return win32::UniqueIcon(CreateIconFromResourceEx(bytes, static_cast<DWORD>(image.size()), TRUE,
                                                    kIconVersion, size.cx, size.cy,
                                                    LR_DEFAULTCOLOR));
}

}  // namespace editor
