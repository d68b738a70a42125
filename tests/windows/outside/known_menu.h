#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_KNOWN_MENU_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_KNOWN_MENU_H_

#include <windows.h>

#include "tests/windows/menu_bytes.h"

namespace testing_menus {

// An entry that the test expects. Without texts it is a separator.
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

// The menu that a test expects in the file. The test changes it together with the program.
struct KnownMenu {
  std::string picture = kPicture;
  bool isDirectory = false;
  std::string appearance = kAppearance;
  std::vector<Entry> entries;  // the entries of a user-defined list
  std::string directory;       // the line of a directory pointer

  std::string Bytes() const;
  // The menu in the format of the previous version, without picture, marker and type line.
  std::string PreviousVersionBytes() const;
};

// A message with the first difference of two files; empty if they are equal. (A whole menu
// may have some megabytes.)
std::string Difference(const std::string& actual, const std::string& expected);

// The bitmap file that the Appearance page saves without an icon: the background of the box.
std::string EmptyPreview();

}  // namespace testing_menus

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_KNOWN_MENU_H_
