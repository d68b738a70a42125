#include "menufile/checksum.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace menufile {
namespace {

// An odd number with well spread bits. Multiplying by it moves each bit of a word
// into many bits of the product, and two different words give different products.
constexpr std::uint64_t kSpread = 0xD6E8FEB86659FD93;

// The upper half of a product is mixed best. It becomes the lower half, which the next
// multiplication spreads.
constexpr std::uint64_t Mix(std::uint64_t sum, std::uint64_t word) {
  return std::rotl((sum ^ word) * kSpread, 32);
}

}  // namespace

void Checksum::AddBlock(Sums& sums, const char* bytes) {
  static_assert(std::endian::native == std::endian::little);
  Sums words;
  std::memcpy(words.data(), bytes, sizeof words);
  // One line each: GCC 12 does not unroll the loop, and needs twice the time.
  sums[0] = Mix(sums[0], words[0]);
  sums[1] = Mix(sums[1], words[1]);
  sums[2] = Mix(sums[2], words[2]);
  sums[3] = Mix(sums[3], words[3]);
}

void Checksum::Add(std::string_view bytes) {
  const std::size_t filled = Filled();
  size_ += bytes.size();
  if (filled > 0) {
    const std::size_t taken = bytes.copy(rest_.data() + filled, rest_.size() - filled);
    if (filled + taken < rest_.size()) {
      return;
    }
    AddBlock(sums_, rest_.data());
    bytes.remove_prefix(taken);
  }
  Sums sums = sums_;
  for (; bytes.size() >= rest_.size(); bytes.remove_prefix(rest_.size())) {
    AddBlock(sums, bytes.data());
  }
  sums_ = sums;
  bytes.copy(rest_.data(), bytes.size());
}

std::uint64_t Checksum::value() const {
  Sums sums = sums_;
  Block last{};
  std::copy_n(rest_.begin(), Filled(), last.begin());
  AddBlock(sums, last.data());
  std::uint64_t sum = size_;
  for (const std::uint64_t part : sums) {
    sum = Mix(sum, part);
  }
  return sum;
}

}  // namespace menufile
