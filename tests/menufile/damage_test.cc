// Loads menu files with one wrong byte, or without their end. Loading has to end like
// LoadLiterally(): with a menu, the upgrade question or a failure.
#include <gtest/gtest.h>

#include <iostream>
#include <utility>

#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"

namespace menufile {
namespace {

using End = LoadedMenu::End;

std::vector<std::string> Samples() {
  return {UserMenu(6), UserMenu(0), DirectoryMenu(), UserMenu(3, ""), PreviousVersionMenu(2)};
}

TEST(DamagedMenu, AnyByteAtEachOffset) {
  std::set<End> seen;
  std::size_t cases = 0;
  for (const std::string& sample : Samples()) {
    for (std::size_t at = 0; at < sample.size(); ++at) {
      for (char damage : {'\0', '"', ',', '\r', '\n', ' ', '<', '7', 'e', '\xff'}) {
        std::string damaged = sample;
        damaged[at] = damage;
        const LoadedMenu loaded = LoadBytes(damaged);
        ASSERT_EQ(LoadLiterally(damaged), loaded)
            << "byte " << at << " is " << static_cast<int>(damage);
        seen.insert(loaded.end);
        ++cases;
      }
    }
  }
  EXPECT_EQ((std::set<End>{End::Menu, End::Declined, End::Failed}), seen);
  std::cout << "Counted: " << cases << " damaged menus were read\n";
}

TEST(DamagedMenu, AByteMissingOrTooManyAtEachOffset) {
  for (const std::string& sample : Samples()) {
    for (std::size_t at = 0; at < sample.size(); ++at) {
      std::string shorter = sample;
      shorter.erase(at, 1);
      ASSERT_EQ(LoadLiterally(shorter), LoadBytes(shorter)) << "without byte " << at;
      for (char byte : {'\0', '"', ',', '\r', '\n', ' ', '\xff'}) {
        std::string longer = sample;
        longer.insert(at, 1, byte);
        ASSERT_EQ(LoadLiterally(longer), LoadBytes(longer))
            << "with " << static_cast<int>(byte) << " before byte " << at;
      }
    }
  }
}

TEST(DamagedMenu, CutAtEachByteReadsAsFarAsItGoes) {
  for (const std::string& sample : Samples()) {
    for (std::size_t size = 0; size <= sample.size(); ++size) {
      const std::string cut = sample.substr(0, size);
      ASSERT_EQ(LoadLiterally(cut), LoadBytes(cut)) << "cut to " << size;
    }
  }
}

// The outcomes of loading the prefixes of a menu. Each pair has the first length with that
// outcome.
using Outcomes = std::vector<std::pair<std::size_t, std::string>>;

std::string OutcomeOf(const LoadedMenu& menu) {
  switch (menu.end) {
    case End::Menu:
      return std::to_string(menu.shown.size()) + " shown";
    case End::Declined:
      return "question";
    case End::Failed:
      break;
  }
  return menu.message.substr(0, menu.message.find(" of the file"));
}

// Cuts the menu after `head`, and counts the length from there.
void ExpectOutcomes(const std::string& head, const std::string& rest, const Outcomes& expected) {
  Outcomes outcomes;
  for (std::size_t size = 0; size <= rest.size(); ++size) {
    const std::string outcome = OutcomeOf(LoadBytes(head + rest.substr(0, size)));
    if (outcomes.empty() || outcomes.back().second != outcome) {
      outcomes.emplace_back(size, outcome);
    }
  }
  EXPECT_EQ(expected, outcomes);
}

TEST(CutMenu, UserDefined) {
  // The marker line begins at 6, the type line at 19, the appearance at 30.
  ExpectOutcomes("", "icon\r\n<START ZOL>\r\n\"USERDEF\"\r\n1,\"T\",8.25,0,0\r\n",
                 {{0, "question"},
                  {17, "Cannot read the type line, field menu type,"},
                  {28, "Cannot read the appearance line, field smallIcons,"},
                  {31, "Cannot read the appearance line, field fontName,"},
                  {35, "Cannot read the appearance line, field fontSize,"},
                  {37, "Cannot read the appearance line, field fontBold,"},
                  {42, "Cannot read the appearance line, field fontItalic,"},
                  {44, "1 shown"}});
}

TEST(CutMenu, Entries) {
  const std::string head = "\r\n<START ZOL>\r\n\"USERDEF\"\r\n1,\"T\",8,0,0\r\n";
  ASSERT_EQ(39u, head.size());
  ExpectOutcomes(head, "\"a\",\"b\",\"c\",\"d\",\"e\",12\r\n" + std::string(kSeparatorLine),
                 {{0, "1 shown"},
                  {1, "Cannot read entry 1, field caption,"},
                  {3, "Cannot read entry 1, field target,"},
                  {7, "Cannot read entry 1, field arguments,"},
                  {11, "Cannot read entry 1, field startIn,"},
                  {15, "Cannot read entry 1, field iconFile,"},
                  {19, "Cannot read entry 1, field iconIndex,"},
                  {21, "2 shown"},
                  {25, "Cannot read entry 2, field caption,"},
                  {26, "Cannot read entry 2, field target,"},
                  {29, "Cannot read entry 2, field arguments,"},
                  {32, "Cannot read entry 2, field startIn,"},
                  {35, "Cannot read entry 2, field iconFile,"},
                  {38, "Cannot read entry 2, field iconIndex,"},
                  {40, "3 shown"}});
}

TEST(CutMenu, ANumberCutInTheMiddleReadsAsAnother) {
  const std::string menu = UserMenu(0) + "\"a\",\"b\",\"c\",\"d\",\"e\",12\r\n";
  EXPECT_EQ("N:1", LoadBytes(menu.substr(0, menu.size() - 3)).shown.back().back());
  EXPECT_EQ("N:12", LoadBytes(menu.substr(0, menu.size() - 2)).shown.back().back());
}

TEST(CutMenu, DirectoryPointer) {
  ExpectOutcomes("",
                 "\r\n<START ZOL>\r\n\"DIRPOINT\"\r\n1,\"T\",8,0,0\r\n\"C:\\\",\"*.*\",1,0,0\r\n",
                 {{0, "question"},
                  {13, "Cannot read the type line, field menu type,"},
                  {25, "Cannot read the appearance line, field smallIcons,"},
                  {28, "Cannot read the appearance line, field fontName,"},
                  {32, "Cannot read the appearance line, field fontSize,"},
                  {34, "Cannot read the appearance line, field fontBold,"},
                  {36, "Cannot read the appearance line, field fontItalic,"},
                  {38, "Cannot read the directory line, field folderPath,"},
                  {45, "Cannot read the directory line, field filePattern,"},
                  {51, "Cannot read the directory line, field showFolders,"},
                  {53, "Cannot read the directory line, field hideKnownExtensions,"},
                  {55, "Cannot read the directory line, field showHiddenFiles,"},
                  {57, "2 shown"}});
}

}  // namespace
}  // namespace menufile
