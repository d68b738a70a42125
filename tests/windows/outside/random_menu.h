#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_RANDOM_MENU_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_RANDOM_MENU_H_

#include <random>
#include <string>

namespace outside {

// Something that may stand where a menu file is expected.
struct RandomMenu {
  std::string kind;
  std::string bytes;
};

// Valid menus and previous versions, odd ones, and ones that were damaged; all
// of it depends on `random` alone. Their entries' icons come from Windows' own
// files, and from files in `folder` that WriteIconFiles() made there.
RandomMenu MakeRandomMenu(std::mt19937_64& random, const std::string& folder);

// Icon files and libraries, whole and damaged.
void WriteIconFiles(std::mt19937_64& random, const std::string& folder);

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_RANDOM_MENU_H_
