#include "tests/menufile/memory_files.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "menufile/failure.h"

namespace menufile {
namespace {

void WriteAt(std::string& bytes, std::size_t position, std::string_view written) {
  if (bytes.size() < position + written.size()) {
    bytes.resize(position + written.size(), '\0');
  }
  bytes.replace(position, written.size(), written);
}

}  // namespace

// Each operation is Begin(), then the part of its work that is done, then
// End(), which throws when it has the fault.
class MemoryFiles::OpenFile final : public File {
 public:
  OpenFile(MemoryFiles& files, std::string path, std::shared_ptr<Stored> stored, OpenMode mode)
      : files_(files), path_(std::move(path)), stored_(std::move(stored)), mode_(mode) {
    stored_->opened.insert(this);
    if (mode != OpenMode::Read) {
      stored_->openedToChange.insert(this);
    }
  }

  ~OpenFile() override {
    stored_->opened.erase(this);
    stored_->openedToChange.erase(this);
  }

  std::string ReadAll() override {
    files_.Begin("read", path_);
    files_.End(path_);
    return stored_->bytes;
  }

  std::size_t Read(std::uint64_t offset, std::span<char> bytes) override {
    files_.Begin("read from " + std::to_string(offset) + ":", path_);
    files_.End(path_);
    const std::size_t at = std::min(static_cast<std::size_t>(offset), stored_->bytes.size());
    return stored_->bytes.copy(bytes.data(), bytes.size(), at);
  }

  void Truncate(std::uint64_t size) override {
    const Fault::Done done = files_.Begin("truncate to " + std::to_string(size) + ":", path_);
    if (done != Fault::Done::Nothing) {
      RequireWritable();
      const auto end = static_cast<std::size_t>(size);
      stored_->bytes.resize(std::min(end, stored_->bytes.size()));
      stored_->unflushed.push_back({end, "", true});
      position_ = end;
    }
    files_.End(path_);
  }

  std::uint64_t SeekToEnd() override {
    files_.Begin("seek to the end of", path_);
    files_.End(path_);
    position_ = stored_->bytes.size();
    return position_;
  }

  void Write(std::string_view bytes) override {
    const Fault::Done done =
        files_.Begin("write " + std::to_string(bytes.size()) + " bytes to", path_);
    if (done == Fault::Done::Half) {
      bytes = bytes.substr(0, bytes.size() / 2);
    }
    if (done != Fault::Done::Nothing) {
      RequireWritable();
      const std::size_t grows =
          std::max(position_ + bytes.size(), stored_->bytes.size()) - stored_->bytes.size();
      const std::size_t left = files_.capacity_ - std::min(files_.capacity_, files_.Used());
      const std::size_t tooMany = grows - std::min(grows, left);
      const std::string_view fits = bytes.substr(0, bytes.size() - tooMany);
      WriteAt(stored_->bytes, position_, fits);
      stored_->written = ++files_.clock_;
      stored_->unflushed.push_back({position_, std::string(fits), false});
      position_ += fits.size();
      if (tooMany > 0) {
        files_.Refuse(path_, "write the file", "The disk is full");
      }
    }
    files_.End(path_);
  }

  void Flush() override {
    if (files_.Begin("flush", path_) != Fault::Done::Nothing) {
      stored_->durable = stored_->bytes;
      stored_->unflushed.clear();
    }
    files_.End(path_);
  }

 private:
  void RequireWritable() const {
    if (mode_ == OpenMode::Read) {
      throw std::logic_error("a file that is open for reading only was written");
    }
  }

