// Loads the menus on the standard input and prints the results, for a comparison with a
// reader in another language. A menu is its size in decimal, a line end, and its bytes.
// Its result is one line: how the load ended, and the calls of the view with every field
// in hexadecimal.
#include <cstdio>
#include <iostream>

#include "tests/menufile/loaded_menu.h"

namespace {

std::string Hexadecimal(const std::string& bytes) {
  std::string digits;
  char two[3];
  for (const char byte : bytes) {
    std::snprintf(two, sizeof two, "%02x", static_cast<unsigned char>(byte));
    digits += two;
  }
  return digits;
}

const char* NameOf(menufile::LoadedMenu::End end) {
  using End = menufile::LoadedMenu::End;
  return end == End::Menu ? "menu" : end == End::Declined ? "no menu" : "damaged";
}

}  // namespace

int main() {
  std::size_t size = 0;
  while (std::cin >> size && std::cin.get() == '\n') {
    std::string bytes(size, '\0');
    std::cin.read(bytes.data(), static_cast<std::streamsize>(size));
    const menufile::LoadedMenu menu = menufile::LoadBytes(bytes);
    std::cout << NameOf(menu.end);
    for (const menufile::Shown& record : menu.shown) {
      std::cout << '|';
      for (const std::string& field : record) {
        std::cout << Hexadecimal(field) << ' ';
      }
    }
    std::cout << '\n';
  }
  return 0;
}
