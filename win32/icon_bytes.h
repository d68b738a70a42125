#ifndef CORVALIS_WIN32_ICON_BYTES_H_
#define CORVALIS_WIN32_ICON_BYTES_H_

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <vector>

namespace win32 {

// Thrown when a read goes beyond the end of the file.
struct BeyondEnd {};

// The bytes of an open file, read in blocks as they are asked for. Offsets are
// 0-based. A read that does not lie wholly in the file, or fails, throws
// BeyondEnd.
class IconBytes {
 public:
  // Borrows the file.
  explicit IconBytes(HANDLE file);

  std::uint64_t size() const { return size_; }
  void RequireRange(std::uint64_t offset, std::uint64_t size) const;
  std::vector<BYTE> ReadBytes(std::uint64_t offset, std::size_t size) const;

  template <typename T>
  T Read(std::uint64_t offset) const {
    const std::vector<BYTE> bytes = ReadBytes(offset, sizeof(T));
    T value{};
    std::memcpy(&value, bytes.data(), sizeof value);
    return value;
  }

 private:
  static constexpr std::size_t kBlockSize = 4096;

  const std::vector<BYTE>& Block(std::uint64_t number) const;

  HANDLE file_;
  std::uint64_t size_ = 0;
  mutable std::map<std::uint64_t, std::vector<BYTE>> blocks_;
};

// Throws BeyondEnd unless Wine can make an icon of the image at that offset, of
// which it is told that it has that size, or gives up in time.
void CheckIconImage(const IconBytes& file, std::uint64_t offset, std::uint64_t size);

}  // namespace win32

#endif  // CORVALIS_WIN32_ICON_BYTES_H_
