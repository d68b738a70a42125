#include "menufile/reader.h"

#include <algorithm>

#include "menufile/failure.h"

namespace menufile {

bool MenuReader::SkipMarkerLine() { return SkipMarker(true).has_value(); }

std::optional<std::size_t> MenuReader::SkipMarker() { return SkipMarker(false); }

// A line ends at a CR, whose LF belongs to it if one follows. A lone LF, which
// a picture may well hold, ends none.
std::optional<std::size_t> MenuReader::SkipMarker(bool wholeLine) {
  const auto beginsLine = [this](std::size_t at) {
    return at == 0 || bytes_[at - 1] == '\r' ||
           (at >= 2 && bytes_[at - 1] == '\n' && bytes_[at - 2] == '\r');
  };
  for (std::size_t at = bytes_.find(kMarkerText, offset_); at != std::string_view::npos;
       at = bytes_.find(kMarkerText, at + 1)) {
    const std::size_t end = at + kMarkerText.size();
    const bool endsLine = end == bytes_.size() || bytes_[end] == '\r';
    if (endsLine && (!wholeLine || beginsLine(at))) {
      offset_ = end;
      SkipLineEnd();
      return at;
    }
  }
  offset_ = bytes_.size();
  return std::nullopt;
}

Value MenuReader::ReadTypeLine() {
  Value type;
  ReadRecord("the type line", {{"menu type", &type}});
  return type;
}

AppearanceRecord MenuReader::ReadAppearance() {
  AppearanceRecord record;
  ReadRecord("the appearance line", {{"smallIcons", &record.smallIcons},
                                     {"fontName", &record.fontName},
                                     {"fontSize", &record.fontSize},
                                     {"fontBold", &record.fontBold},
                                     {"fontItalic", &record.fontItalic}});
  return record;
}

MenuItemRecord MenuReader::ReadItem() {
  ++entriesRead_;
  MenuItemRecord record;
  ReadRecord("entry", {{"caption", &record.caption},
                       {"target", &record.target},
                       {"arguments", &record.arguments},
                       {"startIn", &record.startIn},
                       {"iconFile", &record.iconFile},
                       {"iconIndex", &record.iconIndex}});
  return record;
}

DirectoryPointerRecord MenuReader::ReadDirectoryPointer() {
  DirectoryPointerRecord record;
  ReadRecord("the directory line", {{"folderPath", &record.folderPath},
                                    {"filePattern", &record.filePattern},
                                    {"showFolders", &record.showFolders},
                                    {"hideKnownExtensions", &record.hideKnownExtensions},
                                    {"showHiddenFiles", &record.showHiddenFiles}});
  return record;
}

void MenuReader::ReadRecord(const char* record, std::initializer_list<Field> fields) {
  for (const Field& field : fields) {
    if (!ReadField(*field.value) && pastEnd_ == PastEnd::Throws) {
      std::string doing = std::string("read ") + record;
      if (entriesRead_ > 0) {
        doing += ' ' + std::to_string(entriesRead_);
      }
      throw Failure(path_, doing + ", field " + field.name + ", of the file",
                    "The file ends too early", bytes_.size());
    }
  }
}

// False when the bytes end before the field begins or before its closing quote.
// What stands behind an opening quote that is never closed is the value all the
// same, so that a reader that goes on loses none of it.
bool MenuReader::ReadField(Value& value) {
  offset_ = std::min(bytes_.find_first_not_of(' ', offset_), bytes_.size());
  if (AtEnd()) {
    return false;
  }
  const auto fieldEnd = [this](std::size_t from) {
    while (from < bytes_.size() && bytes_[from] != ',' && bytes_[from] != '\r' &&
           bytes_[from] != '\n') {
      ++from;
    }
    return from;
  };
  if (bytes_[offset_] == '"') {
    const std::size_t begin = offset_ + 1;
    const std::size_t quote = bytes_.find('"', begin);
    value = Value::Quoted(bytes_.substr(begin, quote - begin));
    if (quote == std::string_view::npos) {
      offset_ = bytes_.size();
      return false;
    }
    offset_ = fieldEnd(quote + 1);
  } else {
    const std::size_t end = fieldEnd(offset_);
    std::string_view text = bytes_.substr(offset_, end - offset_);
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    value = Value::Bare(text);
    offset_ = end;
  }
  if (!AtEnd() && bytes_[offset_] == ',') {
    ++offset_;
  } else {
    SkipLineEnd();
  }
  return true;
}

void MenuReader::SkipLineEnd() {
  if (!AtEnd() && bytes_[offset_] == '\r') {
    ++offset_;
  }
  if (!AtEnd() && bytes_[offset_] == '\n') {
    ++offset_;
  }
}

}  // namespace menufile
