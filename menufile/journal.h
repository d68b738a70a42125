#ifndef CORVALIS_MENUFILE_JOURNAL_H_
#define CORVALIS_MENUFILE_JOURNAL_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "menufile/checksum.h"
#include "menufile/file_system.h"

namespace menufile {

// What it takes to finish a change to a menu file that was cut short while the
// menu file was being written: by a power cut, say, or because the disk went
// away. The journal stands in the scratch file, after the description, for just
// as long as the menu file is not whole:
//
//   scratch file                  menu file          a crash here leaves
//   -------------------------     ---------------    ------------------------------
//   a part of the description     old                the old menu
//   description, no journal       old                the old menu
//   description, journal          old                a change to finish
//   description, journal          cut, mixed, empty  a change to finish
//   description, journal          new                nothing to do: the menu is as
//                                                    the journal says
//   description, no journal       new                the new menu
//   (deleted)                     new                the new menu
//
// A part of a journal is none: its checksum covers all of the scratch file.
//
//   scratch file = description, head, name, footer
//   footer       = "Corvalis journal", and seven 64-bit numbers, lowest byte
//                  first: size of the description, of the head and of the name,
//                  keptSize, keptSum, serial, checksum of all bytes before
struct Journal {
  // The menu file that is changed, by its File::FullName().
  std::string menu;
  // Tells which of two journals of one menu is the later one: the greater.
  std::uint64_t serial = 0;
  // The menu file as it is to be begins with so many bytes that it holds already and
  // that the change does not write near to. It is 0 for every change but the adding
  // of entries.
  std::uint64_t keptSize = 0;
  // The SumBefore() of those.
  std::uint64_t keptSum = 0;
  // Then come these bytes: a new picture; or the lines of new entries, with what
  // stands before them in the same block of the disk.
  std::string head;
  // Then so many bytes from the front of the scratch file: 0 where entries are added.
  std::uint64_t descriptionSize = 0;

  std::uint64_t FinishedSize() const { return keptSize + head.size() + descriptionSize; }
};

// Writes the journal after the description, whose checksum is `description`, and
// waits until the scratch file is on the disk. Then reads all of it back. Throws
// Failure when that is not what was written.
void WriteJournal(File& scratch, const std::string& path, const Journal& journal,
                  const Checksum& description, std::size_t blockSize);

// The journal of a scratch file; nothing when it holds none, or a part of one.
std::optional<Journal> ReadJournal(File& scratch, std::size_t blockSize);

// The checksum of the first `size` bytes.
std::uint64_t SumOfFirst(File& file, std::uint64_t size, std::size_t blockSize);

// The checksum of the bytes before `offset`, or of the last 4096 of those.
std::uint64_t SumBefore(File& file, std::uint64_t offset);

// How the menu file compares with what the journal's change was to leave.
enum class MenuState {
  Finished,   // it is just that
  CutShort,   // it is a strict prefix of that
  Different,  // it holds other bytes
  Replaced,   // it does not even hold what the change was to keep
};
MenuState CompareMenu(File& menu, File& scratch, const Journal& journal, std::size_t blockSize);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_JOURNAL_H_
