#include "editor/windows_files.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "menufile/failure.h"
#include "win32/current_folder.h"
#include "win32/handles.h"
#include "win32/text.h"
#include "win32/window_text.h"

namespace editor {
namespace {

using menufile::Failure;
using menufile::OpenMode;

// The most bytes for one ReadFile() or WriteFile(), whose counts have 32 bits.
constexpr std::size_t kMostBytes = 64U << 20;

[[noreturn]] void Fail(const std::string& path, const char* doing) {
  const DWORD error = GetLastError();
  throw Failure(
      path, doing,
      win32::ToBytes(win32::ErrorText(error)).value_or("Windows error " + std::to_string(error)));
}

// An indexer, a virus scanner or a cloud folder opens a file as soon as it has changed,
// and closes it a moment later. So a failing operation is tried again for this long.
constexpr DWORD kPatience = 500;  // milliseconds
constexpr DWORD kPause = 20;      // milliseconds between two tries

// True if ERROR_ACCESS_DENIED will stay: the file is a folder or read-only, or the
// folder takes no file. A file that another program is deleting is denied, too, but
// only until it is gone.
bool IsDeniedForGood(const std::string& path) {
  const std::wstring text = win32::ToText(path);
  const DWORD attributes = GetFileAttributesW(text.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES &&
      (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
    return true;
  }
  return !win32::TakesNewFile(win32::FolderOf(text));
}

// True if the operation may succeed a moment later.
bool MayPass(DWORD error, const std::string& path) {
  switch (error) {
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_DELETE_PENDING:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_FILE_EXISTS:  // says OpenMode::New alone
      return true;
    case ERROR_ACCESS_DENIED:
      return !IsDeniedForGood(path);
    default:
      return false;
  }
}

// Repeats an operation on the file at `path` while another program blocks it and
// `mayGoOn` returns true, for kPatience at most. `operation` returns false after
// SetLastError(), and so does this.
template <typename Operation, typename Condition>
bool TryWhile(const std::string& path, Operation operation, Condition mayGoOn) {
  const ULONGLONG start = GetTickCount64();
  std::optional<DWORD> passing;  // the error for which MayPass() was true
  while (!operation()) {
    const DWORD error = GetLastError();
    if (passing != error && MayPass(error, path)) {
      passing = error;
    }
    const bool isTimeLeft = GetTickCount64() - start < kPatience;
    if (passing == error && isTimeLeft) {
      Sleep(kPause);
    }
    if (passing != error || !isTimeLeft || !mayGoOn(error)) {
      SetLastError(error);
      return false;
    }
  }
  return true;
}

template <typename Operation>
bool TryFor(const std::string& path, Operation operation) {
  return TryWhile(path, operation, [](DWORD) { return true; });
}

// The time of the last write to a file, and its size; zeros if there is no file.
std::array<DWORD, 4> LastWriteTo(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  GetFileAttributesExW(win32::ToText(path).c_str(), GetFileExInfoStandard, &data);
  return {data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime,
          data.nFileSizeHigh, data.nFileSizeLow};
}

std::string Utf8(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  std::string bytes(text.size() * 3, '\0');
  bytes.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr)));
  return bytes;
}

class WindowsFile final : public menufile::File {
 public:
  WindowsFile(std::string path, HANDLE handle) : path_(std::move(path)), handle_(handle) {}
  ~WindowsFile() override { CloseHandle(handle_); }

  std::string FullName() override {
    constexpr DWORD kLongest = 32768;  // the most characters in a path
    std::wstring name(kLongest, L'\0');
    const DWORD size = GetFinalPathNameByHandleW(handle_, name.data(), kLongest, 0);
    if (size > 0 && size < kLongest) {
      return Utf8(std::wstring_view(name).substr(0, size));
    }
    // Some file systems do not know the path of a handle.
    BY_HANDLE_FILE_INFORMATION information{};
    if (!GetFileInformationByHandle(handle_, &information)) {
      Fail(path_, "read the file");
    }
    return std::to_string(information.dwVolumeSerialNumber) + '/' +
           std::to_string(information.nFileIndexHigh) + '/' +
           std::to_string(information.nFileIndexLow);
  }

