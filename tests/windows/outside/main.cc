#include <windows.h>

#include <gtest/gtest.h>
#include <ole2.h>

int main(int argc, char** argv) {
  OleInitialize(nullptr);
  ::testing::InitGoogleTest(&argc, argv);
  const int result = RUN_ALL_TESTS();
  OleUninitialize();
  return result;
}
