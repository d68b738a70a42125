#ifndef CORVALIS_TESTS_MENUFILE_LOADED_MENU_H_
#define CORVALIS_TESTS_MENUFILE_LOADED_MENU_H_

#include <iosfwd>

#include "menufile/loader.h"
#include "tests/menufile/memory_files.h"

namespace menufile {

// One call of a view: its name, then the fields. Each field begins with the kind of its
// value ("E", "N:7", "T:Tahoma").
using Shown = std::vector<std::string>;

// The result of a load, and the calls of the view.
struct LoadedMenu {
  enum class End { Menu, Declined, Failed };

  std::vector<Shown> shown;
  End end = End::Menu;
  std::string message;  // the message of the failure

  bool operator==(const LoadedMenu&) const = default;
};

std::ostream& operator<<(std::ostream& out, const LoadedMenu& menu);

// Records its calls. Answers the upgrade question `yesAnswers` times with Yes, then with
// No.
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

// Loads the file kMenuPath. Each question is a Shown with its answer.
LoadedMenu Load(MemoryFiles& files, int yesAnswers = 0, std::string_view picture = {});
LoadedMenu LoadBytes(std::string_view bytes);

// The same without the code of menufile/: reads the bytes one by one. The answer to the
// question is No.
LoadedMenu LoadLiterally(std::string_view bytes);

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_LOADED_MENU_H_