  std::uint64_t Size() override {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(handle_, &size)) {
      Fail(path_, "read the file");
    }
    return static_cast<std::uint64_t>(size.QuadPart);
  }

  std::string ReadAll() override {
    std::string bytes(static_cast<std::size_t>(Size()), '\0');
    bytes.resize(Read(0, bytes));  // the file may have become shorter meanwhile
    return bytes;
  }

  std::size_t Read(std::uint64_t offset, std::span<char> bytes) override {
    MoveTo(offset, "read the file");
    std::size_t done = 0;
    while (done < bytes.size()) {
      DWORD count = 0;
      if (!ReadFile(handle_, bytes.data() + done,
                    static_cast<DWORD>(std::min(bytes.size() - done, kMostBytes)), &count,
                    nullptr)) {
        Fail(path_, "read the file");
      }
      if (count == 0) {
        break;
      }
      done += count;
    }
    return done;
  }

  void Truncate(std::uint64_t size) override {
    MoveTo(size, "write the file");
    if (!TryFor(path_, [this] { return SetEndOfFile(handle_) != FALSE; })) {
      Fail(path_, "write the file");
    }
    position_ = size;
  }

  void Seek(std::uint64_t offset) override { position_ = offset; }

  void Write(std::string_view bytes) override {
    MoveTo(position_, "write the file");
    while (!bytes.empty()) {
      DWORD count = 0;
      if (!WriteFile(handle_, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kMostBytes)),
                     &count, nullptr)) {
        Fail(path_, "write the file");
      }
      if (count == 0) {
        throw Failure(path_, "write the file", "Nothing was written to it");
      }
      position_ += count;
      bytes.remove_prefix(count);
    }
  }

  void Flush() override {
    if (!FlushFileBuffers(handle_)) {
      Fail(path_, "write the file");
    }
  }

 private:
  void MoveTo(std::uint64_t position, const char* doing) {
    LARGE_INTEGER distance{};
    distance.QuadPart = static_cast<LONGLONG>(position);
    if (!SetFilePointerEx(handle_, distance, nullptr, FILE_BEGIN)) {
      Fail(path_, doing);
    }
  }

  std::string path_;
  HANDLE handle_;
  std::uint64_t position_ = 0;  // the offset of the next Write()
};

}  // namespace

std::unique_ptr<menufile::File> WindowsFileSystem::Open(const std::string& path, OpenMode mode) {
  const bool reading = mode == OpenMode::Read;
  // Windows checks this itself. Wine lets root write a read-only file.
  const DWORD attributes = reading ? 0 : GetFileAttributesW(win32::ToText(path).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    SetLastError(ERROR_ACCESS_DENIED);
    Fail(path, "write the file");
  }
  const DWORD disposition = mode == OpenMode::New      ? CREATE_NEW
                            : mode == OpenMode::Create ? OPEN_ALWAYS
                                                       : OPEN_EXISTING;
  HANDLE handle = INVALID_HANDLE_VALUE;
  const auto open = [&] {
    handle = CreateFileW(win32::ToText(path).c_str(), GENERIC_READ | (reading ? 0 : GENERIC_WRITE),
                         FILE_SHARE_READ | (reading ? FILE_SHARE_WRITE | FILE_SHARE_DELETE : 0),
                         nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    return handle != INVALID_HANDLE_VALUE;
  };
  // A sharing violation with OpenMode::Create means that another editor uses its scratch
  // file. Waiting would end with opening the bytes that it leaves there.
  const auto mayGoOn = [mode](DWORD error) {
    return mode != OpenMode::Create || error != ERROR_SHARING_VIOLATION;
  };
  if (!TryWhile(path, open, mayGoOn)) {
    Fail(path, reading ? "open the file" : "write the file");
  }
  return std::make_unique<WindowsFile>(path, handle);
}

void WindowsFileSystem::Remove(const std::string& path,
                               const std::function<bool(menufile::File& file)>& mayGo) {
  // Do not try again after another editor has written the file: it is in use.
  const auto before = LastWriteTo(path);
  const std::wstring name = win32::ToText(path);
  const auto remove = [&] {
    const HANDLE handle =
        CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
      return false;
    }
    DWORD error = ERROR_SUCCESS;
    {
      WindowsFile file(path, handle);  // while it is open, nobody can write the file
      if (mayGo(file) && !DeleteFileW(name.c_str())) {
        error = GetLastError();
      }
    }
    SetLastError(error);
    return error == ERROR_SUCCESS;
  };
  if (!TryWhile(path, remove, [&](DWORD) { return LastWriteTo(path) == before; })) {
    Fail(path, "delete the file");
  }
}

