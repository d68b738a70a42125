#ifndef CORVALIS_WIN32_ICON_BYTES_H_
#define CORVALIS_WIN32_ICON_BYTES_H_

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <vector>

namespace win32 {

// Thrown when a read goes beyond the end of the file, and for an icon that Wine must
// not read for another reason.
struct BeyondEnd {};

// The bytes of an open file, read in blocks when they are needed. Offsets and sizes
// are in bytes; offsets are 0-based. A read that fails, or that does not lie within
// the file, throws BeyondEnd.
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

// Throws BeyondEnd if Wine would read beyond the end of the file while it makes an icon
// of the image at `offset`. `size` is what the file says the image has.
void CheckIconImage(const IconBytes& file, std::uint64_t offset, std::uint64_t size);

}  // namespace win32

#endif  // CORVALIS_WIN32_ICON_BYTES_H_
