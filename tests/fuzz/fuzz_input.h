#ifndef CORVALIS_TESTS_FUZZ_FUZZ_INPUT_H_
#define CORVALIS_TESTS_FUZZ_FUZZ_INPUT_H_

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

// Ends the process if `holds` is false: a fuzz target reports a fault that way.
inline void Require(bool holds, const char* what) {
  if (!holds) {
    std::fprintf(stderr, "not true: %s\n", what);
    std::abort();
  }
}

// Reads values from the bytes of a fuzz target. Bytes after the end count as 0.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size)
      : left_(reinterpret_cast<const char*>(data), size) {}

  bool Empty() const { return left_.empty(); }

  unsigned Byte() {
    if (left_.empty()) {
      return 0;
    }
    const auto byte = static_cast<unsigned char>(left_.front());
    left_.remove_prefix(1);
    return byte;
  }

  // Reads a byte with the length, then as many bytes.
  std::string Text() {
    const std::size_t size = Byte();
    const std::string text(left_.substr(0, size));
    left_.remove_prefix(text.size());
    return text;
  }

  std::string Rest() {
    const std::string rest(left_);
    left_ = {};
    return rest;
  }

 private:
  std::string_view left_;
};

#endif  // CORVALIS_TESTS_FUZZ_FUZZ_INPUT_H_
