#include "menufile/journal.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "menufile/failure.h"
#include "menufile/file_window.h"

namespace menufile {
namespace {

constexpr std::string_view kMagic = "Corvalis journal";
constexpr std::size_t kNumberSize = 8;

enum Number : std::size_t {
  kDescriptionSize,
  kHeadSize,
  kNameSize,
  kKeptSize,
  kKeptSum,
  kSerial,
  kChecksum,
  kNumbers,
};
using Numbers = std::array<std::uint64_t, kNumbers>;

constexpr std::size_t kFooterSize = kMagic.size() + kNumbers * kNumberSize;

// No menu has a name or a picture as long as this.
constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 30;

void AppendNumber(std::string& out, std::uint64_t number) {
  for (std::size_t i = 0; i < kNumberSize; ++i) {
    out += static_cast<char>(number >> (8 * i) & 0xFF);
  }
}

std::uint64_t NumberAt(std::string_view bytes, std::size_t at) {
  std::uint64_t number = 0;
  for (std::size_t i = kNumberSize; i-- > 0;) {
    number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  }
  return number;
}

std::string ReadPart(File& file, std::uint64_t offset, std::uint64_t size) {
  std::string bytes(static_cast<std::size_t>(size), '\0');
  bytes.resize(ReadToEnd(file, offset, bytes));
  return bytes;
}

// The numbers of the footer; nothing if the file has no footer, or if the sizes in it
// do not add up to the size of the file.
std::optional<Numbers> ReadFooter(File& scratch, std::uint64_t size) {
  if (size < kFooterSize) {
    return std::nullopt;
  }
  const std::string footer = ReadPart(scratch, size - kFooterSize, kFooterSize);
  if (footer.size() != kFooterSize || !footer.starts_with(kMagic)) {
    return std::nullopt;
  }
  Numbers numbers;
  for (std::size_t i = 0; i < kNumbers; ++i) {
    numbers[i] = NumberAt(footer, kMagic.size() + i * kNumberSize);
  }
  if (numbers[kHeadSize] > kMostBytes || numbers[kNameSize] > kMostBytes ||
      numbers[kDescriptionSize] > size ||
      numbers[kDescriptionSize] + numbers[kHeadSize] + numbers[kNameSize] + kFooterSize != size) {
    return std::nullopt;
  }
  return numbers;
}

// The place where two files stop being equal: which of them ends there. Neither does
// if their bytes differ.
struct Common {
  bool leftEnded;
  bool rightEnded;
};

// Compares all of `left` with the first `rightSize` bytes of `right`.
Common CompareFrom(FileWindow left, FileWindow right, std::uint64_t rightSize) {
  std::string_view inLeft = left.bytes();
  std::string_view inRight = right.bytes();
  for (;;) {
    if (inLeft.empty() && left.Advance(left.bytes().size())) {
      inLeft = left.bytes();
    }
    if (inRight.empty() && rightSize > 0 && right.Advance(right.bytes().size())) {
      inRight = right.bytes();
    }
    inRight = inRight.substr(
        0, static_cast<std::size_t>(std::min<std::uint64_t>(inRight.size(), rightSize)));
    if (inLeft.empty() || inRight.empty()) {
      return {inLeft.empty(), inRight.empty()};
    }
    const std::size_t size = std::min(inLeft.size(), inRight.size());
    if (inLeft.substr(0, size) != inRight.substr(0, size)) {
      return {false, false};
    }
    inLeft.remove_prefix(size);
    inRight.remove_prefix(size);
    rightSize -= size;
  }
}

}  // namespace

void WriteJournal(File& scratch, const std::string& path, const Journal& journal,
                  const Checksum& description, std::size_t blockSize) {
  std::string bytes = journal.head + journal.menu;
  bytes += kMagic;
  for (const std::uint64_t number :
       {journal.descriptionSize, std::uint64_t{journal.head.size()},
        std::uint64_t{journal.menu.size()}, journal.keptSize, journal.keptSum, journal.serial}) {
    AppendNumber(bytes, number);
  }
  Checksum sum = description;
  sum.Add(bytes);
  AppendNumber(bytes, sum.value());
  scratch.Seek(journal.descriptionSize);
  scratch.Write(bytes);
  scratch.Flush();
  const std::optional<Journal> written = ReadJournal(scratch, blockSize);
  if (!written || written->serial != journal.serial) {
    throw Failure(path, "write the file", "It does not hold what was written to it");
  }
}

std::optional<Journal> ReadJournal(File& scratch, std::size_t blockSize) {
  const std::uint64_t size = scratch.Size();
  const std::optional<Numbers> numbers = ReadFooter(scratch, size);
  if (!numbers || SumOfFirst(scratch, size - kNumberSize, blockSize) != (*numbers)[kChecksum]) {
    return std::nullopt;
  }
  const std::uint64_t head = (*numbers)[kDescriptionSize];
  const std::uint64_t name = head + (*numbers)[kHeadSize];
  Journal journal;
  journal.menu = ReadPart(scratch, name, (*numbers)[kNameSize]);
  journal.serial = (*numbers)[kSerial];
  journal.keptSize = (*numbers)[kKeptSize];
  journal.keptSum = (*numbers)[kKeptSum];
  journal.head = ReadPart(scratch, head, (*numbers)[kHeadSize]);
  journal.descriptionSize = (*numbers)[kDescriptionSize];
  return journal;
}

std::uint64_t SumOfFirst(File& file, std::uint64_t size, std::size_t blockSize) {
  Checksum sum;
  FileWindow window(file, blockSize);
  while (size > 0 && window.Advance(window.bytes().size())) {
    const auto part = window.bytes().substr(
        0, static_cast<std::size_t>(std::min<std::uint64_t>(size, window.bytes().size())));
    sum.Add(part);
    size -= part.size();
  }
  return sum.value();
}

std::uint64_t SumBefore(File& file, std::uint64_t offset) {
  constexpr std::uint64_t kMost = 4096;
  const std::uint64_t size = std::min(offset, kMost);
  Checksum sum;
  sum.Add(ReadPart(file, offset - size, size));
  return sum.value();
}

MenuState CompareMenu(File& menu, File& scratch, const Journal& journal, std::size_t blockSize) {
  if (journal.keptSize > 0 &&
      (menu.Size() < journal.keptSize || SumBefore(menu, journal.keptSize) != journal.keptSum)) {
    return MenuState::Replaced;
  }
  const Common common =
      CompareFrom({menu, blockSize, {}, journal.keptSize}, {scratch, blockSize, journal.head},
                  journal.head.size() + journal.descriptionSize);
  // Bytes that follow the added entries came later and do not undo them.
  const bool isAdding = journal.descriptionSize == 0;
  if (common.rightEnded && (common.leftEnded || isAdding)) {
    return MenuState::Finished;
  }
  return common.leftEnded ? MenuState::CutShort : MenuState::Different;
}

}  // namespace menufile