  MemoryFiles& files_;
  std::string path_;
  std::shared_ptr<Stored> stored_;
  OpenMode mode_;
  std::size_t position_ = 0;
};

void MemoryFiles::Put(const std::string& path, std::string_view bytes) {
  auto stored = std::make_shared<Stored>();
  stored->bytes = bytes;
  stored->durable = stored->bytes;
  stored->written = ++clock_;
  files_[path] = std::move(stored);
}

std::optional<std::string> MemoryFiles::Get(const std::string& path) const {
  const auto found = files_.find(path);
  if (found == files_.end()) {
    return std::nullopt;
  }
  return found->second->bytes;
}

std::unique_ptr<File> MemoryFiles::Open(const std::string& path, OpenMode mode) {
  const char* const purpose = mode == OpenMode::Read     ? "open to read"
                              : mode == OpenMode::Change ? "open to change"
                                                         : "open or make";
  const Fault::Done done = Begin(purpose, path);
  std::shared_ptr<Stored> stored;
  if (done != Fault::Done::Nothing) {
    const auto found = files_.find(path);
    if (found != files_.end()) {
      stored = found->second;
    } else if (mode == OpenMode::Create) {
      stored = std::make_shared<Stored>();
      files_[path] = stored;
    } else {
      Refuse(path, "open the file", "There is no such file");
    }
    if (mode != OpenMode::Read && (heldByOther_.count(path) || !stored->openedToChange.empty())) {
      Refuse(path, "open the file", "Another program uses the file");
    }
  }
  End(path);
  return std::make_unique<OpenFile>(*this, path, stored, mode);
}

void MemoryFiles::Remove(const std::string& path) {
  if (Begin("remove", path) != Fault::Done::Nothing) {
    const auto found = files_.find(path);
    if (found == files_.end()) {
      Refuse(path, "delete the file", "There is no such file");
    }
    if (heldByOther_.count(path) || forbiddenToRemove_.count(path) ||
        !found->second->opened.empty()) {
      Refuse(path, "delete the file", "The file cannot be deleted");
    }
    files_.erase(found);
  }
  End(path);
}

std::uint64_t MemoryFiles::LastWritten(const std::string& path) {
  Begin("ask the time of", path);
  const auto found = files_.find(path);
  if (found == files_.end()) {
    Refuse(path, "open the file", "There is no such file");
  }
  End(path);
  return found->second->written;
}

MemoryFiles::Disk MemoryFiles::AfterPowerCut(Unflushed unflushed) const {
  Disk disk;
  for (const auto& [path, stored] : files_) {
    if (unflushed != Unflushed::Dropped || stored->durable) {
      disk[path] = Apply(*stored, unflushed);
    }
  }
  return disk;
}

std::string MemoryFiles::Apply(const Stored& stored, Unflushed unflushed) {
  std::string bytes = stored.durable.value_or("");
  if (unflushed == Unflushed::Dropped) {
    return bytes;
  }
  std::size_t left = std::numeric_limits<std::size_t>::max();
  if (unflushed == Unflushed::HalfKept) {
    left = 0;
    for (const Change& change : stored.unflushed) {
      left += change.bytes.size();
    }
    left /= 2;
  }
  for (const Change& change : stored.unflushed) {
    if (change.truncates) {
      bytes.resize(std::min(change.position, bytes.size()));
      continue;
    }
    std::string kept = change.bytes.substr(0, left);
    if (unflushed == Unflushed::SizesKept) {
      kept.assign(kept.size(), '\0');
    }
    WriteAt(bytes, change.position, kept);
    left -= kept.size();
    if (kept.size() < change.bytes.size()) {
      break;
    }
  }
  return bytes;
}

std::size_t MemoryFiles::Used() const {
  std::size_t used = 0;
  for (const auto& [path, stored] : files_) {
    used += stored->bytes.size();
  }
  return used;
}

Fault::Done MemoryFiles::Begin(const std::string& operation, const std::string& path) {
  if (ended_) {
    ++operationsAfterEnd_;
    throw ProcessEnded();
  }
  log_.push_back(operation + ' ' + path);
  const std::size_t number = log_.size();
  const bool behind = fault_.operation != 0 && number > fault_.operation &&
                      fault_.kind == Fault::Kind::FailsForGood;
  faulty_ = behind || (fault_.operation != 0 && number == fault_.operation);
  if (!faulty_) {
    return Fault::Done::All;
  }
  return behind ? Fault::Done::Nothing : fault_.done;
}

void MemoryFiles::End(const std::string& path) {
  if (!faulty_) {
    return;
  }
  if (fault_.kind == Fault::Kind::EndsProcess) {
    ended_ = true;
    throw ProcessEnded();
  }
  throw Failure(path, "use the file", "The disk does not answer");
}

void MemoryFiles::Refuse(const std::string& path, const char* doing, const char* reason) {
  End(path);
  throw Failure(path, doing, reason);
}

}  // namespace menufile
