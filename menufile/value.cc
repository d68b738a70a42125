#include "menufile/value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>

namespace menufile {
namespace {

struct Parsed {
  double number;
  std::size_t length;  // the number of characters that belong to it
};

// Reads the number that `text` begins with: sign, digits, point, exponent.
std::optional<Parsed> ParseLeadingNumber(std::string_view text) {
  const char* begin = text.data();
  const char* end = begin + text.size();
  const char* digits = begin;
  if (digits != end && (*digits == '+' || *digits == '-')) {
    ++digits;
  }
  // from_chars() also takes "inf" and "nan", which are text in a menu file.
  if (digits == end || !((*digits >= '0' && *digits <= '9') || *digits == '.')) {
    return std::nullopt;
  }
  double number = 0;
  const auto [stop, error] = std::from_chars(digits, end, number);
  if (error != std::errc{}) {
    return std::nullopt;
  }
  if (*begin == '-') {
    number = -number;
  }
  return Parsed{number, static_cast<std::size_t>(stop - begin)};
}

std::optional<double> ParseNumber(std::string_view text) {
  const std::optional<Parsed> parsed = ParseLeadingNumber(text);
  if (!parsed || parsed->length != text.size()) {
    return std::nullopt;
  }
  return parsed->number;
}

// True if the text is an integer in its shortest form. Nearly every number in a menu
// file is one, and checking its characters saves two conversions.
bool IsPlainInteger(std::string_view text) {
  constexpr std::size_t kExactDigits = 15;
  const std::string_view digits = text.substr(!text.empty() && text[0] == '-' ? 1 : 0);
  if (digits.empty() || digits.size() > kExactDigits) {
    return false;
  }
  if (digits[0] == '0') {
    return text.size() == 1;
  }
  return std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

Value::Kind Value::kind() const {
  if (quoted_) {
    return Kind::Text;
  }
  if (characters_.empty()) {
    return Kind::Empty;
  }
  return IsPlainInteger(characters_) || ParseNumber(characters_) ? Kind::Number : Kind::Text;
}

std::string Value::Text() const {
  std::string text;
  AppendTo(text);
  return text;
}

void Value::AppendBareTo(std::string& out) const {
  if (!IsPlainInteger(characters_)) {
    if (const std::optional<double> number = ParseNumber(characters_)) {
      out += NumberText(*number);
      return;
    }
  }
  out += characters_;
}

double Value::Number() const {
  std::string_view text = characters_;
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const std::optional<Parsed> parsed = ParseLeadingNumber(text);
  return parsed ? parsed->number : 0;
}

int Value::Integer() const {
  constexpr double kLeast = std::numeric_limits<int>::min();
  constexpr double kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(std::nearbyint(Number()), kLeast, kMost));
}

std::string NumberText(double number) {
  if (number == 0) {
    return "0";  // for -0, too
  }
  // Outside these limits, most of the plain digits would be zeros.
  constexpr double kLeastPlain = 1e-4;
  constexpr double kLeastWithExponent = 1e16;
  const double size = std::fabs(number);
  const std::chars_format format = size >= kLeastPlain && size < kLeastWithExponent
                                       ? std::chars_format::fixed
                                       : std::chars_format::scientific;
  char text[32];
  const auto result = std::to_chars(text, text + sizeof text, number, format);
  return std::string(text, result.ptr);
}

std::optional<std::string> FontSizeText(double points) {
  if (!std::isfinite(points)) {
    return std::nullopt;
  }
  constexpr std::size_t kFractionalDigits = 4;
  // The greatest number has 309 digits before the point, the least 324 zeros and
  // some digits after it.
  char buffer[800];
  auto* const end =
      std::to_chars(buffer, buffer + sizeof buffer, std::fabs(points), std::chars_format::fixed)
          .ptr;
  std::string digits(buffer, end);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::string rest = digits.substr(std::min(point + 1 + kFractionalDigits, digits.size()));
  std::string fraction = digits.substr(std::min(point + 1, digits.size()), kFractionalDigits);
  fraction.resize(kFractionalDigits, '0');
  digits = '0' + digits.substr(0, point) + fraction;  // room for a carry
  const bool isEven = (digits.back() - '0') % 2 == 0;
  if (isEven ? rest > "5" : rest >= "5") {
    auto digit = digits.rbegin();
    for (; *digit == '9'; ++digit) {
      *digit = '0';
    }
    ++*digit;
  }
  digits.insert(digits.size() - kFractionalDigits, 1, '.');
  digits.erase(digits.find_last_not_of('0') + 1);
  if (digits.back() == '.') {
    digits.pop_back();
  }
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
  if (digits.empty() || digits.front() == '.') {
    digits.insert(0, 1, '0');
  }
  return points < 0 && digits != "0" ? '-' + digits : digits;
}

}  // namespace menufile
