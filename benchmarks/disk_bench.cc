// Compares loading and changing a menu file on a disk with reading and copying its
// bytes. The files are in the system's cache when they are read.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "benchmarks/count_line_ends.h"
#include "benchmarks/counting_view.h"
#include "benchmarks/iteration_time.h"
#include "benchmarks/sample_menu.h"
#include "menufile/loader.h"
#include "menufile/menu_file.h"
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
      menufile::MenuFile menu(files, kMenu);
      menufile::LoadMenuFile(menu, "", view);
    }
    if (view.items != entries) {
      state.SkipWithError("not every entry was loaded");
    }
  }
}

// Reads the file and makes one pass over its bytes.
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

// Which change of its window a change is. The first one cannot know whether another
// window has changed the menu just before, and makes sure of it with one flush more.
enum class Turn { First, Later };

// Each iteration begins with the same menu, flushed to the disk, and with a new MenuFile.
void TimeChanges(benchmark::State& state, Turn turn,
                 const std::function<menufile::ChangeResult(menufile::MenuFile&)>& change) {
  const std::string bytes = MenuFile(static_cast<std::size_t>(state.range(0)));
  menufile::PosixFiles files;
  for (auto _ : state) {
    files.Put(kMenu, bytes);
    files.Open(kMenu, menufile::OpenMode::Change)->Flush();
    menufile::MenuFile menu(files, kMenu);
    if (turn == Turn::Later) {
      change(menu);
    }
    const IterationTime time(state);
    if (change(menu) != menufile::ChangeResult::Made) {
      state.SkipWithError("the menu was not changed");
    }
  }
}

void TimeChange(benchmark::State& state, Turn turn, UserChange::Kind kind) {
  UserChange change = menufile::SampleChange(kind, static_cast<std::size_t>(state.range(0)) / 2);
  change.appearance.picture = DefaultPicture();
  TimeChanges(state, turn, [&](menufile::MenuFile& menu) { return Make(menu, change); });
}

void TimeAdding(benchmark::State& state, Turn turn) {
  const std::vector<menufile::EntryTexts> entries = {SampleChange(UserChange::Kind::Edit).texts};
  TimeChanges(state, turn,
              [&](menufile::MenuFile& menu) { return AddEntries(menu, entries, true); });
}

// A new folder, which the destructor deletes.
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

// The least work of a change through a scratch file.
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

// "MoveUp" is a later change, "FirstMoveUp" a first one, and so on.
[[maybe_unused]] const bool changesAreRegistered = [] {
  using Kind = UserChange::Kind;
  for (const Turn turn : {Turn::Later, Turn::First}) {
    const std::string prefix = turn == Turn::First ? "First" : "";
    for (const Kind kind : {Kind::MoveUp, Kind::Delete, Kind::Edit, Kind::SaveAppearance}) {
      benchmark::RegisterBenchmark((prefix + NameOf(kind)).c_str(), TimeChange, turn, kind)
          ->Apply(EverySize);
    }
    benchmark::RegisterBenchmark((prefix + "Add").c_str(), TimeAdding, turn)->Apply(EverySize);
  }
  return true;
}();

BENCHMARK(LoadFromDisk)->Apply(EverySize);
BENCHMARK(FindLineEndsOnDisk)->Apply(EverySize);
BENCHMARK(TwoCopies)->Apply(EverySize);
BENCHMARK(MoveUpKeyFile)->Apply(EverySize);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
