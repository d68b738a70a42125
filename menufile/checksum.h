#ifndef CORVALIS_MENUFILE_CHECKSUM_H_
#define CORVALIS_MENUFILE_CHECKSUM_H_

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
  std::uint64_t state_ = 0x9E3779B97F4A7C15;
  std::uint64_t word_ = 0;  // the bytes that do not fill a word yet, the first one lowest
  unsigned filled_ = 0;     // the number of bytes in word_
  std::uint64_t size_ = 0;  // the number of bytes added
};

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_CHECKSUM_H_
