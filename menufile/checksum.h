#ifndef CORVALIS_MENUFILE_CHECKSUM_H_
#define CORVALIS_MENUFILE_CHECKSUM_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace menufile {

// A 64-bit checksum of bytes that are added piece by piece. The boundaries between
// the pieces do not change it. It detects a write that a power cut tore. It does not
// protect against a forged file.
class Checksum {
 public:
  void Add(std::string_view bytes);
  // The checksum of all bytes added so far and of their number.
  std::uint64_t value() const;

 private:
  // Four sums, so that the processor can work on them at one time. Each takes every
  // fourth 64-bit word.
  using Sums = std::array<std::uint64_t, 4>;
  using Block = std::array<char, sizeof(Sums)>;

  static void AddBlock(Sums& sums, const char* bytes);
  std::size_t Filled() const { return static_cast<std::size_t>(size_ % sizeof(Block)); }

  Sums sums_{0x9E3779B97F4A7C15, 0xBF58476D1CE4E5B9, 0x94D049BB133111EB, 0x2545F4914F6CDD1D};
  Block rest_{};            // its first Filled() bytes do not fill a block yet
  std::uint64_t size_ = 0;  // the number of bytes added
};

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_CHECKSUM_H_
