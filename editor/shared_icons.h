#ifndef CORVALIS_EDITOR_SHARED_ICONS_H_
#define CORVALIS_EDITOR_SHARED_ICONS_H_

#include <windows.h>

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace editor {

// Extracts the large icon with that index (0-based, or a negative resource id) from a
// file; nullptr if there is none. `file` is in the ANSI code page. The caller owns the
// icon.
HICON ExtractLargeIcon(const std::string& file, int index);

// The icons of list rows. Rows with the same icon share one handle: extracting an icon
// takes about a millisecond, a process can have 10,000 handles, and a menu of many
// entries has few different icons.
class SharedIcons {
 public:
  // Extracts the icon with that index from a file. Returns what the variable for the
  // handle holds after ExtractIconEx(): nullptr for no icon, and `former` if Windows did
  // not write to it. Each icon is extracted once. Each drive or share is accessed once;
  // if it is not there, its files are not accessed. No row holds the icon yet.
  HICON Extract(const std::string& file, int index, HICON former);

  // Add and remove a row that holds the icon. Removing the last one destroys the icon.
  // nullptr stands for no icon.
  void Hold(HICON icon);
  void Release(HICON icon);

  // Removes a row that holds the icon, but keeps the icon until DestroyUnheld(): an
  // entry that is loaded next may have the same icon.
  void ReleaseLater(HICON icon);

  // Destroys the icons that no row holds.
  void DestroyUnheld();

 private:
  using Source = std::pair<std::string, int>;
  struct Held {
    int rows = 0;
    Source source;  // the key in extracted_; its file is empty if there is none
  };
  using Icons = std::map<HICON, Held>;

  bool IsThere(const std::string& file);
  Icons::iterator Destroy(Icons::iterator place);

  // The results of ExtractIconEx(); nothing if Windows wrote no handle. Every icon here
  // is in icons_, too.
  std::map<Source, std::optional<HICON>> extracted_;
  Icons icons_;
  std::map<std::wstring, bool> roots_;  // true for a drive or share that is there
};

}  // namespace editor

#endif  // CORVALIS_EDITOR_SHARED_ICONS_H_
