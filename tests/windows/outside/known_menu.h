#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_KNOWN_MENU_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_KNOWN_MENU_H_

#include <windows.h>

#include <string>
#include <vector>

#include "tests/windows/menu_bytes.h"

namespace testing_menus {

// An entry as the test knows it; without texts it is a separator.
struct Entry {
  std::string caption;
  std::string target;
  std::string arguments;
  std::string startIn;
  std::string iconFile;
  std::string iconIndex = "0";

  std::string Line() const;
};

Entry Separator();

// What a menu file is to hold, kept by the test beside the program and changed
// by it as the program is asked to change the file.
struct KnownMenu {
  std::string picture = kPicture;
  bool isDirectory = false;
  std::string appearance = kAppearance;
  std::vector<Entry> entries;  // of a user-defined list
  std::string directory;       // the line of a directory pointer

  std::string Bytes() const;
  // Without picture, marker line and type line, as a previous version wrote it.
  std::string PreviousVersionBytes() const;
};

// Where two files begin to differ, in words; empty when they are equal. Menus of
// some megabytes are no use in a message.
std::string Difference(const std::string& actual, const std::string& expected);

// The bitmap file that the Appearance page saves: 24 bits for each pixel,
// bottom row first. The pixels are given from the top left one, row by row, and
// are as many as an icon has.
std::string BitmapFile(const std::vector<COLORREF>& pixels);

// The same, where no icon was chosen: the bare background of the box.
std::string EmptyPreview();

}  // namespace testing_menus

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_KNOWN_MENU_H_
