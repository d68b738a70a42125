#include <vector>

#include "tests/menufile/compare_with_literal.h"
#include "tests/menufile/literal_file.h"

namespace menufile {
namespace {

using Kind = UserChange::Kind;
using Fields = std::vector<std::string>;

// The font sizes of the tests are integers.
std::string SizeText(double points) { return std::to_string(static_cast<int>(points)); }

// Thrown by a read after the end of the file if failures are not ignored.
struct ReadFailed {};

class LiteralRewrite {
 public:
  LiteralRewrite(LiteralFile& menu, LiteralFile& scratch, const UserChange& change)
      : menu_(menu), scratch_(scratch), change_(change) {}

  bool foundMarker() const { return foundMarker_; }

  void CopyPicture() {
    for (std::size_t p = 1; p <= menu_.Length(); ++p) {
      const char byte = menu_.GetAt(p);
      scratch_.PutAt(p, byte);
      if (byte == '<') {
        const std::string line = menu_.ReadLine();
        scratch_.PutNext(Trimmed(line + "\r\n"));
        if (line == "START ZOL>") {
          foundMarker_ = true;
          break;
        }
      }
    }
  }

  void SkipPicture() {
    for (std::size_t p = 1; p <= menu_.Length(); ++p) {
      if (menu_.GetAt(p) == '<' && menu_.ReadLine() == "START ZOL>") {
        foundMarker_ = true;
        break;
      }
    }
    PutLine("\r\n<START ZOL>\r\n");
  }

  void TypeLine() {
    std::string keyword = Read(1)[0];
    if (change_.kind == Kind::SaveDirectory || change_.kind == Kind::SwitchToDirectory) {
      keyword = "DIRPOINT";
    } else if (change_.kind != Kind::Keep && change_.kind != Kind::Edit &&
               change_.kind != Kind::ChangeIcon) {
      keyword = "USERDEF";
    }
    PutLine("\"" + keyword + "\"\r\n");
  }

  void AppearanceLine() {
    Fields fields = Read(5);
    if (change_.kind == Kind::SaveAppearance) {
      const Appearance& a = change_.appearance;
      fields = {a.smallIcons ? "1" : "0", a.fontName, SizeText(a.fontPoints),
                a.fontBold ? "-1" : "0", a.fontItalic ? "-1" : "0"};
    }
    PutLine(fields[0] + ",\"" + fields[1] + "\"," + fields[2] + "," + fields[3] + "," + fields[4] +
            "\r\n");
  }

  void Items() {
    int counter = 0;
    const int row = static_cast<int>(change_.row);
    while (!menu_.AtEnd()) {
      Fields record = Read(6);
      const bool isRow = counter == row;
      if (change_.kind == Kind::MoveUp ? counter == row - 1
                                       : change_.kind == Kind::MoveDown && isRow) {
        PutItem(Read(6));
      } else if (change_.kind == Kind::Separator && isRow) {
        PutLine("\"\",\"\",\"\",\"\",\"\",\r\n");
      } else if (change_.kind == Kind::Edit && isRow) {
        const EntryTexts& t = change_.texts;
        record = {t.caption, t.target, t.arguments, t.startIn, record[4], record[5]};
      } else if (change_.kind == Kind::ChangeIcon && isRow) {
        record[4] = change_.iconFile == record[0] ? "" : change_.iconFile;
        record[5] = change_.iconIndex;
      }
      if (change_.kind != Kind::Delete || !isRow) {
        PutItem(record);
      }
      ++counter;
    }
  }

  void DirectoryLine() {
    if (change_.kind == Kind::SwitchToDirectory) {
      PutLine("\"C:\\\",\"*.*\",1,0,0\r\n");
    } else {
      const Directory& d = change_.directory;
      PutLine("\"" + d.folderPath + "\",\"" + d.filePattern + "\"," + (d.showFolders ? "1" : "0") +
              "," + (d.hideKnownExtensions ? "1" : "0") + "," + (d.showHiddenFiles ? "1" : "0") +
              "\r\n");
    }
  }

 private:
  // A field that has no end keeps the bytes that were read.
  Fields Read(int count) {
    Fields fields;
    for (int i = 0; i < count; ++i) {
      LiteralFile::Field field;
      if (!menu_.ReadField(field) && !IgnoresFailures(change_.kind)) {
        throw ReadFailed();
      }
      fields.push_back(field.text);
    }
    return fields;
  }

  void PutLine(const std::string& line) { scratch_.PutNext(Trimmed(line)); }

  void PutItem(const Fields& f) {
    PutLine("\"" + f[0] + "\",\"" + f[1] + "\",\"" + f[2] + "\",\"" + f[3] + "\",\"" + f[4] +
            "\"," + f[5] + "\r\n");
  }

  LiteralFile& menu_;
  LiteralFile& scratch_;
  const UserChange& change_;
  bool foundMarker_ = false;
};

}  // namespace

LiteralResult RewriteLiterally(std::string_view menuBytes,
                               const std::optional<std::string>& scratchBytes,
                               bool scratchCanBeDeleted, const UserChange& change) {
  LiteralResult result;
  const bool deleted = scratchCanBeDeleted && DeletesScratchFirst(change.kind);
  LiteralFile menu(menuBytes);
  LiteralFile scratch(deleted || !scratchBytes ? "" : *scratchBytes);
  const bool newPicture = change.kind == Kind::SaveAppearance;
  LiteralRewrite rewrite(menu, scratch, change);
  try {
    if (newPicture) {
      rewrite.SkipPicture();
    } else {
      rewrite.CopyPicture();
    }
    rewrite.TypeLine();
    rewrite.AppearanceLine();
    if (change.kind == Kind::SaveDirectory || change.kind == Kind::SwitchToDirectory) {
      rewrite.DirectoryLine();
    } else if (change.kind != Kind::SwitchToUserDefined) {
      rewrite.Items();
    }
  } catch (const ReadFailed&) {
    result.menu = menuBytes;
    result.scratch = scratch.bytes();
    result.failed = true;
    result.noMarker = !rewrite.foundMarker();
    return result;
  }
  // The emptied menu file may hold a line end, which is overwritten.
  LiteralFile copy(newPicture ? change.appearance.picture : std::string("\r\n"));
  const std::size_t before = newPicture ? copy.Length() : 0;
  for (std::size_t p = 1; p <= scratch.Length(); ++p) {
    copy.PutAt(before + p, scratch.GetAt(p));
  }
  result.menu = copy.bytes();
  result.noMarker = !rewrite.foundMarker();
  if (!scratchCanBeDeleted) {
    result.scratch = scratch.bytes();
  }
  return result;
}

}  // namespace menufile
