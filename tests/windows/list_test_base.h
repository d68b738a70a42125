#ifndef CORVALIS_TESTS_WINDOWS_LIST_TEST_BASE_H_
#define CORVALIS_TESTS_WINDOWS_LIST_TEST_BASE_H_

#include "tests/windows/form2_test_base.h"

inline const std::string kSeparatorRow(87, '-');

// A list row and its hidden row.
struct RowState {
  std::string caption;
  std::string icon;  // the text of the hidden row
  std::string target;

  friend bool operator==(const RowState&, const RowState&) = default;
};
std::ostream& operator<<(std::ostream& out, const RowState& row);

// The base of the tests that change the entries of a menu.
class ListTest : public Form2Test {
 protected:
  bool OpenLines(const Texts& itemLines) { return Open(testing_menus::UserDefinedMenu(itemLines)); }

  std::vector<RowState> State();
  std::string HiddenIcon(int row) { return form().items().Hidden(row).text; }
  std::string HiddenTag(int row) { return form().items().Hidden(row).tag; }

  // Expects that the file holds these entries and is otherwise unchanged, that no scratch
  // file is left, that no message was shown, that the window is enabled, and that this row
  // is selected.
  void ExpectSettled(const Texts& itemLines, std::optional<int> selected = {});
  void ExpectNoScratchFiles();

  bool PreviewIsClear();

  // The line of an entry with an icon of its own, the first one of this program.
  static std::string IconLine(const std::string& caption, const std::string& target);
  static std::string ThisProgram();
  // The lines of so many entries: "Entry 0" with the target C:\0, and so on.
  static Texts ManyLines(int count);
};

#endif  // CORVALIS_TESTS_WINDOWS_LIST_TEST_BASE_H_
