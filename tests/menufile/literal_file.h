#ifndef CORVALIS_TESTS_MENUFILE_LITERAL_FILE_H_
#define CORVALIS_TESTS_MENUFILE_LITERAL_FILE_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace menufile {

// A file as a program sees it that reads and writes it byte by byte, at
// positions that count from 1. It is slow and plain on purpose: what
// menufile/ makes in big pieces is compared with what this makes.
class LiteralFile {
 public:
  explicit LiteralFile(std::string_view bytes = {}) : bytes_(bytes) {}

  const std::string& bytes() const { return bytes_; }
  std::size_t Length() const { return bytes_.size(); }
  bool AtEnd() const { return position_ > bytes_.size(); }

  // Reads the byte at the position; the next read or write is behind it.
  char GetAt(std::size_t position);
  // Writes the byte at the position; the next read or write is behind it.
  void PutAt(std::size_t position, char byte);
  // Writes directly behind the last byte that was read or written.
  void PutNext(std::string_view text);

  // The bytes up to the next CR, or to the end. The CR, and an LF directly
  // behind it, are passed over.
  std::string ReadLine();

  // One field, as the sequential reader takes it. False when the file ends
  // before the field begins, or in a quoted one before its closing quote.
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
