#include "tests/windows/handle_count.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

// Wine's GetGuiResources() always returns 0. But in Wine the low half of a handle is the
// row of a table, so this counts the rows that are in use.
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
  for (ULONG_PTR row = 0; row < kTableSize; row += 2) {  // handles are even
    ICONINFO icon{};
    if (GetIconInfo(reinterpret_cast<HICON>(row), &icon)) {
      DeleteObject(icon.hbmMask);
      DeleteObject(icon.hbmColor);
      ++count;
    }
    count += IsMenu(reinterpret_cast<HMENU>(row)) ? 1 : 0;
    DWORD process = 0;
    if (GetWindowThreadProcessId(reinterpret_cast<HWND>(row), &process) != 0) {
      count += process == GetCurrentProcessId() ? 1 : 0;
    }
  }
  return count;
}

// GetProcessHandleCount() of Wine 8 returns 0, too. So this counts in the list of the
// handles of all processes, whose buffer grows until the list fits.
int CountKernelHandles() {
  DWORD count = 0;
  if (GetProcessHandleCount(GetCurrentProcess(), &count) && count != 0) {
    return static_cast<int>(count);
  }
  struct Handle {
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT trace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
  };
  constexpr ULONG kExtendedHandles = 64;
  constexpr LONG kTooSmall = static_cast<LONG>(0xC0000004);
  using Query = LONG WINAPI(ULONG, void*, ULONG, ULONG*);
  const auto query = reinterpret_cast<Query*>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
  std::vector<ULONG_PTR> list(0x10000);
  LONG status = 0;
  ULONG size = 0;
  while ((status = query(kExtendedHandles, list.data(),
                         static_cast<ULONG>(list.size() * sizeof list[0]), &size)) == kTooSmall) {
    list.resize(list.size() * 2);
  }
  EXPECT_EQ(status, 0);
  const auto* first = reinterpret_cast<const Handle*>(&list[2]);  // after the count and a spare
  const ULONG_PTR self = GetCurrentProcessId();
  return static_cast<int>(std::count_if(
      first, first + list[0], [&](const Handle& handle) { return handle.process == self; }));
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
  now.kernel = CountKernelHandles();
  return now;
}

void ExpectNoHandlesLeft(const std::string& name, const std::function<void()>& action,
                         HandleCount::Kinds kinds) {
  constexpr int kRounds = 12;
  constexpr int kFromElsewhere = 5;
  action();  // the first time may make handles that stay
  action();
  const HandleCount before = HandleCount::Now();
  for (int round = 0; round < kRounds; ++round) {
    action();
  }
  const HandleCount after = HandleCount::Now();
  EXPECT_LE(after.gdi - before.gdi, kFromElsewhere) << name;
  EXPECT_LE(after.user - before.user, kFromElsewhere) << name;
  if (kinds == HandleCount::kAll) {
    EXPECT_LE(after.kernel - before.kernel, kFromElsewhere) << name;
  }
}
