#ifndef CORVALIS_TESTS_MENUFILE_PLAIN_JOURNAL_H_
#define CORVALIS_TESTS_MENUFILE_PLAIN_JOURNAL_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace menufile {

// The journal of a scratch file. It is read by simple code that shares nothing with
// menufile/journal.cc, so that each can be compared with the other.
struct PlainJournal {
  std::string description;
  std::string head;
  std::string menu;  // the full name of the menu file
  std::uint64_t keptSize = 0;
  std::uint64_t serial = 0;

  // The finished menu file, if the menu file holds `menuBytes` now.
  std::string FinishedFrom(std::string_view menuBytes) const;
};

// Returns nothing if the sizes do not add up or the checksum is wrong.
std::optional<PlainJournal> ReadPlainly(std::string_view scratchBytes);

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_PLAIN_JOURNAL_H_
