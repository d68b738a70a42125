#ifndef CORVALIS_MENUFILE_JOURNAL_H_
#define CORVALIS_MENUFILE_JOURNAL_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "menufile/checksum.h"
#include "menufile/file_system.h"

namespace menufile {

// The journal of a change: all that is needed to finish the change if a crash, a
// power cut or a lost disk interrupts it while the menu file is being written. It
// stands in the scratch file, after the description, from before the menu file is
// touched until the menu file is complete:
//
//   scratch file                  menu file          a crash here leaves
//   -------------------------     ---------------    ------------------------------
//   a prefix of the description   old                the old menu
//   description, no journal       old                the old menu
//   description, journal          old                a change to finish
//   description, journal          cut, mixed, empty  a change to finish
//   description, journal          new                the new menu: nothing to do
//   description, no journal       new                the new menu
//   (deleted)                     new                the new menu
//
// A journal that was written in part does not count, because its checksum covers the
// whole scratch file.
//
//   scratch file = description, head, name, footer
//   footer       = "Corvalis journal", and seven 64-bit numbers, lowest byte
//                  first: size of the description, of the head and of the name,
//                  keptSize, keptSum, serial, checksum of all bytes before it
//
// Sizes are in bytes.
struct Journal {
  // The File::FullName() of the menu file that is changed.
  std::string menu;
  // The later of two journals of one menu has the greater serial.
  std::uint64_t serial = 0;
  // The finished menu file has three parts. First come the bytes that it holds
  // already and that the change does not touch. Only adding entries keeps any.
  std::uint64_t keptSize = 0;
  // The SumBefore() of keptSize in the menu file.
  std::uint64_t keptSum = 0;
  // Then come these bytes: a new picture, or the lines of new entries, with the old
  // bytes before them in the same block of the disk.
  std::string head;
  // Then come the first bytes of the scratch file, as many as this. Adding entries
  // has none.
  std::uint64_t descriptionSize = 0;

  // The size of the finished menu file.
  std::uint64_t FinishedSize() const { return keptSize + head.size() + descriptionSize; }
};

// Writes the journal after the description and flushes the scratch file. Then reads
// it all back, and throws Failure if the journal is not found. `description` is the
// checksum of the description. `path` is what a Failure calls the scratch file.
void WriteJournal(File& scratch, const std::string& path, const Journal& journal,
                  const Checksum& description, std::size_t blockSize);

// The journal of a scratch file; nothing if it holds no complete journal.
std::optional<Journal> ReadJournal(File& scratch, std::size_t blockSize);

// The checksum of the first `size` bytes.
std::uint64_t SumOfFirst(File& file, std::uint64_t size, std::size_t blockSize);

// The checksum of the bytes before `offset`, or of the last 4096 of them if there are
// more.
std::uint64_t SumBefore(File& file, std::uint64_t offset);

// The menu file compared with the finished menu file of a journal.
enum class MenuState {
  Finished,   // equal; after added entries, more bytes may follow
  CutShort,   // a strict prefix
  Different,  // other bytes
  Replaced,   // even the bytes that the change was to keep are others
};
MenuState CompareMenu(File& menu, File& scratch, const Journal& journal, std::size_t blockSize);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_JOURNAL_H_
