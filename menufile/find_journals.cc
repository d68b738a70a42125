// Finds the journals of a menu's interrupted changes.
#include <algorithm>
#include <iterator>
#include <utility>

#include "menufile/failure.h"
#include "menufile/menu_file.h"
#include "menufile/scratch_file.h"

namespace menufile {

std::string MenuFile::MenuName() { return files_.Open(path_, OpenMode::Read)->FullName(); }

// The scratch files in the current directory and in the folder of the menu file.
std::vector<std::string> MenuFile::PlacesToLook() {
  std::vector<std::string> paths(std::begin(kScratchFiles), std::end(kScratchFiles));
  for (const char* name : kScratchFiles) {
    if (const std::string path = files_.Beside(path_, name); path != name) {
      paths.push_back(path);
    }
  }
  return paths;
}

// All files that may hold a journal which somebody may want to finish.
std::vector<MenuFile::Place> MenuFile::FilesToLookAt(bool mayFail) {
  std::vector<Place> places;
  for (const std::string& scratchFile : PlacesToLook()) {
    try {
      for (std::string& path : files_.FilesThatBeginWith(scratchFile)) {
        if (path.find(kDeclined, scratchFile.size()) == std::string::npos) {
          places.push_back({std::move(path), scratchFile});
        }
      }
    } catch (const Failure&) {
      if (!mayFail) {
        throw;
      }
    }
  }
  return places;
}

std::vector<MenuFile::Found> MenuFile::FindJournals(bool mayFail) {
  std::vector<Found> found;
  // A file has two paths here if the menu stands in the current directory.
  std::vector<std::string> names;
  for (const Place& place : FilesToLookAt(mayFail)) {
    try {
      const std::unique_ptr<File> file = files_.OpenIfThere(place.file);
      if (file == nullptr) {
        continue;
      }
      std::string name = file->FullName();
      if (std::find(names.begin(), names.end(), name) != names.end()) {
        continue;
      }
      names.push_back(std::move(name));
      std::optional<Journal> journal = ReadJournal(*file, files_.BlockSize());
      if (journal && journal->menu == MenuName()) {
        latestSerial_ = std::max(latestSerial_, journal->serial);
        const auto earlier = std::find_if(found.begin(), found.end(), [&](const Found& other) {
          return other.journal.serial < journal->serial;
        });
        found.insert(earlier, {place, std::move(*journal)});
      }
    } catch (const Failure&) {
      if (!mayFail) {
        throw;
      }
    }
  }
  return found;
}

}  // namespace menufile
