#ifndef CORVALIS_MENUFILE_FILE_SYSTEM_H_
#define CORVALIS_MENUFILE_FILE_SYSTEM_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace menufile {

enum class OpenMode {
  // An existing file for reading, whatever other programs do with it.
  Read,
  // An existing file for reading and writing, while no one else may write it.
  Change,
  // A file for reading and writing, made if there is none; what it holds
  // already stays. No one else may write or delete it meanwhile.
  Create,
};

// An open file. The destructor closes it.
class File {
 public:
  File() = default;
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  virtual ~File() = default;

  // All bytes of the file, from its first one.
  virtual std::string ReadAll() = 0;

  // Reads the bytes from the 0-based `offset` on and returns how many there
  // were: as many as fit into `bytes`, fewer only where the file ends.
  virtual std::size_t Read(std::uint64_t offset, std::span<char> bytes) = 0;

  // Cuts the file to its first `size` bytes; the next Write() starts behind
  // them.
  virtual void Truncate(std::uint64_t size) = 0;

  // Moves behind the last byte, where the next Write() starts, and returns the
  // number of bytes before it.
  virtual std::uint64_t SeekToEnd() = 0;

  // Writes all of `bytes` directly behind the last byte that this object
  // wrote, and from the first byte of the file when it has written none.
  virtual void Write(std::string_view bytes) = 0;

  // Returns once everything written stands on the disk itself.
  virtual void Flush() = 0;
};

// The files as this folder sees them: everything that it does to a disk goes
// through here, so that tests can make any of it fail. Paths are in the
// system's ANSI code page; one without a folder means the current directory.
// Every operation throws Failure when it did not succeed.
class FileSystem {
 public:
  FileSystem() = default;
  FileSystem(const FileSystem&) = delete;
  FileSystem& operator=(const FileSystem&) = delete;
  virtual ~FileSystem() = default;

  virtual std::unique_ptr<File> Open(const std::string& path, OpenMode mode) = 0;

  // Deletes the file. One that does not exist is a failure.
  virtual void Remove(const std::string& path) = 0;

  // Whether both paths name one file, which exists. Never throws.
  virtual bool IsSameFile(const std::string& path, const std::string& other) {
    return path == other;
  }

  // When the file was last written: the greater number is the later time.
  virtual std::uint64_t LastWritten(const std::string& path) = 0;

  // How many bytes of a file that may be large are read or written at a time:
  // few enough for the processor's cache, many enough for each call to be
  // worth it. Tests have less.
  virtual std::size_t BlockSize() const { return std::size_t{64} * 1024; }
};

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_FILE_SYSTEM_H_
