#include "menufile/records.h"

namespace menufile {
namespace {

void AppendQuoted(std::string& out, const Value& value) {
  out += '"';
  value.AppendTo(out);
  out += '"';
}

void EndLine(std::string& out, std::size_t lineStart) {
  out += "\r\n";
  // A line must not begin with spaces. It can do so only if its first field is bare
  // text.
  const std::size_t first = out.find_first_not_of(' ', lineStart);
  out.erase(lineStart, first - lineStart);
}

// True if the fields are still those of the line. Copying the line takes a fraction of
// the time of writing its fields. A field that was changed has its characters elsewhere.
bool IsUnchanged(const MenuItemRecord& record) {
  if (record.line.empty()) {
    return false;
  }
  const char* place = record.line.data() + 1;
  for (const Value* text :
       {&record.caption, &record.target, &record.arguments, &record.startIn, &record.iconFile}) {
    if (text->characters().data() != place) {
      return false;
    }
    place += text->characters().size() + 3;  // `","`
  }
  return record.iconIndex.characters().data() == place - 1;
}

}  // namespace

std::string_view TypeKeyword(MenuType type) {
  return type == MenuType::UserDefined ? "USERDEF" : "DIRPOINT";
}

void AppendTypeLine(std::string& out, std::string_view keyword) {
  out += '"';
  out += keyword;
  out += "\"\r\n";
}

void AppendLine(std::string& out, const AppearanceRecord& record) {
  const std::size_t lineStart = out.size();
  record.smallIcons.AppendTo(out);
  out += ',';
  AppendQuoted(out, record.fontName);
  for (const Value* number : {&record.fontSize, &record.fontBold, &record.fontItalic}) {
    out += ',';
    number->AppendTo(out);
  }
  EndLine(out, lineStart);
}

void AppendLine(std::string& out, const MenuItemRecord& record) {
  if (IsUnchanged(record)) {
    out += record.line;
    return;
  }
  out += '"';
  record.caption.AppendTo(out);
  for (const Value* text : {&record.target, &record.arguments, &record.startIn, &record.iconFile}) {
    out += "\",\"";
    text->AppendTo(out);
  }
  out += "\",";
  record.iconIndex.AppendTo(out);
  out += "\r\n";
}

void AppendLine(std::string& out, const DirectoryPointerRecord& record) {
  AppendQuoted(out, record.folderPath);
  out += ',';
  AppendQuoted(out, record.filePattern);
  for (const Value* flag :
       {&record.showFolders, &record.hideKnownExtensions, &record.showHiddenFiles}) {
    out += ',';
    flag->AppendTo(out);
  }
  out += "\r\n";
}

}  // namespace menufile
