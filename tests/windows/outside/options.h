#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_OPTIONS_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_OPTIONS_H_

#include <cstdint>
#include <string>

namespace outside {

// The arguments of the tests besides those of googletest.
struct Options {
  // --seed=N: the seed of the random tests; by default a new one for each run.
  std::uint64_t seed = 0;
  int kills = 20;         // --kills=N: how often the editor is killed
  int menus = 20;         // --menus=N: how many random menu files are opened
  std::string smallDisk;  // --small-disk=FOLDER: a folder on a small file system
};

inline Options& TestOptions() {
  static Options options;
  return options;
}

// To be called once, with the arguments that googletest has left. Returns false if one is
// unknown.
bool ReadOptions(int argc, char** argv);

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_OPTIONS_H_
