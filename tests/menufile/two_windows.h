#ifndef CORVALIS_TESTS_MENUFILE_TWO_WINDOWS_H_
#define CORVALIS_TESTS_MENUFILE_TWO_WINDOWS_H_

#include <array>

#include "menufile/menu_file.h"
#include "tests/menufile/memory_files.h"

namespace menufile {

inline constexpr const char* kSecondMenu = "C:\\menus\\b.menu";

// A folder with two menus, two windows on the first one and one on the second, and a
// model of what each menu may hold. After each step of a user, this checks both menus:
// one of the right states has to be in some file; the next start has to offer it, unless
// the user has said No; and a start must not ask if no change was interrupted.
class TwoWindows {
 public:
  enum Window : std::size_t { kFirst, kSecond, kOther, kWindows };

  // The properties of the folder.
  struct Folder {
    std::size_t blockSize = 1000;
    std::set<std::string> cannotBeRemoved = {};
  };

  TwoWindows(const MemoryFiles::Disk& disk, Folder folder);

  // To be called if the scratch file holds an interrupted change of the second menu.
  // `finished` is the finished menu.
  void SecondMenuWasCut(const std::string& finished);

  // A change that a user makes in a window.
  using Change = std::function<ChangeResult(MenuFile&)>;
  struct Step {
    std::string key;  // a name, different for different changes
    Change change;
    // True if it adds to the menu file: then it has no journal if none can be written.
    bool appends = false;
  };

  // Makes the change in the window, with this fault, and checks both menus.
  void Do(Window window, const Step& step, const Fault& fault);
  // Closes the window and opens it again. `yes` is the answer to finishing an interrupted
  // change, `converts` that to the conversion.
  void Start(Window window, bool yes, bool converts, const Fault& fault);
  void Close(Window window, const Fault& fault);
  void ReadEntry(Window window, const Fault& fault);
  // Closes every window. Changes that were not flushed are lost in part.
  void CutPower(PowerCut cut);

  // The file operations of the last step, each with its file.
  const std::vector<std::string>& log() const { return files_->log(); }
  std::size_t LastOf(std::string_view operation, std::string_view path) const {
    return files_->LastOf(operation, path);
  }
  // True if the process ended at the last step.
  bool ended() const { return ended_; }
  // The first fault that was found; empty if there is none.
  const std::string& complaint() const { return complaint_; }
  // The steps so far, for messages.
  const std::string& story() const { return story_; }
  std::size_t offered() const { return offered_; }

 private:
  struct Menu {
    std::string path;
    // The states that the menu file may have.
    std::set<std::string> right;
    // For each set, one of its states has to be in some file: the user said No to it.
    std::vector<std::set<std::string>> kept;
    bool wasCut = false;      // a change was interrupted
    std::set<Window> saidNo;  // windows whose user did not want it finished
    bool declined = false;    // one of them has gone on since
    // The window whose change was interrupted, or whose user said No.
    std::optional<Window> knownTo;
    // States that another window may have put aside. A later start offers them, since
    // nobody has declined them.
    std::set<std::string> aside;
    // All states that changes made. After a fault in such a change, a power cut may bring
    // back the journals of earlier ones, until a change is made without a fault.
    std::set<std::string> made;
    bool mayComeBack = false;
    bool cameBack = false;  // the power failed meanwhile
    // Set if lines are added without a journal: the old menu. A fault may leave any bytes
    // after its last whole sector.
    std::optional<std::string> weakPrefix;
  };

  Menu& MenuOf(Window window) { return menus_[window == kOther ? 1 : 0]; }
  std::string Bytes(const Menu& menu) const;
  std::unique_ptr<MemoryFiles> Copy(const MemoryFiles::Disk& disk) const;
  // The states that the menu file may have after a change.
  std::set<std::string> Outcomes(const Menu& menu, const std::string& bytes, const Step& step);
  // Returns false if the process ended or the step failed.
  bool Run(Window window, const Fault& fault, const std::function<void()>& run);
  void SettleOn(Menu& menu, const std::string& bytes);
  void EarlierFinished(Menu& menu, const std::string& before);
  void Made(Window window, const std::string& before, const std::set<std::string>& outcomes,
            const Fault& fault);
  void MayBeMade(Window window, const std::string& before, const std::set<std::string>& outcomes,
                 const Fault& fault);
  void AllowHalfLine(Menu& menu);
  void GoOn(Window window);
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
