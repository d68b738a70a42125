#ifndef CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_
#define CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_

#include <functional>
#include <string>

// How many handles this process holds.
struct HandleCount {
  int gdi;     // fonts, bitmaps, device contexts and the like
  int user;    // icons and windows
  int kernel;  // files, searches in folders and the like

  static HandleCount Now();

  enum Kinds { kAll, kWithoutKernel };
};

// Expects that each handle is given back that the action takes. A few all in all
// may come from elsewhere: from a tool tip that Windows has shown meanwhile, for
// one.
void ExpectNoHandlesLeft(const std::string& name, const std::function<void()>& action,
                         HandleCount::Kinds kinds = HandleCount::kAll);

#endif  // CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_
