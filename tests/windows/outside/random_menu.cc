#include "tests/windows/outside/random_menu.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>

#include "tests/windows/icon_files.h"
#include "tests/windows/outside/known_menu.h"

namespace outside {
namespace {

using namespace testing_menus;

constexpr int kIconFiles = 6;

class Generator {
 public:
  Generator(std::mt19937_64& random, const std::string& folder)
      : random_(random), folder_(folder) {}

  RandomMenu Make() {
    using Kind = RandomMenu (Generator::*)();
    constexpr Kind kKinds[] = {&Generator::List,          &Generator::Directory,
                               &Generator::Previous,      &Generator::Mutated,
                               &Generator::Cut,           &Generator::Bytes,
                               &Generator::MarkerParts,   &Generator::HugeFields,
                               &Generator::BrokenRecords, &Generator::ManyEntries};
    return (this->*kKinds[Below(std::size(kKinds))])();
  }

  std::size_t Below(std::size_t count) { return random_() % count; }
  bool Chance(std::size_t oneIn) { return Below(oneIn) == 0; }

  std::string RandomBytes(std::size_t most) {
    std::string bytes(Below(most), '\0');
    for (char& c : bytes) {
      c = static_cast<char>(random_());
    }
    return bytes;
  }

  // Flips, inserts, removes and repeats some bytes.
  std::string Damaged(std::string bytes) {
    for (std::size_t i = 1 + Below(20); i > 0 && !bytes.empty(); --i) {
      const std::size_t at = Below(bytes.size());
      switch (Below(4)) {
        case 0:
          bytes[at] = Any("\"\r\n,<>\x1A\0 0-\xFF");
          break;
        case 1:
          bytes.insert(at, 1, Any("\"\r\n,<>\x1A\0 0-\xFF"));
          break;
        case 2:
          bytes.erase(at, 1 + Below(10));
          break;
        default:
          bytes.insert(at, bytes.substr(at, 1 + Below(60)));
      }
    }
    return bytes;
  }

 private:
  template <std::size_t N>
  char Any(const char (&characters)[N]) {
    return characters[Below(N - 1)];
  }
  template <std::size_t N>
  std::string AnyOf(const char* const (&texts)[N]) {
    return texts[Below(N)];
  }

  // Any byte but a double quote, which no field can hold.
  std::string Text() {
    if (Chance(4)) {
      return "";
    }
    std::string text = RandomBytes(Chance(20) ? 5000 : 40);
    std::replace(text.begin(), text.end(), '"', '\'');
    return text;
  }

  std::string Number() {
    return AnyOf({"0", "1", "-1", "7", "", "99999999999999999999", "-2147483649", "1e3", "x", "4.5",
                  "65536", "0x10"});
  }

  std::string File() {
    switch (Below(4)) {
      case 0:
        return folder_ + "\\icons" + std::to_string(Below(kIconFiles));
      case 1:
        return AnyOf({"C:\\windows\\system32\\shell32.dll", "C:\\windows\\notepad.exe",
                      "C:\\windows", "C:\\windows\\win.ini", "news:x", "C:\\nothing\\here.exe",
                      "\\", "..", "C:", "*", "?:\\", "nul", "con", "\\\\.\\C:"});
      case 2:
        return Text();
      default:
        return "";
    }
  }

  std::string Appearance() {
    const std::string size =
        AnyOf({"8.25", "10", "0", "-12", "72.7519", "1e308", "1e999", "", "nan", "1638.35"});
    const std::string name = Chance(3) ? Text() : "Tahoma";
    return (Chance(2) ? "1" : Number()) + ",\"" + name + "\"," + size + "," +
           AnyOf({"0", "-1", "1"}) + "," + AnyOf({"0", "-1", ""}) + "\r\n";
  }

  KnownMenu ListMenu(std::size_t most = 30) {
    KnownMenu menu;
    menu.picture = RandomBytes(3000);
    menu.appearance = Appearance();
    for (std::size_t i = Below(most); i > 0; --i) {
      menu.entries.push_back(Chance(5) ? testing_menus::Separator()
                                       : Entry{Text(), File(), Text(), Text(), File(), Number()});
    }
    return menu;
  }

