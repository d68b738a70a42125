#ifndef CORVALIS_BENCHMARKS_SAMPLE_MENU_H_
#define CORVALIS_BENCHMARKS_SAMPLE_MENU_H_

#include <cstddef>
#include <string>

// The menus of the benchmarks. Captions, paths and arguments have different lengths, and
// every eighth entry is a separator.
namespace bench {

// The picture of a converted menu.
std::string DefaultPicture();

// A menu file as the editor writes it, with that picture.
std::string MenuFile(std::size_t entries);

// The same entries as a key file, with a group for each entry and a key for each field.
std::string KeyFile(std::size_t entries);

}  // namespace bench

#endif  // CORVALIS_BENCHMARKS_SAMPLE_MENU_H_
