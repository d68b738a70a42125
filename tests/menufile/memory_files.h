#ifndef CORVALIS_TESTS_MENUFILE_MEMORY_FILES_H_
#define CORVALIS_TESTS_MENUFILE_MEMORY_FILES_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "menufile/file_system.h"

namespace menufile {

// Thrown to leave the code under test as if the process had ended. It is not a
// std::exception, so that code does not catch it.
struct ProcessEnded {};

// A fault at one file operation.
struct Fault {
  enum class Kind {
    FailsOnce,
    FailsForGood,  // this operation and every one after it fail
    EndsEarly,     // a read returns half of the bytes, as if the file ended there
    EndsProcess,
  };
  // How much of the operation is done before it fails. Half of a write is half of its
  // bytes. Other operations are done wholly or not at all.
  enum class Done { Nothing, Half, All };
  std::size_t operation = 0;  // the 1-based number of the operation; 0 for no fault
  Kind kind = Kind::FailsOnce;
  Done done = Done::Nothing;
};

// What a power cut does to changes that were not flushed. Values from 2 on are seeds:
// then half of the files are as before or as now. Of the others, each has its old length
// or its new one, and each of its sectors has its old bytes, its new bytes or zeros. Each
// name that was made, deleted or given to another file is as before or as now.
using PowerCut = std::uint32_t;
inline constexpr PowerCut kEverythingKept = 0;
inline constexpr PowerCut kEverythingLost = 1;

// Files in memory, with the sharing rules of OpenMode. A path without a folder means
// "C:\current".
class MemoryFiles final : public FileSystem {
 public:
  using Disk = std::map<std::string, std::string>;

  MemoryFiles() = default;
  // Starts with these files, or with one, which are flushed.
  explicit MemoryFiles(const Disk& disk);
  MemoryFiles(const std::string& path, std::string_view bytes) { Put(path, bytes); }

  // Makes a file, which is flushed.
  void Put(const std::string& path, std::string_view bytes);
  // The bytes of a file; nothing if there is no such file.
  std::optional<std::string> Get(const std::string& path) const;
  // All files, by their full paths.
  Disk Everything() const;

  // Lets another program read the file, so that nobody can write or delete it.
  void HoldByOther(const std::string& path) { heldByOther_.insert(Full(path)); }
  void ReleaseByOther(const std::string& path) { heldByOther_.erase(Full(path)); }
  // From now on the file can be written, but not deleted.
  void ForbidRemove(const std::string& path) { forbiddenToRemove_.insert(Full(path)); }
  // From now on the file can be written, but not cut.
  void ForbidTruncate(const std::string& path) { forbiddenToTruncate_.insert(Full(path)); }
  // From now on no file can be made in the current folder.
  void ForbidNewFiles() { newFilesForbidden_ = true; }
  // Sets BlockSize(), in bytes. Most menus of the tests are shorter than the default.
  void SetBlockSize(std::size_t size) { blockSize_ = size; }
  // Sets the number of bytes that all files together can hold. If `tellsFree` is false,
  // FreeBytes() ignores this limit.
  void SetCapacity(std::size_t capacity, bool tellsFree = true) {
    capacity_ = capacity;
    tellsFree_ = tellsFree;
  }

  // Sets the fault and clears the log. If the process has ended, another one begins.
  void SetFault(const Fault& fault) {
    fault_ = fault;
    ended_ = false;
    log_.clear();
  }
  // Lets another process do this just before the next operation of this kind on this file,
  // such as "open to read temporaryfile".
  void Before(const std::string& operation, std::function<void()> run) {
    before_ = {operation, std::move(run)};
  }
  // Sets the clock back, in the units of Now().
  void SetClockBack(std::uint64_t time) { setBack_ = time; }

  // The operations since SetFault(): their number, and each with its file, such as
  // "truncate to 0: C:\\menus\\a.menu".
  std::size_t operations() const { return log_.size(); }
  const std::vector<std::string>& log() const { return log_; }
  // The 1-based number of the last operation of this kind on the file. Throws if there is none.
  std::size_t LastOf(std::string_view operation, std::string_view path) const;
  // The writes, truncations, flushes and deletions of the log.
  std::vector<std::string> Writes() const;
  // The number of operations that were called after the process had ended.
  std::size_t operationsAfterEnd() const { return operationsAfterEnd_; }

  // All files after a power cut.
  Disk AfterPowerCut(PowerCut cut) const;

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode) override;
  std::unique_ptr<File> OpenIfThere(const std::string& path) override;
  void Remove(const std::string& path, const std::function<bool(File& file)>& mayGo) override;
  std::vector<std::string> FilesThatBeginWith(const std::string& prefix) override;
  std::string Beside(const std::string& path, const std::string& name) override;
  std::uint64_t FreeBytes(const std::string& path) override;
  // The clock is the same for all objects that do not set it back, since the time does not
  // end with a process.
  std::uint64_t Now() override;
  std::size_t BlockSize() const override { return blockSize_; }

 private:
  // The bytes of a file, which several names may have had.
  struct Stored {
    std::string bytes;
    std::string durable;  // the bytes at the last flush
    std::set<const void*> opened;
    std::set<const void*> openedToChange;
  };
  using Names = std::map<std::string, std::shared_ptr<Stored>>;
  class OpenFile;

  static std::string Full(const std::string& path);
  Fault::Done Begin(const std::string& operation, const std::string& path);
  void End(const std::string& path);
  // Calls End() and throws a Failure that is not due to the fault.
  [[noreturn]] void Refuse(const std::string& path, const char* doing, const char* reason);
  std::unique_ptr<File> OpenStored(const std::string& path, OpenMode mode,
                                   std::shared_ptr<Stored> stored);
  static std::string CutBytes(const Stored& stored, PowerCut cut, std::mt19937& random);
  std::size_t Used() const;

  Names names_;
  Names durableNames_;
  std::set<std::string> heldByOther_;
  std::set<std::string> forbiddenToRemove_;
  std::set<std::string> forbiddenToTruncate_;
  bool newFilesForbidden_ = false;
  std::size_t blockSize_ = 1000;
  std::size_t capacity_ = std::numeric_limits<std::size_t>::max() / 4;
  bool tellsFree_ = true;
  Fault fault_;
  bool faulty_ = false;  // true if the present operation has the fault
  bool ended_ = false;
  std::size_t operationsAfterEnd_ = 0;
  std::pair<std::string, std::function<void()>> before_;
  std::uint64_t setBack_ = 0;
  std::vector<std::string> log_;
};

// Makes the change on a copy of the files. Then makes it on the files, and ends the process
// at the last operation of this kind on the file. Returns the files after the whole change.
MemoryFiles::Disk EndProcessAt(MemoryFiles& files, std::string_view operation,
                               std::string_view path, Fault::Done done,
                               const std::function<void(MemoryFiles&)>& change);

// The message of the Failure that `run` throws; "no failure" if it throws none.
std::string FailureOf(const std::function<void()>& run);

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_MEMORY_FILES_H_
