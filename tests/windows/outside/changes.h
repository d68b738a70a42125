#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_CHANGES_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_CHANGES_H_

#include <random>

#include "tests/windows/outside/known_menu.h"
#include "tests/windows/outside/program.h"

namespace outside {

enum class ChangeKind {
  MoveUp,
  MoveDown,
  Delete,
  Separator,
  Add,
  Drop,
  Edit,
  ChangeIcon,
  SaveAppearance,
  ToDirectory,
  SaveDirectory,
  ToList,
};

const char* NameOf(ChangeKind kind);

// A change that is ready but for the last press of a button, which makes the program
// write.
struct PreparedChange {
  testing_menus::KnownMenu after;  // the menu after the change
  HWND window;                     // the window with the button
  int button;
  // Does what is left after the press, until the main window can be used again. Returns
  // false if it cannot. Absent if nothing is left.
  std::function<bool()> end;
  // Present if the mouse makes the program write. Calls its argument right before that.
  std::function<void(const std::function<void()>&)> drag = {};

  void Begin(const std::function<void()>& before = [] {}) const {
    if (drag) {
      drag(before);
    } else {
      before();
      Click(window, button);
    }
  }
  bool Make() const {
    if (!end) {
      return Press(window, button);
    }
    Begin();
    return end();
  }
};

// Makes changes of any kind in a running editor whose menu is known. Everything but the
// kind is random.
class Changes {
 public:
  // `iconLibrary` is a file with twelve icons. Only entries whose target it is get other
  // icons. It is what is dropped, too.
  Changes(const Program& program, HWND form2, std::mt19937_64& random, std::string iconLibrary);

  // True if such a change of the menu is possible.
  bool IsPossible(ChangeKind kind, const testing_menus::KnownMenu& menu) const;

  // Returns nothing if a window does not do what it should.
  std::optional<PreparedChange> Prepare(ChangeKind kind, const testing_menus::KnownMenu& menu);

 private:
  std::optional<PreparedChange> PrepareAdd(testing_menus::KnownMenu menu);
  PreparedChange PrepareDrop(testing_menus::KnownMenu menu);
  std::optional<PreparedChange> PrepareEdit(testing_menus::KnownMenu menu);
  std::optional<PreparedChange> PrepareChangeIcon(testing_menus::KnownMenu menu);
  std::optional<PreparedChange> PrepareSaveAppearance(testing_menus::KnownMenu menu);
  std::optional<PreparedChange> PrepareSaveDirectory(testing_menus::KnownMenu menu);
  // Both switches of the menu type ask a question first.
  std::optional<PreparedChange> PrepareSwitch(testing_menus::KnownMenu after, int button);

  // One of ShortEntries().
  std::size_t RandomEntry(const testing_menus::KnownMenu& menu, const std::string& target = "");
  std::size_t Below(std::size_t count);
  std::string Word();
  bool WaitUntilUsable() const;

  const Program& program_;
  HWND form2_;
  std::mt19937_64& random_;
  std::string iconLibrary_;
};

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_CHANGES_H_
