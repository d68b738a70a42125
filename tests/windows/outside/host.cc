#include "tests/windows/outside/host.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/windows/outside/program.h"

namespace outside {

std::string BuildFolder() {
  char own[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, own, MAX_PATH);
  // This program is in its folder windows\tests\windows\outside.
  char folder[MAX_PATH] = "";
  GetFullPathNameA((std::string(own) + "\\..\\..\\..\\..\\..").c_str(), MAX_PATH, folder, nullptr);
  return folder;
}

// Wine can start programs of the host, but not wait for them.
bool StartOnHost(const std::string& commandLine, const std::string& folder) {
  std::string line = commandLine;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(),
                      &startup, &process)) {
    return false;
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

int HostProcess(const std::string& argument) {
  for (const auto& entry : std::filesystem::directory_iterator("Z:\\proc")) {
    const std::string name = entry.path().filename().string();
    std::ifstream file(entry.path() / "cmdline", std::ios::binary);
    const std::string line(std::istreambuf_iterator<char>(file), {});
    if (std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; }) &&
        line.find(argument) != std::string::npos) {
      return std::stoi(name);
    }
  }
  return 0;
}

bool IsHostProcessAtWork(int number) {
  const std::filesystem::path process = "Z:\\proc\\" + std::to_string(number);
  // A process that has ended has no memory, so it has no command line, and only one thread.
  std::ifstream file(process / "cmdline", std::ios::binary);
  if (file.get() != std::char_traits<char>::eof()) {
    return true;
  }
  std::error_code failed;
  const std::filesystem::directory_iterator threads(process / "task", failed);
  return !failed && std::distance(begin(threads), end(threads)) > 1;
}

bool TakeScreenshot(const std::string& name) {
  const std::filesystem::path picture = BuildFolder() + "\\screenshots\\" + name + ".png";
  std::error_code failed;
  std::filesystem::create_directories(picture.parent_path(), failed);
  std::filesystem::remove(picture, failed);
  if (!StartOnHost("Z:\\usr\\bin\\import -silent -window root " + picture.filename().string(),
                   picture.parent_path().string())) {
    return false;
  }
  // A picture that is being written has no end yet.
  return WaitUntil([&] {
    std::ifstream file(picture, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    return bytes.ends_with(std::string("IEND\xAE\x42\x60\x82"));
  });
}

}  // namespace outside
