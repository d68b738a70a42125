#ifndef CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_
#define CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_

// How many handles this process holds: fonts, bitmaps, device contexts and the
// like; icons and windows.
struct HandleCount {
  int gdi;
  int user;

  static HandleCount Now();
};

// Expects that so many rounds of work since then have left nothing behind. One
// handle each would be too many; a few all in all may come from elsewhere, from a
// tool tip that Windows has shown meanwhile, for one.
void ExpectNothingLeft(const HandleCount& before, int rounds);

#endif  // CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_
