#include "benchmarks/fill_list.h"

#include <string>

namespace bench {
namespace {

// The part of the command line between the last two quotes.
std::string FilePath() {
  const std::string line = GetCommandLineA();
  const std::size_t end = line.rfind('"');
  const std::size_t begin = line.rfind('"', end - 1) + 1;
  return line.substr(begin, end - begin);
}

std::string ReadFileWhole(const std::string& path) {
  const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return {};
  }
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD read = 0;
  ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
  CloseHandle(file);
  bytes.resize(read);
  return bytes;
}

}  // namespace

// The rows are the lines after the type line and the appearance line.
void FillList(HWND list) {
  const std::string bytes = ReadFileWhole(FilePath());
  const auto afterLine = [&bytes](std::size_t from) { return bytes.find("\r\n", from) + 2; };
  std::size_t begin = bytes.find("\r\n<START ZOL>\r\n") + 2;
  for (int skipped = 0; skipped < 3; ++skipped) {
    begin = afterLine(begin);
  }
  SendMessageA(list, WM_SETREDRAW, FALSE, 0);
  while (begin < bytes.size()) {
    const std::size_t end = afterLine(begin);
    const std::string line = bytes.substr(begin, end - 2 - begin);
    SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    begin = end;
  }
  SendMessageA(list, WM_SETREDRAW, TRUE, 0);
}

}  // namespace bench
