#ifndef CORVALIS_TESTS_WINDOWS_DRIVES_H_
#define CORVALIS_TESTS_WINDOWS_DRIVES_H_

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

// Defines a drive letter for an empty drive. The destructor removes it.
class EmptyDrive {
 public:
  explicit EmptyDrive(const std::string& drive)
      : drive_(drive),
        made_(DefineDosDeviceA(DDD_RAW_TARGET_PATH, drive.c_str(), kDevice) != FALSE) {
    EXPECT_TRUE(made_) << drive;
  }
  EmptyDrive(const EmptyDrive&) = delete;
  EmptyDrive& operator=(const EmptyDrive&) = delete;
  ~EmptyDrive() { Remove(); }

  void Remove() {
    if (made_) {
      made_ = false;
      DefineDosDeviceA(DDD_REMOVE_DEFINITION | DDD_RAW_TARGET_PATH, drive_.c_str(), kDevice);
    }
  }

 private:
  static constexpr const char* kDevice = "\\Device\\CorvalisNothing";

  std::string drive_;
  bool made_;
};

// Sets the current folder of a drive that is not the current one. The destructor removes
// the setting.
class CurrentFolderOfDrive {
 public:
  CurrentFolderOfDrive(const std::string& drive, const std::string& folder)
      : variable_("=" + drive) {
    SetEnvironmentVariableA(variable_.c_str(), folder.c_str());
  }
  CurrentFolderOfDrive(const CurrentFolderOfDrive&) = delete;
  CurrentFolderOfDrive& operator=(const CurrentFolderOfDrive&) = delete;
  ~CurrentFolderOfDrive() { SetEnvironmentVariableA(variable_.c_str(), nullptr); }

 private:
  std::string variable_;
};

// A readable drive that is not that of the current directory. Wine always has one, for the
// files of Linux.
inline std::string OtherDrive() {
  char current[MAX_PATH] = "";
  GetCurrentDirectoryA(sizeof current, current);
  for (char letter = 'Z'; letter > 'B'; --letter) {
    const std::string drive{letter, ':'};
    WIN32_FIND_DATAA found{};
    const HANDLE search = FindFirstFileA((drive + "\\*").c_str(), &found);
    if (letter != current[0] && search != INVALID_HANDLE_VALUE) {
      FindClose(search);
      return drive;
    }
  }
  ADD_FAILURE() << "there is one drive only";
  return {};
}

// The path of a folder in the root of a drive; empty if there is none.
inline std::string FolderInRoot(const std::string& drive) {
  WIN32_FIND_DATAA found{};
  const HANDLE search = FindFirstFileA((drive + "\\*").c_str(), &found);
  std::string path;
  while (search != INVALID_HANDLE_VALUE && path.empty()) {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && found.cFileName[0] != '.') {
      path = drive + "\\" + found.cFileName;
    }
    if (!FindNextFileA(search, &found)) {
      break;
    }
  }
  FindClose(search);
  return path;
}

#endif  // CORVALIS_TESTS_WINDOWS_DRIVES_H_
