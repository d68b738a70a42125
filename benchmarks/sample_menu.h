#ifndef CORVALIS_BENCHMARKS_SAMPLE_MENU_H_
#define CORVALIS_BENCHMARKS_SAMPLE_MENU_H_

#include <cstddef>
#include <string>

// The menus that are measured: entries as people have them, with captions,
// paths and arguments of different lengths, every eighth a separator.
namespace bench {

// The picture of a menu that was converted.
std::string DefaultPicture();

// The menu file as the editor writes it, with that picture.
std::string MenuFile(std::size_t entries);

// The same entries as a key file: a group for each, a key for each field.
std::string KeyFile(std::size_t entries);

}  // namespace bench

#endif  // CORVALIS_BENCHMARKS_SAMPLE_MENU_H_
