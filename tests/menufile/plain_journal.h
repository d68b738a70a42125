#ifndef CORVALIS_TESTS_MENUFILE_PLAIN_JOURNAL_H_
#define CORVALIS_TESTS_MENUFILE_PLAIN_JOURNAL_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace menufile {

// A scratch file's journal, read from its bytes alone. It is slow and plain on
// purpose and shares nothing with menufile/journal.cc, so that each can be held
// against the other.
struct PlainJournal {
  std::string description;
  std::string head;
  std::string menu;  // the full name of the menu file
  std::uint64_t keptSize = 0;
  std::uint64_t serial = 0;

  // The menu file as it is to be, where it holds `menuBytes` now.
  std::string FinishedFrom(std::string_view menuBytes) const;
};

// Nothing where the sizes do not add up or the checksum does not hold.
std::optional<PlainJournal> ReadPlainly(std::string_view scratchBytes);

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_PLAIN_JOURNAL_H_
