#ifndef CORVALIS_MENUFILE_FILE_SYSTEM_H_
#define CORVALIS_MENUFILE_FILE_SYSTEM_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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

// An open file. The destructor closes it. Offsets and sizes are in bytes, and
// offsets count from 0.
class File {
 public:
  File() = default;
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  virtual ~File() = default;

  // The file's full name: the same text each time the file is opened, whatever
  // path, current directory or letter case it was opened with, and another text
  // for any other file. It is only compared, never opened.
  virtual std::string FullName() = 0;

  virtual std::uint64_t Size() = 0;

  // All bytes of the file, from its first one.
  virtual std::string ReadAll() = 0;

  // Reads the bytes from `offset` on and returns how many there were: as many
  // as fit into `bytes`, fewer only where the file ends.
  virtual std::size_t Read(std::uint64_t offset, std::span<char> bytes) = 0;

  // Cuts the file to its first `size` bytes. The next Write() starts there.
  virtual void Truncate(std::uint64_t size) = 0;

  // The next Write() starts at `offset`.
  virtual void Seek(std::uint64_t offset) = 0;

  // Writes all of `bytes`. The first Write() starts at the first byte of the
  // file, each further one where the last ended.
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

  // Opens the file for reading, as OpenMode::Read does. Returns nullptr when
  // there is no such file, or a folder of that name; a file that cannot be opened
  // is a failure.
  virtual std::unique_ptr<File> OpenIfThere(const std::string& path) = 0;

  // Deletes the file. One that does not exist is a failure.
  virtual void Remove(const std::string& path) = 0;

  // Gives the file another name in the same folder. A file that has that name
  // already is a failure, and stays.
  virtual void Rename(const std::string& path, const std::string& newPath) = 0;

  // The paths of all files that begin with `prefix`, a path itself. In no order.
  virtual std::vector<std::string> FilesThatBeginWith(const std::string& prefix) = 0;

  // The path of the file `name` in the folder of the file at `path`.
  virtual std::string Beside(const std::string& path, const std::string& name) = 0;

  // How many bytes this user may still write to the disk of the file at `path`.
  virtual std::uint64_t FreeBytes(const std::string& path) = 0;

  // The time, in units of 100 nanoseconds. Each call returns more than all before
  // it did, in other programs too where the clock is fine enough to tell.
  virtual std::uint64_t Now() = 0;

  // How many bytes of a file that may be large are read or written at a time:
  // few enough for the processor's cache, many enough for each call to be
  // worth it. Tests have less.
  virtual std::size_t BlockSize() const { return std::size_t{64} * 1024; }
};

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_FILE_SYSTEM_H_
