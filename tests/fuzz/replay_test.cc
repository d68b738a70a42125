// Runs a fuzz target on each file of its corpus, which is the current directory.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> Corpus() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(".")) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

class Replay : public testing::TestWithParam<std::filesystem::path> {};

// The target ends the process if a requirement does not hold.
TEST_P(Replay, HoldsWhatTheTargetRequires) {
  std::ifstream file(GetParam(), std::ios::binary);
  ASSERT_TRUE(file) << GetParam();
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  EXPECT_EQ(
      0, LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
}

INSTANTIATE_TEST_SUITE_P(Corpus, Replay, testing::ValuesIn(Corpus()), [](const auto& info) {
  std::string name = info.param.filename().string();
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
  return name;
});

}  // namespace
