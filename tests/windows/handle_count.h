#ifndef CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_
#define CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_

// How many handles this process holds: fonts, bitmaps, device contexts and the
// like; icons and windows.
struct HandleCount {
  int gdi;
  int user;

  static HandleCount Now();
};

#endif  // CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_
