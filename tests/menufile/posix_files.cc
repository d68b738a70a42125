#include "tests/menufile/posix_files.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "menufile/failure.h"

namespace menufile {
namespace {

constexpr int kExitCode = 77;

void Require(bool succeeded, const std::string& path, const char* doing) {
  if (!succeeded) {
    throw Failure(path, std::string(doing) + " the file", std::strerror(errno));
  }
}

}  // namespace

class PosixFiles::OpenFile final : public File {
 public:
  OpenFile(PosixFiles& files, std::string path, int descriptor)
      : files_(files), path_(std::move(path)), descriptor_(descriptor) {}

  ~OpenFile() override { close(descriptor_); }

  std::string FullName() override { return path_; }

  std::uint64_t Size() override {
    files_.EndIfAsked();
    struct stat status;
    Require(fstat(descriptor_, &status) == 0, path_, "read");
    return static_cast<std::uint64_t>(status.st_size);
  }

  std::string ReadAll() override {
    std::string bytes(static_cast<std::size_t>(Size()), '\0');
    bytes.resize(Read(0, bytes));
    return bytes;
  }

  std::size_t Read(std::uint64_t offset, std::span<char> bytes) override {
    files_.EndIfAsked();
    std::size_t done = 0;
    while (done < bytes.size()) {
      const ssize_t read = pread(descriptor_, bytes.data() + done, bytes.size() - done,
                                 static_cast<off_t>(offset + done));
      Require(read >= 0, path_, "read");
      if (read == 0) {
        break;
      }
      done += static_cast<std::size_t>(read);
    }
    return done;
  }

  void Truncate(std::uint64_t size) override {
    files_.EndIfAsked();
    Require(ftruncate(descriptor_, static_cast<off_t>(size)) == 0, path_, "cut");
    position_ = static_cast<off_t>(size);
  }

  void Seek(std::uint64_t offset) override { position_ = static_cast<off_t>(offset); }

  void Write(std::string_view bytes) override {
    if (files_.IsToEnd()) {
      WriteNow(bytes.substr(0, bytes.size() / 2));
      _exit(kExitCode);
    }
    WriteNow(bytes);
  }

  void Flush() override {
    files_.EndIfAsked();
    Require(fsync(descriptor_) == 0, path_, "flush");
  }

 private:
  void WriteNow(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t written = pwrite(descriptor_, bytes.data(), bytes.size(), position_);
      Require(written > 0, path_, "write");
      bytes.remove_prefix(static_cast<std::size_t>(written));
      position_ += written;
    }
  }

  PosixFiles& files_;
  std::string path_;
  int descriptor_;
  off_t position_ = 0;
};

void PosixFiles::EndIfAsked() {
  if (IsToEnd()) {
    _exit(kExitCode);
  }
}

PosixFiles::PosixFiles() {
  std::string pattern = (std::filesystem::temp_directory_path() / "menufile_XXXXXX").string();
  Require(mkdtemp(pattern.data()) != nullptr, pattern, "make");
  folder_ = pattern;
}

PosixFiles::~PosixFiles() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void PosixFiles::Put(const std::string& path, std::string_view bytes) {
  std::ofstream(Full(path), std::ios::binary) << bytes;
}

std::optional<std::string> PosixFiles::Get(const std::string& path) const {
  std::ifstream file(Full(path), std::ios::binary);
  if (!file) {
    return std::nullopt;
  }
  return std::string(std::istreambuf_iterator<char>(file), {});
}

std::unique_ptr<File> PosixFiles::Open(const std::string& path, OpenMode mode) {
  EndIfAsked();
  const int flags = mode == OpenMode::Read     ? O_RDONLY
                    : mode == OpenMode::Change ? O_RDWR
                    : mode == OpenMode::New    ? O_RDWR | O_CREAT | O_EXCL
                                               : O_RDWR | O_CREAT;
  const int descriptor = open(Full(path).c_str(), flags | O_CLOEXEC, 0666);
  Require(descriptor >= 0, path, "open");
  auto file = std::make_unique<OpenFile>(*this, path, descriptor);
  if (mode != OpenMode::Read) {
    Require(flock(descriptor, LOCK_EX | LOCK_NB) == 0, path, "open");
  }
  return file;
}

std::unique_ptr<File> PosixFiles::OpenIfThere(const std::string& path) {
  return access(Full(path).c_str(), F_OK) == 0 ? Open(path, OpenMode::Read) : nullptr;
}

void PosixFiles::Remove(const std::string& path, const std::function<bool(File& file)>& mayGo) {
  if (mayGo(*Open(path, OpenMode::Change))) {
    EndIfAsked();
    Require(unlink(Full(path).c_str()) == 0, path, "delete");
  }
}

std::vector<std::string> PosixFiles::FilesThatBeginWith(const std::string& prefix) {
  std::vector<std::string> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    if (const std::string name = entry.path().filename().string(); name.starts_with(prefix)) {
      paths.push_back(name);
    }
  }
  return paths;
}

std::uint64_t PosixFiles::FreeBytes(const std::string& path) {
  struct statvfs status;
  Require(statvfs(folder_.c_str(), &status) == 0, path, "find the disk of");
  return std::uint64_t{status.f_bavail} * status.f_frsize;
}

std::uint64_t PosixFiles::Now() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const auto time = static_cast<std::uint64_t>(now.tv_sec) * 10'000'000 +
                    static_cast<std::uint64_t>(now.tv_nsec) / 100;
  lastTime_ = std::max(time, lastTime_ + 1);
  return lastTime_;
}

}  // namespace menufile
