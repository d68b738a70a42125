#include "tests/menufile/memory_files.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "menufile/failure.h"

namespace menufile {
namespace {

constexpr std::string_view kCurrentFolder = "C:\\current\\";

void WriteAt(std::string& bytes, std::size_t position, std::string_view written) {
  if (bytes.size() < position + written.size()) {
    bytes.resize(position + written.size(), '\0');
  }
  bytes.replace(position, written.size(), written);
}

}  // namespace

// Each operation calls Begin(), does as much of its work as that returns, and calls
// End(), which throws if the operation has the fault.
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

  std::string FullName() override {
    files_.Begin("ask the name of", path_);
    files_.End(path_);
    return Full(path_);
  }

  std::uint64_t Size() override {
    files_.Begin("ask the size of", path_);
    files_.End(path_);
    return stored_->bytes.size();
  }

  std::string ReadAll() override {
    files_.Begin("read", path_);
    files_.End(path_);
    return stored_->bytes.substr(0, stored_->bytes.size() / (files_.faulty_ ? 2 : 1));
  }

  std::size_t Read(std::uint64_t offset, std::span<char> bytes) override {
    files_.Begin("read from " + std::to_string(offset) + ":", path_);
    files_.End(path_);
    const std::size_t at = std::min(static_cast<std::size_t>(offset), stored_->bytes.size());
    const std::size_t got = stored_->bytes.copy(bytes.data(), bytes.size(), at);
    return files_.faulty_ ? got / 2 : got;
  }

  void Truncate(std::uint64_t size) override {
    const Fault::Done done = files_.Begin("truncate to " + std::to_string(size) + ":", path_);
    if (done != Fault::Done::Nothing) {
      RequireWritable();
      if (files_.forbiddenToTruncate_.count(Full(path_)) && size < stored_->bytes.size()) {
        files_.Refuse(path_, "write the file", "The file cannot be made shorter");
      }
      stored_->bytes.resize(static_cast<std::size_t>(size));
      position_ = static_cast<std::size_t>(size);
    }
    files_.End(path_);
  }

