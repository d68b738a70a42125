#ifndef CORVALIS_MENUFILE_VALUE_H_
#define CORVALIS_MENUFILE_VALUE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace menufile {

// One field of a record. A quoted field is text. A bare field is a number if all of
// it reads as one, empty if it has no characters, and text otherwise.
//
// A value borrows its characters from the bytes of the file or from the text that it
// was made of, which have to outlive it.
class Value {
 public:
  enum class Kind : std::uint8_t { Empty, Number, Text };

  // The empty value. It equals the empty text and the number 0.
  constexpr Value() = default;

  // A field in double quotes. `text` is without the quotes.
  static constexpr Value Quoted(std::string_view text) { return Value(text, true); }

  // A field without quotes.
  static constexpr Value Bare(std::string_view text) { return Value(text, false); }

  Kind kind() const;

  // The characters of the field, without its quotes.
  std::string_view characters() const { return characters_; }

  // True if the field has no characters, quoted or not.
  bool IsEmpty() const { return characters_.empty(); }

  // The value as text. Text comes back byte for byte. A number comes back in its
  // shortest decimal form that reads back equal: 7 for 007, 8.25 for 8.250.
  std::string Text() const;
  // Appends Text() to `out`.
  void AppendTo(std::string& out) const {
    if (quoted_) {
      out += characters_;
    } else {
      AppendBareTo(out);
    }
  }

  // The value as a number. Text counts as the number that it begins with, or as 0 if
  // it begins with none.
  double Number() const;

  // Number() rounded to the nearest integer (halves to the even one) and limited to
  // the range of an int.
  int Integer() const;

 private:
  constexpr Value(std::string_view characters, bool quoted)
      : characters_(characters), quoted_(quoted) {}

  void AppendBareTo(std::string& out) const;

  std::string_view characters_;
  bool quoted_ = false;
};

// The shortest decimal text that reads back as `number`. The decimal separator is a
// point in every locale. Very large and very small numbers have an exponent (1e+20).
std::string NumberText(double number);

// A font size as the file holds it: a decimal with at most four fractional digits and
// no trailing zeros (8.25, 10). It is rounded from the shortest decimal that reads
// back as `points`, halves to the even digit. Returns nothing if `points` is not
// finite.
std::optional<std::string> FontSizeText(double points);

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_VALUE_H_
