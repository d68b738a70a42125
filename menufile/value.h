#ifndef CORVALIS_MENUFILE_VALUE_H_
#define CORVALIS_MENUFILE_VALUE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace menufile {

// One field as the reader found it. The format does not say what type a field
// has: a quoted field is text, a bare one is a number when it reads as one and
// text otherwise, and a field without any characters is empty.
//
// A value borrows its characters, from the bytes of the file or from the text
// it was made of; it is good for as long as they are.
class Value {
 public:
  enum class Kind : std::uint8_t { Empty, Number, Text };

  // The empty value. It equals the empty text and the number 0.
  constexpr Value() = default;

  // The value of a field in double quotes, or of a text that is to be written.
  static constexpr Value Quoted(std::string_view text) { return Value(text, true); }

  // The value of a field without quotes, or of a number that is to be written.
  static constexpr Value Bare(std::string_view text) { return Value(text, false); }

  Kind kind() const;

  // Whether the value equals the empty text.
  bool IsEmpty() const { return characters_.empty(); }

  // The value as text. Text comes back as it was, whatever bytes are in it; a
  // number in the shortest decimal form that reads back equal: 7 for 007, 8.25
  // for 8.250.
  std::string Text() const;
  void AppendTo(std::string& out) const {
    if (quoted_) {
      out += characters_;
    } else {
      AppendBareTo(out);
    }
  }

  // The value as a number: text counts with the number that it begins with,
  // and as 0 when it begins with none.
  double Number() const;

  // Number() rounded to the nearest integer (halves to the even one) and kept
  // within the range of an int.
  int Integer() const;

 private:
  constexpr Value(std::string_view characters, bool quoted)
      : characters_(characters), quoted_(quoted) {}

  void AppendBareTo(std::string& out) const;

  std::string_view characters_;
  bool quoted_ = false;
};

// The shortest decimal text that reads back as `number`, with a point whatever
// the user's locale: plain digits where they suffice, otherwise with an
// exponent (1e+20).
std::string NumberText(double number);

// A font size as the format wants it: fixed point with at most four fractional
// digits, rounded from the shortest decimal that reads back as `points` (halves to
// the even digit), without trailing zeros and point (8.25, 10). Nothing for a size
// that is no finite number.
std::optional<std::string> FontSizeText(double points);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_VALUE_H_
