#ifndef CORVALIS_MENUFILE_FAILURE_H_
#define CORVALIS_MENUFILE_FAILURE_H_

#include <cstdint>
#include <exception>
#include <optional>
#include <string>

namespace menufile {

// Thrown by every operation of this folder that cannot go on. It tells the user
// which file was used, what was being done to it, and why that failed.
class Failure : public std::exception {
 public:
  // `path` as it was given to the operation, in the system's ANSI code page.
  // `doing` continues the sentence "Cannot ...", for example "open the file".
  // `reason` is a sentence of its own, without the full stop.
  // `offset` is the 0-based position in bytes at which reading stopped. It is
  // absent if the failure has no position: the file could not be opened, say.
  Failure(std::string path, std::string doing, std::string reason,
          std::optional<std::uint64_t> offset = std::nullopt);

  const std::string& path() const { return path_; }
  const std::string& doing() const { return doing_; }
  const std::string& reason() const { return reason_; }
  std::optional<std::uint64_t> offset() const { return offset_; }

  // The whole message, as text for a message box:
  // "Cannot read entry 3, field startIn, of the file:\nC:\a.menu\n\n
  //  The file ends too early (at byte offset 2310)."
  const char* what() const noexcept override { return message_.c_str(); }

 private:
  std::string path_;
  std::string doing_;
  std::string reason_;
  std::optional<std::uint64_t> offset_;
  std::string message_;
};

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_FAILURE_H_
