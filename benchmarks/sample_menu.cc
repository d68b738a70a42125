#include "benchmarks/sample_menu.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

#include "menufile/records.h"

namespace bench {
namespace {

struct Entry {
  std::string caption;
  std::string target;
  std::string arguments;
  std::string startIn;
  std::string iconFile;
  std::string iconIndex;
};

Entry MakeEntry(std::size_t number) {
  const std::string n = std::to_string(number);
  switch (number % 8) {
    case 0:
      return {"Notepad " + n,
              "C:\\windows\\notepad.exe",
              "C:\\notes\\" + n + ".txt",
              "C:\\notes",
              "",
              "0"};
    case 1:
      return {"Spreadsheet of the year " + n,
              "C:\\Program Files\\Office Tools\\calc.exe",
              "/open /sheet:" + n,
              "C:\\Documents and Settings\\All Users\\Documents",
              "C:\\Program Files\\Office Tools\\icons.dll",
              std::to_string(number % 40)};
    case 2:
      return {"Project page " + n, "http://www.example.org/projects/" + n, "", "", "", "0"};
    case 3:
      return {"Backup, weekly",    "D:\\tools\\backup\\backup.exe",      "/full, /verify /log:" + n,
              "D:\\tools\\backup", "C:\\windows\\system32\\shell32.dll", "8"};
    case 4:
      return {"Folder " + n, "C:\\folders\\" + n, "", "", "", "0"};
    case 5:
      return {"Command Prompt " + n,
              "C:\\windows\\system32\\cmd.exe",
              "/k cd \\work\\" + n,
              "C:\\work",
              "C:\\windows\\system32\\cmd.exe",
              "0"};
    case 6:
      return {"Pictures from the holidays",
              "E:\\pictures\\album " + n + "\\index.html",
              "",
              "E:\\pictures",
              "",
              "0"};
    default:
      return {};
  }
}

void AppendKey(std::string& out, const char* key, std::string_view value) {
  out += key;
  out += '=';
  for (const char c : value) {
    out += c;
    if (c == '\\') {
      out += c;  // the escape of a key file
    }
  }
  out += '\n';
}

}  // namespace

std::string DefaultPicture() {
  std::ifstream file(CORVALIS_DEFAULT_PICTURE, std::ios::binary);
  std::string bytes(std::istreambuf_iterator<char>(file), {});
  if (bytes.empty()) {
    throw std::runtime_error("cannot read " CORVALIS_DEFAULT_PICTURE);
  }
  return bytes;
}

std::string MenuFile(std::size_t entries) {
  std::string out = DefaultPicture();
  out += menufile::kMarkerLine;
  menufile::AppendTypeLine(out, menufile::TypeKeyword(menufile::MenuType::UserDefined));
  out += "1,\"Tahoma\",8.25,0,0\r\n";
  for (std::size_t number = 0; number < entries; ++number) {
    const Entry entry = MakeEntry(number);
    using menufile::Value;
    menufile::AppendLine(
        out, menufile::MenuItemRecord{Value::Quoted(entry.caption), Value::Quoted(entry.target),
                                      Value::Quoted(entry.arguments), Value::Quoted(entry.startIn),
                                      Value::Quoted(entry.iconFile), Value::Bare(entry.iconIndex)});
  }
  return out;
}

std::string KeyFile(std::size_t entries) {
  std::string out =
      "[Menu]\ntype=USERDEF\nsmallIcons=1\nfontName=Tahoma\nfontSize=8.25\nfontBold=0\n"
      "fontItalic=0\n";
  for (std::size_t number = 0; number < entries; ++number) {
    const Entry entry = MakeEntry(number);
    out += '[' + std::to_string(number) + "]\n";
    AppendKey(out, "caption", entry.caption);
    AppendKey(out, "target", entry.target);
    AppendKey(out, "arguments", entry.arguments);
    AppendKey(out, "startIn", entry.startIn);
    AppendKey(out, "iconFile", entry.iconFile);
    AppendKey(out, "iconIndex", entry.iconIndex);
  }
  return out;
}

}  // namespace bench
