#include "tests/windows/menu_bytes.h"

namespace testing_menus {

std::string ItemLine(const std::string& caption, const std::string& target,
                     const std::string& arguments, const std::string& startIn,
                     const std::string& iconFile, const std::string& iconIndex) {
  return "\"" + caption + "\",\"" + target + "\",\"" + arguments + "\",\"" + startIn + "\",\"" +
         iconFile + "\"," + iconIndex + "\r\n";
}

std::string UserDefinedMenu(const std::vector<std::string>& itemLines,
                            const std::string& appearance, const std::string& picture) {
  std::string menu = picture + "\r\n<START ZOL>\r\n\"USERDEF\"\r\n" + appearance;
  for (const std::string& line : itemLines) {
    menu += line;
  }
  return menu;
}

std::string DirectoryMenu(const std::string& directoryLine, const std::string& appearance,
                          const std::string& picture) {
  return picture + "\r\n<START ZOL>\r\n\"DIRPOINT\"\r\n" + appearance + directoryLine;
}

}  // namespace testing_menus
