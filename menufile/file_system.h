#ifndef CORVALIS_MENUFILE_FILE_SYSTEM_H_
#define CORVALIS_MENUFILE_FILE_SYSTEM_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace menufile {

enum class OpenMode {
  // An existing file for reading. Others may read, write and delete it meanwhile.
  Read,
  // An existing file for reading and writing. No one else may write it meanwhile.
  Change,
  // A file for reading and writing, made if there is none. It keeps the bytes that
  // it holds. No one else may write or delete it meanwhile.
  Create,
  // As Create, but a file that is there already is a failure.
  New,
};

// An open file. The destructor closes it. Offsets and sizes are in bytes; offsets
// are 0-based. Every operation throws Failure if it fails.
class File {
 public:
  File() = default;
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  virtual ~File() = default;

  // A name that identifies the file. It is the same whatever path, current directory
  // or letter case the file was opened with, and different for every other file. It
  // is for comparing only: no file is opened by it.
  virtual std::string FullName() = 0;

  virtual std::uint64_t Size() = 0;

  // All bytes of the file.
  virtual std::string ReadAll() = 0;

  // Reads from `offset` on into `bytes` and returns the number of bytes read. It is
  // less than the size of `bytes` only if the file ends there.
  virtual std::size_t Read(std::uint64_t offset, std::span<char> bytes) = 0;

  // Cuts the file to its first `size` bytes. The next Write() starts there.
  virtual void Truncate(std::uint64_t size) = 0;

  // The next Write() starts at `offset`.
  virtual void Seek(std::uint64_t offset) = 0;

  // Writes all of `bytes`. The first Write() starts at the first byte of the file,
  // each later one where the last one ended.
  virtual void Write(std::string_view bytes) = 0;

  // Returns after everything written has reached the disk itself.
  virtual void Flush() = 0;
};

// The file system that this folder uses. Every access to a disk goes through it, so
// that tests can make any of them fail. Paths are in the system's ANSI code page; a
// path without a folder means the current directory. Every operation throws Failure
// if it fails.
class FileSystem {
 public:
  FileSystem() = default;
  FileSystem(const FileSystem&) = delete;
  FileSystem& operator=(const FileSystem&) = delete;
  virtual ~FileSystem() = default;

  virtual std::unique_ptr<File> Open(const std::string& path, OpenMode mode) = 0;

  // Opens the file with OpenMode::Read. Returns nullptr if there is no such file, or
  // if a folder has that name. A file that cannot be opened is a failure.
  virtual std::unique_ptr<File> OpenIfThere(const std::string& path) = 0;

  // Keeps others from writing the file, calls `mayGo`, and deletes the file if that returns
  // true. It is a failure if there is none.
  virtual void Remove(const std::string& path, const std::function<bool(File& file)>& mayGo) = 0;

  // The paths of all files whose path begins with `prefix`, in no order.
  virtual std::vector<std::string> FilesThatBeginWith(const std::string& prefix) = 0;

  // The path of the file `name` in the folder of the file at `path`.
  virtual std::string Beside(const std::string& path, const std::string& name) = 0;

  // The number of bytes that this user may still write to the disk of the file.
  virtual std::uint64_t FreeBytes(const std::string& path) = 0;

  // The time, in units of 100 nanoseconds. Each call returns more than every call
  // before it. Calls in other programs count too if the clock is fine enough.
  virtual std::uint64_t Now() = 0;

  // The number of bytes of a large file that are read or written at a time. They fit
  // into the processor's cache, and they are many enough to make each call worth its
  // time. Tests use fewer.
  virtual std::size_t BlockSize() const { return std::size_t{64} * 1024; }
};

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_FILE_SYSTEM_H_
