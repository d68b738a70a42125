// Loads any bytes as a menu file. Loading has to end like LoadLiterally(): with a menu,
// the upgrade question or a failure. The converted file has to load like that, too.

#include "tests/fuzz/fuzz_input.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"

using menufile::LoadedMenu;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  menufile::MemoryFiles files;
  files.Put(menufile::kMenuPath, bytes);
  const LoadedMenu loaded = menufile::Load(files);
  Require(loaded == menufile::LoadLiterally(bytes), "loading is as plain reading");
  Require(files.Get(menufile::kMenuPath) == bytes, "loading changes nothing");
  if (loaded.end != LoadedMenu::End::Declined) {
    return 0;
  }
  const std::string picture = menufile::SamplePicture();
  LoadedMenu converted = menufile::Load(files, 1, picture);
  const std::string expected =
      picture + std::string(menufile::kMarker) + "\"USERDEF\"\r\n" + std::string(bytes);
  Require(files.Get(menufile::kMenuPath) == expected, "the old bytes stay after the new head");
  Require(converted.end != LoadedMenu::End::Declined, "a converted file has a marker line");
  converted.shown.erase(converted.shown.begin());  // the question
  Require(converted == menufile::LoadLiterally(expected), "a converted file loads plainly");
  return 0;
}
