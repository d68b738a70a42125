// Compares loading a menu whose bytes are in memory with passes over the same bytes.
#include <benchmark/benchmark.h>
#include <glib.h>
#include <malloc.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "benchmarks/count_line_ends.h"
#include "benchmarks/counting_view.h"
#include "benchmarks/iteration_time.h"
#include "benchmarks/sample_menu.h"
#include "menufile/loader.h"
#include "menufile/menu_file.h"

namespace bench {
namespace {

// A file in memory. Reading moves its bytes out, so that neither a disk nor a copy is
// measured. It can be read once.
class OneFile final : public menufile::FileSystem {
 public:
  explicit OneFile(std::string bytes) : bytes_(std::move(bytes)) {}

  std::unique_ptr<menufile::File> Open(const std::string&, menufile::OpenMode) override {
    return std::make_unique<OpenFile>(bytes_);
  }
  std::unique_ptr<menufile::File> OpenIfThere(const std::string&) override { Refuse(); }
  void Remove(const std::string&, const std::function<bool(menufile::File&)>&) override {
    Refuse();
  }
  std::vector<std::string> FilesThatBeginWith(const std::string&) override { Refuse(); }
  std::string Beside(const std::string&, const std::string&) override { Refuse(); }
  std::uint64_t FreeBytes(const std::string&) override { Refuse(); }
  std::uint64_t Now() override { Refuse(); }

 private:
  class OpenFile final : public menufile::File {
   public:
    explicit OpenFile(std::string& bytes) : bytes_(bytes) {}
    std::string ReadAll() override { return std::move(bytes_); }
    std::string FullName() override { Refuse(); }
    std::uint64_t Size() override { Refuse(); }
    std::size_t Read(std::uint64_t, std::span<char>) override { Refuse(); }
    void Truncate(std::uint64_t) override { Refuse(); }
    void Seek(std::uint64_t) override { Refuse(); }
    void Write(std::string_view) override { Refuse(); }
    void Flush() override { Refuse(); }

   private:
    std::string& bytes_;
  };

  [[noreturn]] static void Refuse() {
    throw std::logic_error("a menu is loaded by reading the whole file once");
  }

  std::string bytes_;
};

void Load(benchmark::State& state) {
  const auto entries = static_cast<std::size_t>(state.range(0));
  const std::string menu = MenuFile(entries);
  for (auto _ : state) {
    OneFile files(menu);
    CountingView view;
    {
      const IterationTime time(state);
      menufile::MenuFile file(files, "a.menu");
      menufile::LoadMenuFile(file, "", view);
    }
    if (view.items != entries) {
      state.SkipWithError("not every entry was loaded");
    }
  }
}

void FindLineEnds(benchmark::State& state) {
  const auto entries = static_cast<std::size_t>(state.range(0));
  const std::string menu = MenuFile(entries);
  for (auto _ : state) {
    const std::string bytes = menu;  // copied, to be in the same cache as a loaded menu
    std::size_t lines = 0;
    {
      const IterationTime time(state);
      lines = CountLineEnds(bytes);
    }
    if (lines < entries) {
      state.SkipWithError("not every line end was found");
    }
  }
}

void LoadKeyFile(benchmark::State& state) {
  const auto entries = static_cast<std::size_t>(state.range(0));
  const std::string bytes = KeyFile(entries);
  for (auto _ : state) {
    GKeyFile* const file = g_key_file_new();
    {
      const IterationTime time(state);
      g_key_file_load_from_data(file, bytes.data(), bytes.size(), G_KEY_FILE_NONE, nullptr);
    }
    gsize groups = 0;
    g_strfreev(g_key_file_get_groups(file, &groups));
    g_key_file_free(file);
    if (groups != entries + 1) {
      state.SkipWithError("not every group was loaded");
    }
  }
}

BENCHMARK(Load)->Apply(EverySize);
BENCHMARK(FindLineEnds)->Apply(EverySize);
BENCHMARK(LoadKeyFile)->Apply(EverySize);

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  // The process keeps freed memory, so that the time in which the system maps pages is
  // not measured.
  mallopt(M_MMAP_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
}
