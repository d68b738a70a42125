#ifndef CORVALIS_WIN32_TEXT_H_
#define CORVALIS_WIN32_TEXT_H_

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

// Converts between bytes and text. A menu file holds bytes in the system's ANSI code
// page, and any byte may occur: a std::string. What the user sees and types is UTF-16:
// a std::wstring.
namespace win32 {

// Converts bytes to text. Bytes that stand for no character, such as a lead byte at
// the end, become U+FFFD.
std::wstring ToText(std::string_view bytes);

// Converts text to bytes. Returns nothing if a character is not in the code page, or
// is U+FFFD. No character is replaced by a similar one or by a question mark.
std::optional<std::string> ToBytes(std::wstring_view text);

// Converts a path to bytes. Parts that the code page cannot hold are replaced by their
// short (8.3) names. Returns nothing if such a part has no short name, does not exist
// or contains wildcards.
std::optional<std::string> PathToBytes(std::wstring_view path);

// Bytes of a menu file and the text that a box shows for them. As long as the user does
// not change that text, the same bytes are written again, even if the text does not
// convert back to them.
struct ShownBytes {
  std::string bytes;
  std::wstring text;

  bool IsShownBy(std::wstring_view box) const { return box == text; }
  // The bytes for the present text of the box; nothing if ToBytes() returns nothing.
  std::optional<std::string> BytesOf(std::wstring_view box) const {
    return IsShownBy(box) ? bytes : ToBytes(box);
  }
  // The same with PathToBytes().
  std::optional<std::string> PathBytesOf(std::wstring_view box) const {
    return IsShownBy(box) ? bytes : PathToBytes(box);
  }
};

// Thrown for text that the code page cannot hold, if there is no way to go on.
class TextFailure : public std::exception {
 public:
  // `text` is the whole message, for a message box.
  explicit TextFailure(std::wstring text) : text_(std::move(text)) {}

  const std::wstring& text() const { return text_; }
  // The message in ASCII; it cannot contain the text itself.
  const char* what() const noexcept override {
    return "A text has characters that the system's code page does not hold.";
  }

 private:
  std::wstring text_;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_TEXT_H_
