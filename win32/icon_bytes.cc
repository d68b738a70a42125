#include "win32/icon_bytes.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace win32 {
namespace {

constexpr BYTE kPngSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

struct Bitmap {
  std::uint64_t headerSize = 0;  // in bytes, with masks and palette
  std::uint64_t width = 0;       // in pixels
  std::uint64_t height = 0;      // in pixels, picture and mask together
  WORD bitsPerPixel = 0;
};

std::uint64_t PaletteColours(DWORD used, WORD bitsPerPixel) {
  constexpr DWORD kMost = 256;
  return used == 0 && bitsPerPixel <= 8 ? 1U << bitsPerPixel : std::min(used, kMost);
}

Bitmap ReadBitmap(const IconBytes& file, std::uint64_t offset) {
  const auto headerSize = file.Read<DWORD>(offset);
  if (headerSize == sizeof(BITMAPCOREHEADER)) {
    const auto header = file.Read<BITMAPCOREHEADER>(offset);
    const std::uint64_t palette =
        PaletteColours(0, header.bcBitCount <= 8 ? header.bcBitCount : WORD{16});
    return {headerSize + palette * sizeof(RGBTRIPLE), header.bcWidth, header.bcHeight,
            header.bcBitCount};
  }
  const auto header = file.Read<BITMAPINFOHEADER>(offset);
  // Anything else may be an animated icon, and Wine does not check the sizes in those.
  const bool isKnown = headerSize == sizeof(BITMAPINFOHEADER) ||
                       headerSize == sizeof(BITMAPV4HEADER) || headerSize == sizeof(BITMAPV5HEADER);
  const bool hasMasks = header.biCompression == BI_BITFIELDS;
  if (!isKnown || (header.biCompression != BI_RGB && !hasMasks) || header.biWidth <= 0 ||
      header.biHeight == std::numeric_limits<LONG>::min()) {
    throw BeyondEnd{};
  }
  const std::uint64_t withMasks = sizeof header + (hasMasks ? 3 * sizeof(DWORD) : 0);
  return {std::max<std::uint64_t>(headerSize, withMasks) +
              PaletteColours(header.biClrUsed, header.biBitCount) * sizeof(RGBQUAD),
          static_cast<std::uint64_t>(header.biWidth),
          static_cast<std::uint64_t>(std::abs(header.biHeight)), header.biBitCount};
}

// Rows are padded to a multiple of four bytes.
std::uint64_t PixelBytes(std::uint64_t width, std::uint64_t height, WORD bitsPerPixel) {
  return (width * bitsPerPixel + 31) / 32 * 4 * height;
}

}  // namespace

IconBytes::IconBytes(HANDLE file) : file_(file) {
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file, &size)) {
    size_ = static_cast<std::uint64_t>(size.QuadPart);
  }
}

void IconBytes::RequireRange(std::uint64_t offset, std::uint64_t size) const {
  if (offset > size_ || size > size_ - offset) {
    throw BeyondEnd{};
  }
}

std::vector<BYTE> IconBytes::ReadBytes(std::uint64_t offset, std::size_t size) const {
  RequireRange(offset, size);
  std::vector<BYTE> bytes;
  bytes.reserve(size);
  while (bytes.size() < size) {
    const std::uint64_t at = offset + bytes.size();
    const std::vector<BYTE>& block = Block(at / kBlockSize);
    const std::size_t start = at % kBlockSize;
    if (start >= block.size()) {
      throw BeyondEnd{};  // the file has become shorter
    }
    const std::size_t count = std::min(block.size() - start, size - bytes.size());
    bytes.insert(bytes.end(), block.begin() + static_cast<std::ptrdiff_t>(start),
                 block.begin() + static_cast<std::ptrdiff_t>(start + count));
  }
  return bytes;
}

const std::vector<BYTE>& IconBytes::Block(std::uint64_t number) const {
  const auto [place, isNew] = blocks_.try_emplace(number);
  std::vector<BYTE>& block = place->second;
  if (isNew) {
    const std::uint64_t offset = number * kBlockSize;
    OVERLAPPED at{};
    at.Offset = static_cast<DWORD>(offset);
    at.OffsetHigh = static_cast<DWORD>(offset >> 32);
    DWORD done = 0;
    block.resize(kBlockSize);
    block.resize(ReadFile(file_, block.data(), kBlockSize, &done, &at) ? done : 0);
  }
  return block;
}

void CheckIconImage(const IconBytes& file, std::uint64_t offset, std::uint64_t size) {
  // Wine reads the first bytes, whatever the size is.
  const std::vector<BYTE> start = file.ReadBytes(offset, sizeof kPngSignature);
  if (std::equal(start.begin(), start.end(), kPngSignature)) {
    file.RequireRange(offset, size);
    return;
  }
  const Bitmap bitmap = ReadBitmap(file, offset);
  const WORD bits = bitmap.bitsPerPixel;
  constexpr std::array<WORD, 6> kDepths = {1, 4, 8, 16, 24, 32};
  constexpr std::uint64_t kLongestSide = 0x8000;
  if (std::find(kDepths.begin(), kDepths.end(), bits) == kDepths.end() ||
      bitmap.width > kLongestSide || bitmap.height > 2 * kLongestSide) {
    throw BeyondEnd{};
  }
  const std::uint64_t colours = PixelBytes(bitmap.width, bitmap.height / 2, bits);
  const std::uint64_t mask = PixelBytes(bitmap.width, bitmap.height / 2, 1);
  const std::uint64_t withoutMask = bitmap.headerSize + colours;
  if (withoutMask > static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max())) {
    throw BeyondEnd{};  // Wine calculates with 32 bits, which would overflow
  }
  if (withoutMask > size) {
    return;  // Wine checks this itself
  }
  file.RequireRange(offset, withoutMask + (mask <= size - withoutMask ? mask : 0));
}

}  // namespace win32
