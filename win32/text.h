#ifndef CORVALIS_WIN32_TEXT_H_
#define CORVALIS_WIN32_TEXT_H_

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

// Where bytes become text and text becomes bytes. A menu file holds bytes in the
// system's ANSI code page, any byte at any place: a std::string. What the user
// sees and types is UTF-16: a std::wstring.
namespace win32 {

// The characters that the bytes stand for. Bytes that stand for none, a lead byte
// at the end for one, become U+FFFD.
std::wstring ToText(std::string_view bytes);

// The bytes of a text; nothing when the code page does not hold each of its
// characters, or when U+FFFD is among them. None is replaced by one that looks like
// it, or by a question mark.
std::optional<std::string> ToBytes(std::wstring_view text);

// The same for a path. The parts of it that the code page does not hold are
// replaced by their short (8.3) names; nothing when a part has none, or none is
// there. A part with wildcards names no one file, and so has none.
std::optional<std::string> PathToBytes(std::wstring_view path);

// Bytes of a menu file and the text that a box shows for them. While the user
// leaves it as it is, the very bytes go back, which the text may not tell.
struct ShownBytes {
  std::string bytes;
  std::wstring text;

  bool IsShownBy(std::wstring_view box) const { return box == text; }
  // Of what the box says now; nothing as for ToBytes().
  std::optional<std::string> BytesOf(std::wstring_view box) const {
    return IsShownBy(box) ? bytes : ToBytes(box);
  }
  // The same for a path, as for PathToBytes().
  std::optional<std::string> PathBytesOf(std::wstring_view box) const {
    return IsShownBy(box) ? bytes : PathToBytes(box);
  }
};

// Thrown where nothing can be done for text that the code page does not hold.
class TextFailure : public std::exception {
 public:
  // All of it, for a message box.
  explicit TextFailure(std::wstring text) : text_(std::move(text)) {}

  const std::wstring& text() const { return text_; }
  // Who can show only this is not told which text it was.
  const char* what() const noexcept override {
    return "A text has characters that the system's code page does not hold.";
  }

 private:
  std::wstring text_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_TEXT_H_
