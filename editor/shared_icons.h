#ifndef CORVALIS_EDITOR_SHARED_ICONS_H_
#define CORVALIS_EDITOR_SHARED_ICONS_H_

#include <windows.h>

#include <map>
#include <string>
#include <utility>

namespace editor {

// Takes the icon of that index (0-based) out of a file; nullptr when there is
// none. The caller owns it.
HICON ExtractLargeIcon(const std::string& file, int index);

// The icons of list rows. Rows that name the same icon hold one handle between
// them: extracting one takes about a millisecond, Windows grants a process
// 10,000 handles, and a menu of many entries names few different icons.
class SharedIcons {
 public:
  // The large icon at that index of a file; nullptr when there is none. Windows
  // is asked once for each until Forget(). Nobody holds the icon yet.
  HICON Extract(const std::string& file, int index);

  // Files may have changed: Windows is to be asked again. Icons stay.
  void Forget() { extracted_.clear(); }

  // One row more holds the icon, or one less; with the last it is destroyed.
  // Both take nullptr for no icon.
  void Hold(HICON icon);
  void Release(HICON icon);

 private:
  std::map<std::pair<std::string, int>, HICON> extracted_;
  std::map<HICON, int> holders_;
};

}  // namespace editor

#endif  // CORVALIS_EDITOR_SHARED_ICONS_H_
