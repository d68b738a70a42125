#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_RANDOM_MENU_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_RANDOM_MENU_H_

#include <random>
#include <string>

namespace outside {

// A file to open, which need not be a menu.
struct RandomMenu {
  std::string kind;
  std::string bytes;
};

// Makes a valid menu, a previous version, an odd file or a damaged one. It depends on
// `random` alone. The icons of its entries are in files of Windows, and in the files that
// WriteIconFiles() has written into `folder`.
RandomMenu MakeRandomMenu(std::mt19937_64& random, const std::string& folder);

// Writes icon files and libraries, valid and damaged.
void WriteIconFiles(std::mt19937_64& random, const std::string& folder);

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_RANDOM_MENU_H_
