#include "tests/menufile/literal_file.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace menufile {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// True if the text is just a sign, digits with a point, and an exponent: of what strtod()
// reads, only words, hexadecimal numbers and spaces have other characters.
bool LooksLikeNumber(const std::string& text) {
  char* end = nullptr;
  std::strtod(text.c_str(), &end);
  return !text.empty() && text.find_first_not_of("0123456789+-.eE") == std::string::npos &&
         end == text.c_str() + text.size();
}

// Sets `shortest` to the shortest form of a number. Returns false if it is too large or
// too small for a number.
bool ShortestText(const std::string& text, std::string& shortest) {
  const double number = std::strtod(text.c_str(), nullptr);
  const bool hasDigit =
      text.substr(0, text.find_first_of("eE")).find_first_of("123456789") != std::string::npos;
  if (std::isinf(number) || (number == 0 && hasDigit)) {
    return false;
  }
  if (number == 0) {
    shortest = "0";
    return true;
  }
  char buffer[64];
  for (int digits = 0; digits < 17; ++digits) {
    std::snprintf(buffer, sizeof buffer, "%.*e", digits, number);
    if (std::strtod(buffer, nullptr) == number) {
      break;
    }
  }
  shortest = buffer;
  // From 0.0001 up to 1e16, all digits are written.
  const double size = std::fabs(number);
  if (size < 1e-4 || size >= 1e16) {
    return true;
  }
  const bool negative = shortest[0] == '-';
  const std::size_t e = shortest.find('e');
  const int exponent = std::atoi(shortest.c_str() + e + 1);
  std::string digits;
  for (char c : shortest.substr(0, e)) {
    if (IsDigit(c)) {
      digits += c;
    }
  }
  if (exponent < 0) {
    shortest = "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
  } else {
    const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole) {
      shortest = digits + std::string(whole - digits.size(), '0');
    } else {
      shortest = digits.substr(0, whole) + '.' + digits.substr(whole);
    }
  }
  if (negative) {
    shortest = '-' + shortest;
  }
  return true;
}

}  // namespace

char LiteralFile::GetAt(std::size_t position) {
  position_ = position;
  return Next();
}

void LiteralFile::PutAt(std::size_t position, char byte) {
  position_ = position;
  PutNext(std::string_view(&byte, 1));
}

void LiteralFile::PutNext(std::string_view text) {
  for (char c : text) {
    if (position_ > bytes_.size()) {
      bytes_ += c;
    } else {
      bytes_[position_ - 1] = c;
    }
    ++position_;
  }
}

std::string LiteralFile::ReadLine() {
  std::string line;
  while (!AtEnd()) {
    const char c = Next();
    if (c == '\r') {
      if (!AtEnd() && Peek() == '\n') {
        Next();
      }
      break;
    }
    line += c;
  }
  return line;
}

bool LiteralFile::ReadField(Field& field) {
  field = Field();
  while (!AtEnd() && Peek() == ' ') {
    Next();
  }
  if (AtEnd()) {
    return false;
  }
  if (Peek() == '"') {
    Next();
    field.kind = 'T';
    while (!AtEnd() && Peek() != '"') {
      field.text += Next();
    }
    if (AtEnd()) {
      return false;
    }
    Next();
    while (!AtEnd() && Peek() != ',' && Peek() != '\r' && Peek() != '\n') {
      Next();
    }
    EndField();
    return true;
  }
  while (!AtEnd() && Peek() != ',' && Peek() != '\r' && Peek() != '\n') {
    field.text += Next();
  }
  EndField();
  field.text = Trimmed(field.text);
  if (field.text.empty()) {
    return true;
  }
  field.kind = 'T';
  std::string shortest;
  if (LooksLikeNumber(field.text) && ShortestText(field.text, shortest)) {
    field.kind = 'N';
    field.text = shortest;
  }
  return true;
}

void LiteralFile::EndField() {
  if (AtEnd()) {
    return;
  }
  const char c = Next();
  if (c == '\r' && !AtEnd() && Peek() == '\n') {
    Next();
  }
}

std::string Trimmed(const std::string& text) {
  std::size_t begin = 0;
  std::size_t end = text.size();
  while (begin < end && text[begin] == ' ') {
    ++begin;
  }
  while (end > begin && text[end - 1] == ' ') {
    --end;
  }
  return text.substr(begin, end - begin);
}

}  // namespace menufile
