#ifndef CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_
#define CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_

#include <functional>
#include <string>

// The number of handles that this process has.
struct HandleCount {
  int gdi;     // fonts, bitmaps, device contexts and the like
  int user;    // icons, menus and windows
  int kernel;  // files, searches in folders and the like

  static HandleCount Now();

  enum Kinds { kAll, kWithoutKernel };
};

// Runs the action many times and expects that it leaves no handles. A few in all are
// allowed, since a tool tip of Windows, for example, may take some meanwhile.
void ExpectNoHandlesLeft(const std::string& name, const std::function<void()>& action,
                         HandleCount::Kinds kinds = HandleCount::kAll);

#endif  // CORVALIS_TESTS_WINDOWS_HANDLE_COUNT_H_
