#include "menufile/append.h"

#include "menufile/failure.h"

namespace menufile {

MenuAppender::MenuAppender(FileSystem& files, const std::string& path)
    : file_(files.Open(path, OpenMode::Change)) {}

void MenuAppender::Append(const MenuItemRecord& item) {
  std::string line;
  AppendLine(line, item);
  const std::uint64_t size = file_->SeekToEnd();
  try {
    file_->Write(line);
    file_->Flush();
  } catch (const Failure&) {
    // Half a line would make the whole menu unreadable.
    try {
      file_->Truncate(size);
    } catch (const Failure&) {
      // The first failure is the one to tell.
    }
    throw;
  }
}

}  // namespace menufile
