#ifndef CORVALIS_TESTS_MENUFILE_TWO_WINDOWS_H_
#define CORVALIS_TESTS_MENUFILE_TWO_WINDOWS_H_

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "menufile/menu_file.h"
#include "tests/menufile/memory_files.h"

namespace menufile {

inline constexpr const char* kSecondMenu = "C:\\menus\\b.menu";

// A folder with two menus, two windows on the first and one on the second, and a
// judge who knows what each menu may hold. Each step is a user's; after it, for
// both menus, one of the right states has to be in some file, a start has to offer
// it unless the user has said No, and must not ask where nothing was cut short.
class TwoWindows {
 public:
  enum Window : std::size_t { kFirst, kSecond, kOther, kWindows };

  // How the folder treats the scratch files.
  struct Folder {
    std::size_t blockSize = 1000;
    std::set<std::string> cannotBeRemoved = {};
  };

  TwoWindows(const MemoryFiles::Disk& disk, Folder folder);

  // The scratch file holds a change of the second menu that was cut short: this is
  // what the menu is to be.
  void SecondMenuWasCut(const std::string& finished);

  // What a user does at a window.
  using Change = std::function<ChangeResult(MenuFile&)>;
  struct Step {
    std::string key;  // tells changes apart
    Change change;
    // It adds to the menu file, and has no journal where none can be written.
    bool appends = false;
  };

  // Lets the user of the window do that, with this fault; then the judge looks.
  void Do(Window window, const Step& step, const Fault& fault);
  // Closes the window and opens it again. Yes and No are to the question whether to
  // finish the last change, and whether to convert.
  void Start(Window window, bool yes, bool converts, const Fault& fault);
  void Close(Window window, const Fault& fault);
  void ReadEntry(Window window, const Fault& fault);
  // Every window is gone, and what was not flushed in part.
  void CutPower(PowerCut cut);

  // How many file operations the last step took, each with its file.
  const std::vector<std::string>& log() const { return files_->log(); }
  // A process ended at the last step.
  bool ended() const { return ended_; }
  // Nothing while all went well.
  const std::string& complaint() const { return complaint_; }
  // What was done so far, for messages.
  const std::string& story() const { return story_; }
  std::size_t offered() const { return offered_; }

 private:
  struct Menu {
    std::string path;
    // What the menu file may hold.
    std::set<std::string> right;
    // States of which one has to be in some file, after the user said No to it or
    // somebody worked on with what the menu file held.
    std::vector<std::set<std::string>> kept;
    bool wasCut = false;      // a change of it was cut short
    bool declined = false;    // and the user did not want it finished
    bool lookFailed = false;  // at a start, so that it could not ask
    // The window that knows so, or that it failed.
    std::optional<Window> knownTo;
    // What another window, which did not know, may have put aside: it is offered
    // later, since nobody has declined it.
    std::set<std::string> aside;
    // Lines were added without a journal and cut short: what has to be there still.
    std::optional<std::string> weakPrefix;
  };

  Menu& MenuOf(Window window) { return menus_[window == kOther ? 1 : 0]; }
  std::string Bytes(const Menu& menu) const;
  std::unique_ptr<MemoryFiles> Copy(const MemoryFiles::Disk& disk) const;
  // All that a change may make of the menu file.
  std::set<std::string> Outcomes(const Menu& menu, const std::string& bytes, const Step& step);
  // False where the process ended or it failed.
  bool Run(Window window, const Fault& fault, const std::function<void()>& run);
  void SettleOn(Menu& menu, const std::string& bytes);
  void EarlierFinished(Menu& menu, const std::string& before);
  void Made(Window window, const std::string& before, const std::set<std::string>& outcomes);
  void MayBeMade(Window window, const std::string& before, const std::set<std::string>& outcomes,
                 const Fault& fault);
  void AllowHalfLine(Menu& menu);
  void Judge();
  void JudgeMenu(const Menu& menu, const MemoryFiles::Disk& disk);
  void Complain(const std::string& what);
  Folder folder_;
  std::unique_ptr<MemoryFiles> files_;
  std::array<std::unique_ptr<MenuFile>, kWindows> windows_;
  std::array<Menu, 2> menus_;
  bool ended_ = false;
  bool failed_ = false;
  std::size_t offered_ = 0;
  std::string complaint_;
  std::string story_;
};

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_TWO_WINDOWS_H_
