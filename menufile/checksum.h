#ifndef CORVALIS_MENUFILE_CHECKSUM_H_
#define CORVALIS_MENUFILE_CHECKSUM_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace menufile {

// A checksum of bytes that are added piece by piece; where one piece ends does
// not matter. It tells a write that was torn by a power cut from a whole one. It
// is no protection from somebody who forges a file.
class Checksum {
 public:
  void Add(std::string_view bytes);
  // Of all bytes added so far, and of their number.
  std::uint64_t value() const;

 private:
  std::uint64_t state_ = 0x9E3779B97F4A7C15;
  std::uint64_t word_ = 0;  // bytes that do not fill a word yet, the first one lowest
  unsigned filled_ = 0;     // how many those are
  std::uint64_t size_ = 0;  // of all bytes added
};

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_CHECKSUM_H_
