#include "tests/windows/outside/options.h"

#include <chrono>
#include <cstdlib>
#include <string_view>

namespace outside {
bool ReadOptions(int argc, char** argv) {
  Options& options = TestOptions();
  options.seed =
      static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count()) %
      1'000'000'000;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    const std::size_t end = argument.find('=');
    const std::string_view name = argument.substr(0, end);
    if (end == std::string_view::npos) {
      return false;
    }
    const char* const value = argv[i] + end + 1;
    if (name == "--seed") {
      options.seed = std::strtoull(value, nullptr, 10);
    } else if (name == "--kills") {
      options.kills = std::atoi(value);
    } else if (name == "--menus") {
      options.menus = std::atoi(value);
    } else if (name == "--small-disk") {
      options.smallDisk = value;
    } else {
      return false;
    }
  }
  return options.kills > 0 && options.menus > 0;
}

}  // namespace outside
