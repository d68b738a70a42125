#include <windows.h>

#include <gtest/gtest.h>
#include <ole2.h>

#include <cstdio>

#include "tests/windows/outside/options.h"

int main(int argc, char** argv) {
  OleInitialize(nullptr);
  ::testing::InitGoogleTest(&argc, argv);
  if (!outside::ReadOptions(argc, argv)) {
    std::puts(
        "The arguments, besides googletest's: --seed=N --kills=N --menus=N --small-disk=FOLDER");
    return 2;
  }
  const int result = RUN_ALL_TESTS();
  OleUninitialize();
  return result;
}
