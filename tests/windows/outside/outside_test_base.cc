#include "tests/windows/outside/outside_test_base.h"

#include <windows.h>

#include <filesystem>
#include <fstream>

OutsideTest::OutsideTest() {
  char path[MAX_PATH] = "";
  GetTempPathA(MAX_PATH, path);
  static int count = 0;
  folder_ = std::string(path) + "corvalis outside " + std::to_string(GetCurrentProcessId()) + "-" +
            std::to_string(++count);
  CreateDirectoryA(folder_.c_str(), nullptr);
}

OutsideTest::~OutsideTest() {
  program_.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void OutsideTest::Start(const std::string& menuBytes) {
  WriteBytes(MenuPath(), menuBytes);
  program_ = std::make_unique<outside::Program>(MenuPath(), folder_);
  ASSERT_TRUE(program_->Started());
  form2_ = program_->WaitFor("Form2");
  ASSERT_NE(form2_, nullptr) << "the program shows no window";
}

void OutsideTest::Press(int buttonId) { EXPECT_TRUE(outside::Press(form2_, buttonId)); }

void OutsideTest::ExpectCleanEnd() {
  outside::CloseWindow(form2_);
  const std::optional<DWORD> code = program_->WaitForExit();
  ASSERT_TRUE(code.has_value()) << "the program goes on running";
  EXPECT_EQ(*code, 0U);
  for (const char* scratch : {"temporaryfile", "zoltempfileoktodelete"}) {
    EXPECT_EQ(GetFileAttributesA(PathOf(scratch).c_str()), INVALID_FILE_ATTRIBUTES) << scratch;
  }
}

std::string OutsideTest::BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
  file.seekg(0);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

void OutsideTest::WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}
