#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_CHANGES_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_CHANGES_H_

#include <windows.h>

#include <functional>
#include <optional>
#include <random>
#include <string>

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

// A change to the menu, made with the program's windows but for the last press
// of a button, which makes the program write.
struct PreparedChange {
  testing_menus::KnownMenu after;  // what the menu file holds once it is made
  HWND window;                     // which has that button
  int button;
  // What is left to do then, until the main window can be used again; false
  // when it cannot. Absent where there is nothing but the button.
  std::function<bool()> end;
  // Present where it is the mouse that makes the program write. Calls its argument
  // just before that.
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

// Makes changes of any kind in a running editor whose menu is known. What a
// change needs besides the kind is drawn at random.
class Changes {
 public:
  // `iconLibrary` is a file with twelve icons. Entries whose target it is are
  // those that get other icons. It is what is dropped, too.
  Changes(const Program& program, HWND form2, std::mt19937_64& random, std::string iconLibrary);

  // Whether the menu has what such a change needs.
  bool IsPossible(ChangeKind kind, const testing_menus::KnownMenu& menu) const;

  // Nothing when a window does not do what it should.
  std::optional<PreparedChange> Prepare(ChangeKind kind, const testing_menus::KnownMenu& menu);

 private:
  std::optional<PreparedChange> PrepareAdd(testing_menus::KnownMenu menu);
  PreparedChange PrepareDrop(testing_menus::KnownMenu menu);
  std::optional<PreparedChange> PrepareEdit(testing_menus::KnownMenu menu);
  std::optional<PreparedChange> PrepareChangeIcon(testing_menus::KnownMenu menu);
  std::optional<PreparedChange> PrepareSaveAppearance(testing_menus::KnownMenu menu);
  std::optional<PreparedChange> PrepareSaveDirectory(testing_menus::KnownMenu menu);
  // Both switches of the menu type ask before.
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