  KnownMenu DirectoryMenu() {
    KnownMenu menu;
    menu.isDirectory = true;
    menu.appearance = Appearance();
    static constexpr const char* kFolders[] = {"C:\\",
                                               "C:",
                                               "",
                                               "\\",
                                               "Q:\\",
                                               "Z:\\",
                                               "C:\\windows\\system32\\",
                                               "C:\\nothing\\here\\",
                                               "..\\",
                                               ".",
                                               "/",
                                               "\\\\",
                                               "\\\\nothing\\here\\",
                                               "\\\\?\\C:\\",
                                               "\\\\.\\C:\\",
                                               "C:\\windows\\..\\windows",
                                               "C:\\*",
                                               "AB:\\",
                                               "con",
                                               "c:windows",
                                               "C:\\windows\\win.ini",
                                               ":",
                                               "::",
                                               "C:\\\\\\windows"};
    const std::string folder = Chance(3) ? Text() : AnyOf(kFolders);
    menu.directory = "\"" + (Chance(20) ? folder + std::string(40000, 'a') : folder) + "\",\"" +
                     Text() + "\"," + Number() + "," + Number() + "," + Number() + "\r\n";
    return menu;
  }

  KnownMenu AnyMenu() { return Chance(3) ? DirectoryMenu() : ListMenu(); }

  RandomMenu List() { return {"list", ListMenu().Bytes()}; }
  RandomMenu Directory() { return {"directory", DirectoryMenu().Bytes()}; }
  RandomMenu Previous() {
    const std::string bytes = ListMenu().PreviousVersionBytes();
    return {"previous version", Chance(2) ? bytes : Damaged(bytes)};
  }
  RandomMenu Mutated() { return {"mutated", Damaged(AnyMenu().Bytes())}; }
  RandomMenu Cut() {
    const std::string bytes = AnyMenu().Bytes();
    return {"cut", bytes.substr(0, Below(bytes.size() + 1))};
  }
  RandomMenu Bytes() { return {"bytes", RandomBytes(Chance(4) ? 3 : 5000)}; }

  RandomMenu MarkerParts() {
    KnownMenu menu = AnyMenu();
    for (std::size_t i = 1 + Below(5); i > 0; --i) {
      menu.picture.insert(Below(menu.picture.size() + 1),
                          AnyOf({"<START ZOL>", "\r<START ZOL>", "\r\n<START ZOL>",
                                 "\r\n<START ZOL> \r\n", "\n<START ZOL>\r\n", "<", "\r\n<START",
                                 "\r\n<start zol>\r\n", "\r<START ZOL>\r", "\r\n<START ZOL>\r\n"}));
    }
    return {"marker parts", menu.Bytes()};
  }

  RandomMenu HugeFields() {
    KnownMenu menu = ListMenu();
    if (menu.entries.empty()) {
      menu.entries.push_back({});
    }
    Entry& entry = menu.entries[Below(menu.entries.size())];
    std::string* const fields[] = {&entry.caption, &entry.target,   &entry.arguments,
                                   &entry.startIn, &entry.iconFile, &entry.iconIndex};
    for (std::size_t i = 1 + Below(3); i > 0; --i) {
      fields[Below(std::size(fields))]->assign(1 + Below(1 << 20), Any("1x\\-,"));
    }
    if (Chance(4)) {
      menu.appearance = "0,\"" + std::string(1 + Below(1 << 20), 'f') + "\",8.25,0,0\r\n";
    }
    return {"huge fields", menu.Bytes()};
  }

  RandomMenu BrokenRecords() {
    KnownMenu menu = AnyMenu();
    std::string bytes = menu.Bytes();
    for (std::size_t i = 1 + Below(6); i > 0; --i) {
      bytes +=
          AnyOf({"\r\n", "\"", "\"a\",\"b\"\r\n", "a,b,c,d,e,f\r\n", ",,,,,\r\n", "\"\"\"\"\r\n",
                 "\"a\"b\"c\",\"\"\n", "\"a\",\"b\",\"c\",\"d\",\"e\",1,2,3\r\n", "   \r\n", "\x1A",
                 "\"never closed\r\n", "\n\n\n", "\r", "\"a\" \"b\",,\r\n"});
    }
    return {"broken records", bytes};
  }

  RandomMenu ManyEntries() {
    KnownMenu menu = ListMenu();
    for (std::size_t i = Below(1500); i > 0; --i) {
      menu.entries.push_back({Text(), "news:x", "", "", "", "0"});
    }
    return {"many entries", menu.Bytes()};
  }

  std::mt19937_64& random_;
  std::string folder_;
};

}  // namespace

RandomMenu MakeRandomMenu(std::mt19937_64& random, const std::string& folder) {
  return Generator(random, folder).Make();
}

void WriteIconFiles(std::mt19937_64& random, const std::string& folder) {
  Generator generator(random, folder);
  for (int i = 0; i < kIconFiles; ++i) {
    const auto colours = testing_icons::Colours(3);
    std::string bytes =
        i % 2 == 0 ? testing_icons::IconFile(colours[0]) : testing_icons::Library(colours);
    if (i > 1) {
      bytes = generator.Damaged(bytes);
    }
    std::ofstream(folder + "\\icons" + std::to_string(i), std::ios::binary) << bytes;
  }
}

}  // namespace outside
