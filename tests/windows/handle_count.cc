#include "tests/windows/handle_count.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

// Wine's GetGuiResources() answers 0 always, but Wine, as Windows used to, takes
// the low half of a handle for the whole: it is the number of a row of a table.
constexpr ULONG_PTR kTableSize = 0x10000;

int CountGdiTable() {
  int count = 0;
  for (ULONG_PTR row = 1; row < kTableSize; ++row) {
    count += GetObjectType(reinterpret_cast<HGDIOBJ>(row)) != 0 ? 1 : 0;
  }
  return count;
}

int CountUserTable() {
  int count = 0;
  for (ULONG_PTR row = 0; row < kTableSize; row += 2) {  // there are no odd ones
    ICONINFO icon{};
    if (GetIconInfo(reinterpret_cast<HICON>(row), &icon)) {
      DeleteObject(icon.hbmMask);
      DeleteObject(icon.hbmColor);
      ++count;
    }
    DWORD process = 0;
    if (GetWindowThreadProcessId(reinterpret_cast<HWND>(row), &process) != 0) {
      count += process == GetCurrentProcessId() ? 1 : 0;
    }
  }
  return count;
}

}  // namespace

HandleCount HandleCount::Now() {
  GdiFlush();
  HandleCount now{};
  now.gdi = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
  now.user = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
  if (now.gdi == 0) {
    now.gdi = CountGdiTable();
    now.user = CountUserTable();
  }
  return now;
}

void ExpectNothingLeft(const HandleCount& before, int rounds) {
  const HandleCount after = HandleCount::Now();
  EXPECT_LT(after.gdi - before.gdi, rounds / 2);
  EXPECT_LT(after.user - before.user, rounds / 2);
}
