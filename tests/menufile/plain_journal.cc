#include "tests/menufile/plain_journal.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace menufile {
namespace {

constexpr std::string_view kMagic = "Corvalis journal";
constexpr std::size_t kNumbers = 7;
constexpr std::size_t kFooterSize = kMagic.size() + 8 * kNumbers;

// The number in up to eight bytes, the lowest one first.
std::uint64_t NumberIn(std::string_view bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    number += std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
  }
  return number;
}

// Word n of the bytes, with zeros after the last byte, goes to sum n modulo 4.
std::uint64_t SumOf(std::string_view bytes) {
  const auto add = [](std::uint64_t& sum, std::uint64_t number) {
    sum = (sum ^ number) * 0xD6E8FEB86659FD93;
    sum = (sum >> 32) + (sum << 32);
  };
  std::uint64_t sums[] = {0x9E3779B97F4A7C15, 0xBF58476D1CE4E5B9, 0x94D049BB133111EB,
                          0x2545F4914F6CDD1D};
  const std::size_t words = bytes.size() / 32 * 4 + 4;
  for (std::size_t word = 0; word < words; ++word) {
    add(sums[word % 4], NumberIn(bytes.substr(std::min(8 * word, bytes.size()), 8)));
  }
  std::uint64_t sum = bytes.size();
  for (const std::uint64_t part : sums) {
    add(sum, part);
  }
  return sum;
}

}  // namespace

std::string PlainJournal::FinishedFrom(std::string_view menuBytes) const {
  return std::string(menuBytes.substr(0, keptSize)) + head + description;
}

std::optional<PlainJournal> ReadPlainly(std::string_view scratchBytes) {
  if (scratchBytes.size() < kFooterSize) {
    return std::nullopt;
  }
  const std::size_t before = scratchBytes.size() - kFooterSize;
  if (scratchBytes.substr(before, kMagic.size()) != kMagic) {
    return std::nullopt;
  }
  std::array<std::uint64_t, kNumbers> numbers;
  for (std::size_t i = 0; i < kNumbers; ++i) {
    numbers[i] = NumberIn(scratchBytes.substr(before + kMagic.size() + 8 * i, 8));
  }
  const auto [descriptionSize, headSize, nameSize, keptSize, keptSum, serial, sum] = numbers;
  if (descriptionSize > before || headSize > before - descriptionSize ||
      nameSize != before - descriptionSize - headSize ||
      SumOf(scratchBytes.substr(0, scratchBytes.size() - 8)) != sum) {
    return std::nullopt;
  }
  const auto text = [&](std::uint64_t at, std::uint64_t size) {
    return std::string(
        scratchBytes.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(size)));
  };
  return PlainJournal{text(0, descriptionSize), text(descriptionSize, headSize),
                      text(descriptionSize + headSize, nameSize), keptSize, serial};
}

}  // namespace menufile
