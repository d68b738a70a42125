#ifndef CORVALIS_MENUFILE_APPEND_H_
#define CORVALIS_MENUFILE_APPEND_H_

#include <memory>
#include <string>

#include "menufile/file_system.h"
#include "menufile/records.h"

namespace menufile {

// Adds entries behind the last byte of a menu file, without a look at what
// stands before it and without a scratch file. The file is open for as long as
// this object lives. Every operation throws Failure when it did not succeed.
class MenuAppender {
 public:
  MenuAppender(FileSystem& files, const std::string& path);

  // Writes the line of `item` and waits until it is on the disk. A line that
  // could not be written whole is taken back.
  void Append(const MenuItemRecord& item);

 private:
  std::unique_ptr<File> file_;
};

}  // namespace menufile

#endif  // CORVALIS_MENUFILE_APPEND_H_
