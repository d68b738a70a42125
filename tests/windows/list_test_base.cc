#include "tests/windows/list_test_base.h"

#include <ostream>

#include "win32/picture_box.h"

std::ostream& operator<<(std::ostream& out, const RowState& row) {
  return out << '{' << row.caption << ", " << row.icon << ", " << row.target << '}';
}

std::vector<RowState> ListTest::State() {
  std::vector<RowState> state;
  const Texts rows = Rows();
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const int index = static_cast<int>(row);
    state.push_back({rows[row], HiddenIcon(index), HiddenTag(index)});
  }
  return state;
}

void ListTest::ExpectSettled(const Texts& itemLines, std::optional<int> selected) {
  EXPECT_EQ(MenuBytes(), testing_menus::UserDefinedMenu(itemLines));
  ExpectNoScratchFiles();
  EXPECT_TRUE(answers.Shown().empty());
  EXPECT_TRUE(IsWindowEnabled(form().window()));
  EXPECT_EQ(SelectedRow(), selected.value_or(SelectedRow()));
}

void ListTest::ExpectNoScratchFiles() {
  EXPECT_FALSE(Exists(PathOf("temporaryfile")));
  EXPECT_FALSE(Exists(PathOf("zoltempfileoktodelete")));
}

bool ListTest::PreviewIsClear() {
  win32::PictureBox clear;
  clear.SetParentsBackground();
  clear.Attach(Control(IDC_FORM2_ICONIC1));
  return form().iconic1().BitmapFile() == clear.BitmapFile();
}

std::string ListTest::IconLine(const std::string& caption, const std::string& target) {
  return testing_menus::ItemLine(caption, target, "", "", ThisProgram(), "0");
}

std::string ListTest::ThisProgram() {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  return path;
}

Texts ListTest::ManyLines(int count) {
  Texts lines;
  for (int row = 0; row < count; ++row) {
    const std::string number = std::to_string(row);
    lines.push_back(testing_menus::ItemLine("Entry " + number, "C:\\" + number));
  }
  return lines;
}
