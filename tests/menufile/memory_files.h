#ifndef CORVALIS_TESTS_MENUFILE_MEMORY_FILES_H_
#define CORVALIS_TESTS_MENUFILE_MEMORY_FILES_H_

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "menufile/file_system.h"

namespace menufile {

// Leaves the code under test where the process would have ended. It is no
// Failure, so nothing of that code catches it.
struct ProcessEnded {};

// What is to go wrong at one file operation.
struct Fault {
  enum class Kind {
    FailsOnce,
    FailsForGood,  // this operation and every one behind it
    EndsProcess,
  };
  // How much of the operation is done all the same. Half of an operation that
  // writes is half of its bytes; others are done whole or not at all.
  enum class Done { Nothing, Half, All };

  std::size_t operation = 0;  // counted from 1; 0 for none
  Kind kind = Kind::FailsOnce;
  Done done = Done::Nothing;
};

// What a power cut leaves of the changes that were not flushed to the disk.
// A file that was removed is gone in each case: that is the worst one.
enum class Unflushed {
  Kept,
  Dropped,
  HalfKept,   // the first half of the bytes written, and what came before them
  SizesKept,  // files have their new sizes, and zeros where bytes were written
};
inline constexpr Unflushed kEveryUnflushed[] = {Unflushed::Kept, Unflushed::Dropped,
                                                Unflushed::HalfKept, Unflushed::SizesKept};

// Files in memory, with the sharing rules that FileSystem tells.
class MemoryFiles final : public FileSystem {
 public:
  using Disk = std::map<std::string, std::string>;

  // Makes a file that stands safely on the disk.
  void Put(const std::string& path, std::string_view bytes);
  // Nothing when there is no such file.
  std::optional<std::string> Get(const std::string& path) const;

  // Another program reads the file and lets no one write or delete it.
  void HoldByOther(const std::string& path) { heldByOther_.insert(path); }
  void ReleaseByOther(const std::string& path) { heldByOther_.erase(path); }
  // The file can be written, but not deleted.
  void ForbidRemove(const std::string& path) { forbiddenToRemove_.insert(path); }
  // The bytes that are read or written at a time; most menus of the tests are
  // shorter than the block that they have without this.
  void SetBlockSize(std::size_t size) { blockSize_ = size; }
  // The bytes that all files together may hold.
  void SetCapacity(std::size_t capacity) { capacity_ = capacity; }

  void SetFault(const Fault& fault) { fault_ = fault; }
  // How many operations there were, and each with its file, for example
  // "truncate to 0: C:\\a.menu".
  std::size_t operations() const { return log_.size(); }
  const std::vector<std::string>& log() const { return log_; }
  // Operations that were asked for after the process had ended.
  std::size_t operationsAfterEnd() const { return operationsAfterEnd_; }

  Disk AfterPowerCut(Unflushed unflushed) const;

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode) override;
  void Remove(const std::string& path) override;
  std::size_t BlockSize() const override { return blockSize_; }
  std::uint64_t LastWritten(const std::string& path) override;

 private:
  struct Change {
    std::size_t position;
    std::string bytes;  // written at the position
    bool truncates;     // instead: the file ends at the position
  };
  struct Stored {
    std::string bytes;
    std::optional<std::string> durable;  // nothing: the file is not on the disk yet
    std::vector<Change> unflushed;
    std::uint64_t written = 0;  // by clock_
    std::set<const void*> opened;
    std::set<const void*> openedToChange;
  };
  class OpenFile;

  Fault::Done Begin(const std::string& operation, const std::string& path);
  void End(const std::string& path);
  // End(), and a failure that would have come without a fault.
  [[noreturn]] void Refuse(const std::string& path, const char* doing, const char* reason);
  static std::string Apply(const Stored& stored, Unflushed unflushed);
  std::size_t Used() const;

  std::map<std::string, std::shared_ptr<Stored>> files_;
  std::uint64_t clock_ = 0;  // moved on by every write
  std::set<std::string> heldByOther_;
  std::set<std::string> forbiddenToRemove_;
  std::size_t blockSize_ = 1000;
  std::size_t capacity_ = std::numeric_limits<std::size_t>::max();
  Fault fault_;
  bool faulty_ = false;  // this operation has the fault
  bool ended_ = false;
  std::size_t operationsAfterEnd_ = 0;
  std::vector<std::string> log_;
};

}  // namespace menufile

#endif  // CORVALIS_TESTS_MENUFILE_MEMORY_FILES_H_
