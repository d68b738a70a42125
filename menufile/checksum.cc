#include "menufile/checksum.h"

#include <bit>
#include <cstring>

namespace menufile {
namespace {

// An odd number with well spread bits. Multiplying by it moves each bit of a word
// into many bits of the product, and two different words give different products.
constexpr std::uint64_t kSpread = 0xD6E8FEB86659FD93;

constexpr std::uint64_t Mix(std::uint64_t state, std::uint64_t word) {
  state = (state ^ word) * kSpread;
  return state ^ (state >> 32);
}

}  // namespace

void Checksum::Add(std::string_view bytes) {
  static_assert(std::endian::native == std::endian::little);
  size_ += bytes.size();
  const auto addByte = [this](char byte) {
    word_ |= std::uint64_t{static_cast<unsigned char>(byte)} << (8 * filled_);
    if (++filled_ == sizeof word_) {
      state_ = Mix(state_, word_);
      word_ = 0;
      filled_ = 0;
    }
  };
  while (filled_ > 0 && !bytes.empty()) {
    addByte(bytes.front());
    bytes.remove_prefix(1);
  }
  std::uint64_t state = state_;
  for (; bytes.size() >= sizeof word_; bytes.remove_prefix(sizeof word_)) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data(), sizeof word);
    state = Mix(state, word);
  }
  state_ = state;
  for (const char byte : bytes) {
    addByte(byte);
  }
}

std::uint64_t Checksum::value() const { return Mix(Mix(state_, word_), size_); }

}  // namespace menufile
