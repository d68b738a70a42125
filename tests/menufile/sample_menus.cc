#include "tests/menufile/sample_menus.h"

namespace menufile {

std::string SamplePicture() {
  static constexpr char kPicture[] =
      "\0\0\1\0\1\0  \r<\n<\r\n<START\r\n <START ZOL> \r\n<START ZOL>\nx\r\n<start zol>\r\n<<\xff";
  return std::string(kPicture, sizeof kPicture - 1);
}

std::string ItemLine(int number) {
  const std::string n = std::to_string(number);
  switch (number % 6) {
    case 0:
      return "\"Caption " + n + "\",\"C:\\dir\\tool" + n +
             ".exe\",\"/a, /b\",\"C:\\dir\",\"\",0\r\n";
    case 1:
      return "\"Icon\",\"C:\\t.exe\",\"\",\"\",\"C:\\icons.dll\"," + n + "\r\n";
    case 3:
      return "\"Address " + n + "\",\"http://host/<path>\",\"\",\"\",\"\",-1\r\n";
    case 4:
      return "\" \xe4 \x80\x01\",\"\t\",\" \",\"  x \",\"\",0\r\n";
    default:
      return std::string(kSeparatorLine);
  }
}

std::string UserMenu(int items, std::string_view picture) {
  std::string menu(picture);
  menu += kMarker;
  menu += "\"USERDEF\"\r\n";
  return menu + PreviousVersionMenu(items);
}

std::string DirectoryMenu(std::string_view picture) {
  std::string menu(picture);
  menu += kMarker;
  menu += "\"DIRPOINT\"\r\n";
  menu += kAppearanceLine;
  return menu + "\"D:\\music\\\",\"*.mp3\",1,0,1\r\n";
}

std::string PreviousVersionMenu(int items) {
  std::string menu(kAppearanceLine);
  for (int number = 0; number < items; ++number) {
    menu += ItemLine(number);
  }
  return menu;
}

std::string Description(std::string_view menu, std::string_view picture) {
  return std::string(menu.substr(picture.size()));
}

}  // namespace menufile
