// Loading a menu file from a disk, and changing it there, against reading and
// copying its bytes. What is read is in the system's cache.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "benchmarks/count_line_ends.h"
#include "benchmarks/counting_view.h"
#include "benchmarks/iteration_time.h"
#include "benchmarks/sample_menu.h"
#include "menufile/loader.h"
#include "menufile/rewrite.h"
#include "tests/menufile/posix_files.h"
#include "tests/menufile/user_change.h"

namespace bench {
namespace {

using menufile::UserChange;

constexpr const char* kMenu = "a.menu";

void LoadFromDisk(benchmark::State& state) {
  const auto entries = static_cast<std::size_t>(state.range(0));
  menufile::PosixFiles files;
  files.Put(kMenu, MenuFile(entries));
  for (auto _ : state) {
    CountingView view;
    {
      const IterationTime time(state);
      menufile::LoadMenuFile(files, kMenu, "", view);
    }
    if (view.items != entries) {
      state.SkipWithError("not every entry was loaded");
    }
  }
}

// What reading the file takes before a byte of it is looked at, and one pass.
void FindLineEndsOnDisk(benchmark::State& state) {
  const auto entries = static_cast<std::size_t>(state.range(0));
  menufile::PosixFiles files;
  files.Put(kMenu, MenuFile(entries));
  for (auto _ : state) {
    std::size_t lines = 0;
    {
      const IterationTime time(state);
      lines = CountLineEnds(files.Open(kMenu, menufile::OpenMode::Read)->ReadAll());
    }
    if (lines < entries) {
      state.SkipWithError("not every line end was found");
    }
  }
}

// Each iteration begins with the same menu, which is on the disk.
void Change(benchmark::State& state, UserChange::Kind kind) {
  const auto entries = static_cast<std::size_t>(state.range(0));
  const std::string menu = MenuFile(entries);
  UserChange operation = menufile::SampleChange(kind, entries / 2);
  operation.picture = DefaultPicture();
  const menufile::MenuChange change = menufile::ChangeFor(operation);
  menufile::PosixFiles files;
  for (auto _ : state) {
    files.Put(kMenu, menu);
    files.Open(kMenu, menufile::OpenMode::Change)->Flush();
    const IterationTime time(state);
    if (menufile::RewriteMenuFile(files, kMenu, change) != menufile::RewriteResult::Done) {
      state.SkipWithError("the menu was not rewritten");
    }
  }
}

void MoveUp(benchmark::State& state) { Change(state, UserChange::Kind::MoveUp); }
void Delete(benchmark::State& state) { Change(state, UserChange::Kind::Delete); }
void SaveAppearance(benchmark::State& state) { Change(state, UserChange::Kind::SaveAppearance); }

// A new folder that goes with this object.
class Folder {
 public:
  Folder() : path_((std::filesystem::temp_directory_path() / "bench_XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr) {
      throw std::system_error(errno, std::generic_category(), path_);
    }
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }

  std::string Path(const char* name) const { return path_ + '/' + name; }

 private:
  std::string path_;
};

class Descriptor {
 public:
  Descriptor(const std::string& path, int flags) : number_(open(path.c_str(), flags, 0666)) {
    Require(number_ >= 0);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(number_); }

  std::size_t Read(std::vector<char>& buffer) const {
    const ssize_t got = read(number_, buffer.data(), buffer.size());
    Require(got >= 0);
    return static_cast<std::size_t>(got);
  }
  void Write(std::string_view bytes) const {
    Require(write(number_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
  }
  void Flush() const { Require(fsync(number_) == 0); }

 private:
  static void Require(bool succeeded) {
    if (!succeeded) {
      throw std::system_error(errno, std::generic_category());
    }
  }
  int number_;
};

void PutOnDisk(const std::string& path, std::string_view bytes) {
  const Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
  file.Write(bytes);
  file.Flush();
}

void CopyToDisk(const std::string& from, const std::string& to) {
  const Descriptor in(from, O_RDONLY);
  const Descriptor out(to, O_WRONLY | O_CREAT | O_TRUNC);
  std::vector<char> buffer(128 * 1024);
  while (const std::size_t size = in.Read(buffer)) {
    out.Write({buffer.data(), size});
  }
  out.Flush();
}

// The least that any change through a scratch file does.
void TwoCopies(benchmark::State& state) {
  const std::string bytes = MenuFile(static_cast<std::size_t>(state.range(0)));
  const Folder folder;
  const std::string menu = folder.Path(kMenu);
  const std::string scratch = folder.Path("scratch");
  for (auto _ : state) {
    PutOnDisk(menu, bytes);
    const IterationTime time(state);
    CopyToDisk(menu, scratch);
    CopyToDisk(scratch, menu);
    std::filesystem::remove(scratch);
  }
}

void ExchangeGroups(GKeyFile* file, const std::string& first, const std::string& second) {
  gchar** const keys = g_key_file_get_keys(file, first.c_str(), nullptr, nullptr);
  for (gchar** key = keys; *key != nullptr; ++key) {
    gchar* const one = g_key_file_get_value(file, first.c_str(), *key, nullptr);
    gchar* const other = g_key_file_get_value(file, second.c_str(), *key, nullptr);
    g_key_file_set_value(file, first.c_str(), *key, other);
    g_key_file_set_value(file, second.c_str(), *key, one);
    g_free(one);
    g_free(other);
  }
  g_strfreev(keys);
}

// The same move in a key file, saved as GLib saves it.
void MoveUpKeyFile(benchmark::State& state) {
  const auto entries = static_cast<std::size_t>(state.range(0));
  const std::string bytes = KeyFile(entries);
  const Folder folder;
  const std::string path = folder.Path("a.ini");
  for (auto _ : state) {
    PutOnDisk(path, bytes);
    const IterationTime time(state);
    GKeyFile* const file = g_key_file_new();
    const bool loaded = g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr);
    if (loaded) {
      ExchangeGroups(file, std::to_string(entries / 2 - 1), std::to_string(entries / 2));
    }
    if (!loaded || !g_key_file_save_to_file(file, path.c_str(), nullptr)) {
      state.SkipWithError("the key file was not rewritten");
    }
    g_key_file_free(file);
  }
}

BENCHMARK(LoadFromDisk)->Apply(EverySize);
BENCHMARK(FindLineEndsOnDisk)->Apply(EverySize);
BENCHMARK(MoveUp)->Apply(EverySize);
BENCHMARK(Delete)->Apply(EverySize);
BENCHMARK(SaveAppearance)->Apply(EverySize);
BENCHMARK(TwoCopies)->Apply(EverySize);
BENCHMARK(MoveUpKeyFile)->Apply(EverySize);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
