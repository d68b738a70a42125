#ifndef CORVALIS_TESTS_WINDOWS_LOCKED_FILE_H_
#define CORVALIS_TESTS_WINDOWS_LOCKED_FILE_H_

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

// Has a file open like another program until it is destroyed. `share` is what others may
// do with the file meanwhile.
class LockedFile {
 public:
  explicit LockedFile(const std::string& path, DWORD share = FILE_SHARE_READ,
                      DWORD access = GENERIC_READ, DWORD disposition = OPEN_EXISTING)
      : file_(CreateFileA(path.c_str(), access, share, nullptr, disposition,
                          FILE_FLAG_BACKUP_SEMANTICS /* for folders */, nullptr)) {
    EXPECT_NE(file_, INVALID_HANDLE_VALUE) << path;
  }
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;
  ~LockedFile() { CloseHandle(file_); }

 private:
  HANDLE file_;
};

#endif  // CORVALIS_TESTS_WINDOWS_LOCKED_FILE_H_
