#ifndef CORVALIS_TESTS_MENUFILE_LITERAL_FILE_H_
#define CORVALIS_TESTS_MENUFILE_LITERAL_FILE_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace menufile {

// A file that is read and written byte by byte, at 1-based positions. It is slow and
// simple on purpose: the tests compare menufile/, which works in blocks, with it.
class LiteralFile {
 public:
  explicit LiteralFile(std::string_view bytes = {}) : bytes_(bytes) {}

  const std::string& bytes() const { return bytes_; }
  std::size_t Length() const { return bytes_.size(); }
  bool AtEnd() const { return position_ > bytes_.size(); }

  // Reads the byte at the position. The next read or write comes after it.
  char GetAt(std::size_t position);
  // Writes the byte at the position. The next read or write comes after it.
  void PutAt(std::size_t position, char byte);
  // Writes right after the last byte that was read or written.
  void PutNext(std::string_view text);

  // Returns the bytes up to the next CR or the end. Skips the CR, and an LF right after
  // it.
  std::string ReadLine();

  // Reads one field. Returns false if the file ends before the field begins, or before
  // the closing quote of a quoted one.
  struct Field {
    std::string text;  // a number in the form in which it is written
    char kind = 'E';   // E for empty, N for a number, T for text
  };
  bool ReadField(Field& field);

 private:
  char Next() { return bytes_[position_++ - 1]; }
  char Peek() const { return bytes_[position_ - 1]; }
  void EndField();

  std::string bytes_;
  std::size_t position_ = 1;
};

// `text` without the spaces at its ends.
std::string Trimmed(const std::string& text);

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_LITERAL_FILE_H_
