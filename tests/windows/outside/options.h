#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_OPTIONS_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_OPTIONS_H_

#include <cstdint>
#include <string>

namespace outside {

// What the command line of the tests says besides googletest's own arguments.
struct Options {
  // --seed=N: what the random tests draw from; another one each time without.
  std::uint64_t seed = 0;
  int kills = 20;         // --kills=N: how often the editor is killed
  int menus = 20;         // --menus=N: how many random menu files are opened
  std::string smallDisk;  // --small-disk=FOLDER: on a small file system of its own
};

const Options& TestOptions();

// Called once, with what googletest has left of the arguments; false when
// there is one that is none of the above.
bool ReadOptions(int argc, char** argv);

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_OPTIONS_H_
