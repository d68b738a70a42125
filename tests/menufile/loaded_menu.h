#ifndef CORVALIS_TESTS_MENUFILE_LOADED_MENU_H_
#define CORVALIS_TESTS_MENUFILE_LOADED_MENU_H_

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "menufile/loader.h"
#include "tests/menufile/memory_files.h"

namespace menufile {

// One thing that a view was told: its name, then the fields, each with the kind
// of its value in front ("E", "N:7", "T:Tahoma").
using Shown = std::vector<std::string>;

// How a load ended, and what was shown before.
struct LoadedMenu {
  enum class End { Menu, Declined, Failed };

  std::vector<Shown> shown;
  End end = End::Menu;
  std::string message;  // of the failure

  bool operator==(const LoadedMenu&) const = default;
};

std::ostream& operator<<(std::ostream& out, const LoadedMenu& menu);

// Writes down what it is told. The upgrade question is answered No once the
// given number of times Yes has been said.
class RecordingView final : public MenuView {
 public:
  explicit RecordingView(int yesAnswers = 0) : yesAnswers_(yesAnswers) {}

  bool ConfirmUpgrade() override;
  void ShowAppearance(const AppearanceRecord& appearance) override;
  void AppendItem(std::size_t row, const MenuItemRecord& item) override;
  void ShowDirectoryPointer(const DirectoryPointerRecord& directory) override;

  const std::vector<Shown>& shown() const { return shown_; }

 private:
  int yesAnswers_;
  std::vector<Shown> shown_;
};

inline constexpr const char* kMenuPath = "C:\\menus\\a.menu";

// Loads the file kMenuPath. Each question is a Shown of its own, with the
// answer.
LoadedMenu Load(MemoryFiles& files, int yesAnswers = 0, std::string_view picture = {});
LoadedMenu LoadBytes(std::string_view bytes);

// The same, taken from the bytes one by one and field by field, without any of
// menufile/; the answer to the question is No.
LoadedMenu LoadLiterally(std::string_view bytes);

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_LOADED_MENU_H_
