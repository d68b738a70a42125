#ifndef CORVALIS_EDITOR_SHARED_ICONS_H_
#define CORVALIS_EDITOR_SHARED_ICONS_H_

#include <windows.h>

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace editor {

// Takes the icon of that index (0-based, or minus the number of a resource) out
// of a file; nullptr when there is none. The caller owns it.
HICON ExtractLargeIcon(const std::string& file, int index);

// The icons of list rows. Rows that name the same icon hold one handle between
// them: extracting one takes about a millisecond, Windows grants a process
// 10,000 handles, and a menu of many entries names few different icons.
class SharedIcons {
 public:
  // The icon at that index of a file: what the handle variable of the call holds
  // after it, which is `former` where Windows wrote nothing, and nullptr for no
  // icon. Windows is asked once for each index of a file, and once whether a drive
  // or a share is there; of one that is not no file is asked for. Nobody holds the
  // icon yet.
  HICON Extract(const std::string& file, int index, HICON former);

  // One row more holds the icon, or one less; with the last it is destroyed.
  // Both take nullptr for no icon.
  void Hold(HICON icon);
  void Release(HICON icon);

  // One row less holds the icon, which stays until DestroyUnheld(): a row of the
  // list that is being read may name it again.
  void ReleaseLater(HICON icon);
  void DestroyUnheld();

 private:
  using Source = std::pair<std::string, int>;
  struct Held {
    int rows = 0;
    Source source;  // an empty file: none that is in extracted_
  };
  using Icons = std::map<HICON, Held>;

  bool IsThere(const std::string& file);
  Icons::iterator Destroy(Icons::iterator place);

  // Nothing where Windows wrote nothing; an icon here is in icons_, too.
  std::map<Source, std::optional<HICON>> extracted_;
  Icons icons_;
  std::map<std::wstring, bool> roots_;  // whether each is there
};

}  // namespace editor

#endif  // CORVALIS_EDITOR_SHARED_ICONS_H_
