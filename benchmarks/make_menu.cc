// Writes a menu file of the benchmarks:
//
//   make_menu ENTRIES FILE
#include <exception>
#include <fstream>
#include <iostream>
#include <string>

#include "benchmarks/sample_menu.h"

int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "usage: make_menu ENTRIES FILE\n";
    return 2;
  }
  try {
    const std::string menu = bench::MenuFile(std::stoul(arguments[1]));
    std::ofstream file(arguments[2], std::ios::binary);
    if (!(file << menu).flush()) {
      throw std::ios_base::failure(std::string("cannot write ") + arguments[2]);
    }
  } catch (const std::exception& failure) {
    std::cerr << "make_menu: " << failure.what() << '\n';
    return 1;
  }
}
