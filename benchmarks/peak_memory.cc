// Loads or changes a menu, and prints its size and the peak of the memory in use
// meanwhile, both in bytes:
//
//   peak_memory ENTRIES nothing|load|move_up|delete|save_appearance
#include <malloc.h>

#include <cstdint>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>

#include "benchmarks/counting_view.h"
#include "benchmarks/sample_menu.h"
#include "menufile/loader.h"
#include "menufile/menu_file.h"
#include "tests/menufile/posix_files.h"
#include "tests/menufile/user_change.h"

namespace {

using menufile::UserChange;

constexpr const char* kMenu = "a.menu";

// Starts to measure the peak.
void ForgetPeak() {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << 5;
}

std::uint64_t Peak() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word == "VmHWM:") {
      std::uint64_t kibibytes = 0;
      status >> kibibytes;
      return kibibytes * 1024;
    }
  }
  throw std::runtime_error("the system does not tell the peak");
}

void Load(menufile::FileSystem& files) {
  bench::CountingView view;
  menufile::MenuFile menu(files, kMenu);
  menufile::LoadMenuFile(menu, "", view);
}

void Change(menufile::FileSystem& files, UserChange::Kind kind, std::size_t row) {
  UserChange change = menufile::SampleChange(kind, row);
  change.appearance.picture = bench::DefaultPicture();
  if (Make(files, kMenu, change) != menufile::ChangeResult::Made) {
    throw std::runtime_error("the menu was not changed");
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "usage: peak_memory ENTRIES nothing|load|move_up|delete|save_appearance\n";
    return 2;
  }
  const std::size_t entries = std::stoul(arguments[1]);
  const std::string what = arguments[2];
  const std::map<std::string, UserChange::Kind> kChanges = {
      {"move_up", UserChange::Kind::MoveUp},
      {"delete", UserChange::Kind::Delete},
      {"save_appearance", UserChange::Kind::SaveAppearance},
  };
  try {
    menufile::PosixFiles files;
    std::size_t size = 0;
    {
      const std::string menu = bench::MenuFile(entries);
      size = menu.size();
      files.Put(kMenu, menu);
    }
    ForgetPeak();
    if (what == "load") {
      Load(files);
    } else if (what != "nothing") {
      Change(files, kChanges.at(what), entries / 2);
    }
    std::cout << size << ' ' << Peak() << '\n';
  } catch (const std::exception& failure) {
    std::cerr << "peak_memory: " << failure.what() << '\n';
    return 1;
  }
}
