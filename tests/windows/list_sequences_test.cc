#include <array>
#include <random>

#include "tests/windows/code_pages.h"
#include "tests/windows/wizard_test_base.h"
#include "win32/text.h"

using testing_menus::ItemLine;

namespace {

// The expected file: its entries, and what the list shows for each.
struct Entry {
  std::array<std::string, 6> fields;  // in the order of the file
  std::string tag;                    // the tag of the hidden row

  std::string Line() const {
    return ItemLine(fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]);
  }
  std::string Caption() const { return fields[0].empty() ? kSeparatorRow : fields[0]; }
};

const Entry kSeparatorEntry{};

}  // namespace

// Makes long random sequences of changes to the entries and compares each step with a
// simple model of the file.
class ListSequencesTest : public WizardTestBase, public ::testing::WithParamInterface<unsigned> {
 protected:
  int Random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

  std::string RandomText(bool mayBeEmpty) {
    static const std::string kCharacters = "abcXYZ 019,.;<>'\\/=&%";
    std::string text(mayBeEmpty ? "" : "t");
    for (int length = Random(12); length > 0; --length) {
      const auto at = static_cast<std::size_t>(Random(static_cast<int>(kCharacters.size()) + 3));
      text += at < kCharacters.size() ? kCharacters.substr(at, 1) : testing_pages::ThisPage().bytes;
    }
    return text;
  }

  Entry RandomEntry() {
    Entry entry{{RandomText(false), "news:" + RandomText(true), RandomText(true), RandomText(true),
                 "", "0"},
                ""};
    entry.tag = entry.fields[1];
    return entry;
  }

  void Compare() {
    Texts lines;
    Texts captions;
    Texts tags;
    for (const Entry& entry : model_) {
      lines.push_back(entry.Line());
      captions.push_back(entry.Caption());
      tags.push_back(entry.tag);
    }
    ExpectSettled(lines);
    EXPECT_EQ(Rows(), captions);
    Texts hidden;
    for (const RowState& row : State()) {
      hidden.push_back(row.target);
      EXPECT_EQ(row.icon, "0");
    }
    EXPECT_EQ(hidden, tags);
    EXPECT_EQ(SelectedRow(), selected_);
    EXPECT_EQ(Wizard(), nullptr);
  }

  void Select() {
    if (!model_.empty()) {
      selected_ = Random(static_cast<int>(model_.size()));
      SelectRow(selected_);
    }
  }

  void Move(int button, int step) {
    Press(button);
    const int other = selected_ + step;
    if (selected_ >= 0 && other >= 0 && other < static_cast<int>(model_.size())) {
      std::swap(At(selected_), At(other));
      selected_ = other;
    }
  }

  void Delete() {
    Press(IDC_FORM2_COMMAND7);
    if (selected_ >= 0) {
      model_.erase(model_.begin() + selected_);
      selected_ = -1;
    }
  }

  void Separate() {
    Press(IDC_FORM2_COMMAND9);
    if (selected_ >= 0) {
      model_.insert(model_.begin() + selected_, kSeparatorEntry);
      // The list was loaded again, so the tags are the targets in the file.
      for (Entry& entry : model_) {
        entry.tag = entry.fields[1];
      }
      selected_ = -1;
    }
  }

  void Add() {
    const Entry entry = RandomEntry();
    OpenAdd();
    Finish(entry.fields[1], entry.fields[0], entry.fields[2], entry.fields[3]);
    model_.push_back(entry);
  }

  void Edit() {
    if (selected_ < 0) {
      Press(IDC_FORM2_COMMAND3);
      return;
    }
    const Entry entry = RandomEntry();
    OpenEdit(selected_);
    Entry& edited = At(selected_);
    EXPECT_EQ(Boxes(),
              (Texts{edited.fields[1], edited.fields[2], edited.fields[3], edited.fields[0]}));
    if (Random(4) == 0) {
      PressWizard(kCancel);
      return;
    }
    Finish(entry.fields[1], entry.fields[0], entry.fields[2], entry.fields[3]);
    std::copy(entry.fields.begin(), entry.fields.begin() + 4, edited.fields.begin());
  }

  void Drop() {
    std::vector<std::wstring> paths;
    for (int count = 1 + Random(3); count > 0; --count) {
      const std::string name = "file" + std::to_string(Random(5));
      WriteBytes(PathOf(name), "");
      const std::string path = PathOf(name);
      paths.push_back(win32::ToText(path));
      model_.push_back({{name, path, "", "", "", "0"}, path});
    }
    WizardTestBase::Drop(paths);
  }

  // Loads the same file in a new window.
  void Restart() {
    ASSERT_TRUE(Open(MenuBytes()));
    selected_ = -1;
    for (Entry& entry : model_) {
      entry.tag = entry.fields[1];
    }
  }

  Entry& At(int row) { return model_[static_cast<std::size_t>(row)]; }

  std::vector<Entry> model_;
  int selected_ = -1;

 private:
  std::mt19937 random_{GetParam()};
};

TEST_P(ListSequencesTest, FileAndWindowAreWhatTheModelSays) {
  ASSERT_TRUE(OpenLines({}));
  const std::vector<std::function<void()>> operations = {
      [this] { Select(); },
      [this] { Move(IDC_FORM2_COMMAND4, -1); },
      [this] { Move(IDC_FORM2_COMMAND8, +1); },
      [this] { Delete(); },
      [this] { Separate(); },
      [this] { Add(); },
      [this] { Edit(); },
      [this] { Drop(); },
      [this] { Restart(); },
  };
  // The weight of each step; the sum is 27.
  const std::array<int, 9> shares = {8, 3, 3, 2, 2, 3, 3, 2, 1};
  std::vector<std::size_t> draw;
  for (std::size_t operation = 0; operation < shares.size(); ++operation) {
    draw.insert(draw.end(), static_cast<std::size_t>(shares[operation]), operation);
  }
  for (int step = 0; step < 250 && !HasFailure(); ++step) {
    const std::size_t operation =
        draw[static_cast<std::size_t>(Random(static_cast<int>(draw.size())))];
    SCOPED_TRACE("step " + std::to_string(step) + ", operation " + std::to_string(operation));
    operations[operation]();
    Compare();
  }
  EXPECT_GT(model_.size(), 10U);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ListSequencesTest, ::testing::Values(1U, 2U, 3U));