std::unique_ptr<menufile::File> WindowsFileSystem::OpenIfThere(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(win32::ToText(path).c_str());
  const DWORD error = GetLastError();
  if (attributes == INVALID_FILE_ATTRIBUTES
          ? error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND
          : (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return nullptr;
  }
  return Open(path, OpenMode::Read);
}

std::vector<std::string> WindowsFileSystem::FilesThatBeginWith(const std::string& prefix) {
  const std::wstring pattern = win32::ToText(prefix) + L"*";
  const std::size_t folderSize = win32::FolderOf(pattern).size();
  const std::size_t nameSize = pattern.size() - 1 - folderSize;
  std::vector<std::string> paths;
  WIN32_FIND_DATAW found;
  const HANDLE opened = FindFirstFileW(pattern.c_str(), &found);
  if (opened == INVALID_HANDLE_VALUE) {
    if (GetLastError() == ERROR_FILE_NOT_FOUND || GetLastError() == ERROR_PATH_NOT_FOUND) {
      return paths;
    }
    Fail(prefix, "list the files");
  }
  const win32::UniqueSearch search(opened);
  do {
    // FindFirstFile() compares short names, too, so compare the long one here.
    const std::wstring_view name = found.cFileName;
    const bool begins =
        name.size() >= nameSize &&
        CompareStringOrdinal(name.data(), static_cast<int>(nameSize), pattern.data() + folderSize,
                             static_cast<int>(nameSize), TRUE) == CSTR_EQUAL;
    const std::optional<std::string> rest =
        begins ? win32::ToBytes(name.substr(nameSize)) : std::nullopt;
    if (rest) {
      paths.push_back(prefix + *rest);
    }
  } while (FindNextFileW(search.get(), &found));
  if (GetLastError() != ERROR_NO_MORE_FILES) {
    Fail(prefix, "list the files");
  }
  return paths;
}

std::string WindowsFileSystem::Beside(const std::string& path, const std::string& name) {
  return win32::ToBytes(win32::FolderOf(win32::ToText(path))).value_or("") + name;
}

std::uint64_t WindowsFileSystem::FreeBytes(const std::string& path) {
  const std::wstring folder = win32::FolderOf(win32::ToText(path));
  ULARGE_INTEGER free{};
  if (!GetDiskFreeSpaceExW(folder.empty() ? nullptr : folder.c_str(), &free, nullptr, nullptr)) {
    Fail(path, "find the disk of the file");
  }
  return free.QuadPart;
}

std::uint64_t WindowsFileSystem::Now() {
  FILETIME now{};
  GetSystemTimeAsFileTime(&now);
  const ULARGE_INTEGER time{.u = {now.dwLowDateTime, now.dwHighDateTime}};
  lastTime_ = std::max<std::uint64_t>(time.QuadPart, lastTime_ + 1);
  return lastTime_;
}

}  // namespace editor
