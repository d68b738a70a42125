#ifndef CORVALIS_TESTS_MENUFILE_MEMORY_FILES_H_
#define CORVALIS_TESTS_MENUFILE_MEMORY_FILES_H_

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "menufile/file_system.h"

namespace menufile {

// Leaves the code under test where the process would have ended. It is no
// std::exception, so nothing of that code catches it.
struct ProcessEnded {};

// What is to go wrong at one file operation.
struct Fault {
  enum class Kind {
    FailsOnce,
    FailsForGood,  // this operation and every one after it
    EndsEarly,     // a read gives half of the bytes and says that the file ends there
    EndsProcess,
  };
  // How much of the operation is done all the same. Half of an operation that
  // writes is half of its bytes; others are done whole or not at all.
  enum class Done { Nothing, Half, All };

  std::size_t operation = 0;  // counted from 1; 0 for none
  Kind kind = Kind::FailsOnce;
  Done done = Done::Nothing;
};

// What a power cut leaves of what was not flushed. From 2 on these are seeds: each
// sector of each file has its old bytes, its new bytes or zeros; each file has its
// old length or its new one; and each name that was made, deleted or given to
// another file stands for what it stood for before, or for what it does now.
using PowerCut = std::uint32_t;
inline constexpr PowerCut kEverythingKept = 0;
inline constexpr PowerCut kEverythingLost = 1;

// Files in memory, with the sharing rules that FileSystem tells. A path without a
// folder means "C:\current".
class MemoryFiles final : public FileSystem {
 public:
  using Disk = std::map<std::string, std::string>;

  MemoryFiles() = default;
  // Files that stand safely on the disk.
  explicit MemoryFiles(const Disk& disk);

  // Makes a file that stands safely on the disk.
  void Put(const std::string& path, std::string_view bytes);
  // Nothing when there is no such file.
  std::optional<std::string> Get(const std::string& path) const;
  // All files, by their full paths.
  Disk Everything() const;

  // Another program reads the file and lets no one write or delete it.
  void HoldByOther(const std::string& path) { heldByOther_.insert(Full(path)); }
  void ReleaseByOther(const std::string& path) { heldByOther_.erase(Full(path)); }
  // The file can be written, but neither deleted nor renamed.
  void ForbidRemove(const std::string& path) { forbiddenToRemove_.insert(Full(path)); }
  // The file can be written, but not made shorter.
  void ForbidTruncate(const std::string& path) { forbiddenToTruncate_.insert(Full(path)); }
  // No file can be made in the current folder.
  void ForbidNewFiles() { newFilesForbidden_ = true; }
  // The bytes that are read or written at a time; most menus of the tests are
  // shorter than the block that they have without this.
  void SetBlockSize(std::size_t size) { blockSize_ = size; }
  // The bytes that all files together may hold. Where `tellsFree` is false,
  // FreeBytes() does not know of it.
  void SetCapacity(std::size_t capacity, bool tellsFree = true) {
    capacity_ = capacity;
    tellsFree_ = tellsFree;
  }

  // Also lets another process go on where one has ended.
  void SetFault(const Fault& fault) {
    fault_ = fault;
    ended_ = false;
    log_.clear();
  }
  // How many operations there were since SetFault(), and each with its file, for
  // example "truncate to 0: C:\\menus\\a.menu".
  std::size_t operations() const { return log_.size(); }
  const std::vector<std::string>& log() const { return log_; }
  // The writes, truncations, flushes, deletions and renamings of these.
  std::vector<std::string> Writes() const;
  // Operations that were asked for after the process had ended.
  std::size_t operationsAfterEnd() const { return operationsAfterEnd_; }

  Disk AfterPowerCut(PowerCut cut) const;

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode) override;
  std::unique_ptr<File> OpenIfThere(const std::string& path) override;
  void Remove(const std::string& path) override;
  void Rename(const std::string& path, const std::string& newPath) override;
  std::vector<std::string> FilesThatBeginWith(const std::string& prefix) override;
  std::string Beside(const std::string& path, const std::string& name) override;
  std::uint64_t FreeBytes(const std::string& path) override;
  // Goes on from one object to the next, as time does where a process ends.
  std::uint64_t Now() override;
  std::size_t BlockSize() const override { return blockSize_; }

 private:
  // A file's bytes, whatever its name is by now.
  struct Stored {
    std::string bytes;
    std::string durable;  // what of them is sure to be on the disk
    std::set<const void*> opened;
    std::set<const void*> openedToChange;
  };
  using Names = std::map<std::string, std::shared_ptr<Stored>>;
  class OpenFile;

  static std::string Full(const std::string& path);
  Fault::Done Begin(const std::string& operation, const std::string& path);
  void End(const std::string& path);
  // End(), and a failure that would have come without a fault.
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
  bool faulty_ = false;  // this operation has the fault
  bool ended_ = false;
  std::size_t operationsAfterEnd_ = 0;
  std::vector<std::string> log_;
};

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_MEMORY_FILES_H_