  void Seek(std::uint64_t offset) override { position_ = static_cast<std::size_t>(offset); }

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
      files_.durableNames_[Full(path_)] = stored_;
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

MemoryFiles::MemoryFiles(const Disk& disk) {
  for (const auto& [path, bytes] : disk) {
    Put(path, bytes);
  }
}

std::string MemoryFiles::Full(const std::string& path) {
  return path.find('\\') == std::string::npos ? std::string(kCurrentFolder) + path : path;
}

void MemoryFiles::Put(const std::string& path, std::string_view bytes) {
  auto stored = std::make_shared<Stored>();
  stored->bytes = bytes;
  stored->durable = bytes;
  names_[Full(path)] = stored;
  durableNames_[Full(path)] = std::move(stored);
}

std::optional<std::string> MemoryFiles::Get(const std::string& path) const {
  const auto found = names_.find(Full(path));
  return found == names_.end() ? std::nullopt : std::optional(found->second->bytes);
}

MemoryFiles::Disk MemoryFiles::Everything() const { return AfterPowerCut(kEverythingKept); }

std::unique_ptr<File> MemoryFiles::OpenStored(const std::string& path, OpenMode mode,
                                              std::shared_ptr<Stored> stored) {
  if (stored != nullptr && mode != OpenMode::Read &&
      (heldByOther_.count(Full(path)) || !stored->openedToChange.empty())) {
    Refuse(path, "open the file", "Another program uses the file");
  }
  End(path);
  return stored == nullptr ? nullptr
                           : std::make_unique<OpenFile>(*this, path, std::move(stored), mode);
}

std::unique_ptr<File> MemoryFiles::Open(const std::string& path, OpenMode mode) {
  const char* const purpose = mode == OpenMode::Read     ? "open to read"
                              : mode == OpenMode::Change ? "open to change"
                              : mode == OpenMode::New    ? "make"
                                                         : "open or make";
  if (Begin(purpose, path) == Fault::Done::Nothing) {
    End(path);
  }
  const auto found = names_.find(Full(path));
  std::shared_ptr<Stored> stored = found == names_.end() ? nullptr : found->second;
  if (stored == nullptr) {
    const bool makesFile = mode == OpenMode::Create || mode == OpenMode::New;
    if (!makesFile || newFilesForbidden_) {
      Refuse(path, "open the file", makesFile ? "Access is denied" : "There is no such file");
    }
    stored = std::make_shared<Stored>();
    names_[Full(path)] = stored;
  } else if (mode == OpenMode::New) {
    Refuse(path, "make the file", "The file exists");
  }
  return OpenStored(path, mode, std::move(stored));
}

std::unique_ptr<File> MemoryFiles::OpenIfThere(const std::string& path) {
  if (Begin("look for", path) == Fault::Done::Nothing) {
    End(path);
  }
  const auto found = names_.find(Full(path));
  return OpenStored(path, OpenMode::Read, found == names_.end() ? nullptr : found->second);
}

void MemoryFiles::Remove(const std::string& path, const std::function<bool(File& file)>& mayGo) {
  if (!mayGo(*Open(path, OpenMode::Read))) {
    return;
  }
  if (Begin("remove", path) != Fault::Done::Nothing) {
    const auto found = names_.find(Full(path));
    if (found == names_.end()) {
      Refuse(path, "delete the file", "There is no such file");
    }
    if (heldByOther_.count(Full(path)) || forbiddenToRemove_.count(Full(path)) ||
        !found->second->opened.empty()) {
      Refuse(path, "delete the file", "The file cannot be deleted");
    }
    names_.erase(found);
  }
  End(path);
}

std::vector<std::string> MemoryFiles::FilesThatBeginWith(const std::string& prefix) {
  Begin("list", prefix);
  End(prefix);
  const std::string full = Full(prefix);
  std::vector<std::string> paths;
  for (const auto& [path, stored] : names_) {
    if (path.starts_with(full) && path.find('\\', full.size()) == std::string::npos) {
      paths.push_back(prefix + path.substr(full.size()));
    }
  }
  return paths;
}

std::string MemoryFiles::Beside(const std::string& path, const std::string& name) {
  return path.substr(0, path.find_last_of('\\') + 1) + name;
}

std::uint64_t MemoryFiles::FreeBytes(const std::string& path) {
  Begin("ask for the free bytes of", path);
  End(path);
  return tellsFree_ ? capacity_ - std::min(capacity_, Used()) : capacity_;
}

std::uint64_t MemoryFiles::Now() {
  static std::uint64_t time = std::uint64_t{1} << 32;
  return ++time - setBack_;
}

std::size_t MemoryFiles::LastOf(std::string_view operation, std::string_view path) const {
  for (std::size_t number = log_.size(); number > 0; --number) {
    if (log_[number - 1].starts_with(operation) && log_[number - 1].ends_with(path)) {
      return number;
    }
  }
  throw std::logic_error("no such operation: " + std::string(operation));
}

std::vector<std::string> MemoryFiles::Writes() const {
  std::vector<std::string> writes;
  for (const std::string& operation : log_) {
    for (const char* kind : {"write ", "truncate ", "flush ", "remove "}) {
      if (operation.starts_with(kind)) {
        writes.push_back(operation);
      }
    }
  }
  return writes;
}

MemoryFiles::Disk MemoryFiles::AfterPowerCut(PowerCut cut) const {
  std::mt19937 random(cut);
  std::set<std::string> paths;
  for (const Names* names : {&names_, &durableNames_}) {
    for (const auto& [path, stored] : *names) {
      paths.insert(path);
    }
  }
  Disk disk;
  for (const std::string& path : paths) {
    const auto now = names_.find(path);
    const auto before = durableNames_.find(path);
    const bool isNew = cut == kEverythingKept || (cut != kEverythingLost && random() % 2 == 0);
    const auto found = isNew ? now : before;
    if (found != (isNew ? names_ : durableNames_).end()) {
      disk[path] = CutBytes(*found->second, cut, random);
    }
  }
  return disk;
}

std::string MemoryFiles::CutBytes(const Stored& stored, PowerCut cut, std::mt19937& random) {
  constexpr std::size_t kSector = 16;  // menus of the tests are small
  if (cut <= kEverythingLost) {
    return cut == kEverythingKept ? stored.bytes : stored.durable;
  }
  if (random() % 2 == 0) {
    return random() % 2 == 0 ? stored.bytes : stored.durable;
  }
  std::string bytes(random() % 2 == 0 ? stored.bytes.size() : stored.durable.size(), '\0');
  for (std::size_t at = 0; at < bytes.size(); at += kSector) {
    const std::string& source = random() % 2 == 0 ? stored.bytes : stored.durable;
    const std::string written = at < source.size() ? source.substr(at, kSector) : std::string();
    // An unchanged sector keeps its bytes.
    const bool isSame = stored.bytes.substr(std::min(at, stored.bytes.size()), kSector) ==
                        stored.durable.substr(std::min(at, stored.durable.size()), kSector);
    if (isSame || random() % 3 != 0) {
      WriteAt(bytes, at, written.substr(0, bytes.size() - at));
    }
  }
  return bytes;
}

std::size_t MemoryFiles::Used() const {
  std::size_t used = 0;
  for (const auto& [path, stored] : names_) {
    used += stored->bytes.size();
  }
  return used;
}

Fault::Done MemoryFiles::Begin(const std::string& operation, const std::string& path) {
  if (ended_) {
    ++operationsAfterEnd_;
    throw ProcessEnded();
  }
  if (operation + ' ' + path == before_.first) {
    std::exchange(before_, {}).second();
  }
  log_.push_back(operation + ' ' + path);
  const std::size_t number = log_.size();
  const bool after = fault_.operation != 0 && number > fault_.operation &&
                     fault_.kind == Fault::Kind::FailsForGood;
  faulty_ = after || (fault_.operation != 0 && number == fault_.operation);
  if (!faulty_ || fault_.kind == Fault::Kind::EndsEarly) {
    return Fault::Done::All;
  }
  return after ? Fault::Done::Nothing : fault_.done;
}

void MemoryFiles::End(const std::string& path) {
  if (!faulty_ || fault_.kind == Fault::Kind::EndsEarly) {
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

MemoryFiles::Disk EndProcessAt(MemoryFiles& files, std::string_view operation,
                               std::string_view path, Fault::Done done,
                               const std::function<void(MemoryFiles&)>& change) {
  MemoryFiles whole(files.Everything());
  change(whole);
  files.SetFault({whole.LastOf(operation, path), Fault::Kind::EndsProcess, done});
  try {
    change(files);
  } catch (const ProcessEnded&) {
    return whole.Everything();
  }
  throw std::logic_error("the process went on");
}

std::string FailureOf(const std::function<void()>& run) {
  try {
    run();
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "no failure";
}

}  // namespace menufile
