#include "tests/menufile/literal_rewrite.h"

#include <vector>

#include "tests/menufile/literal_file.h"

namespace menufile {
namespace {

using Kind = Operation::Kind;
using Fields = std::vector<std::string>;

// A read behind the end of the file, where failures are not ignored.
struct ReadFailed {};

class LiteralRewrite {
 public:
  LiteralRewrite(LiteralFile& menu, LiteralFile& scratch, const Operation& operation)
      : menu_(menu), scratch_(scratch), operation_(operation) {}

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
    switch (operation_.kind) {
      case Kind::Keep:
      case Kind::Edit:
      case Kind::ChangeIcon:
        break;
      case Kind::SaveDirectory:
      case Kind::SwitchToDirectory:
        keyword = "DIRPOINT";
        break;
      default:
        keyword = "USERDEF";
    }
    PutLine("\"" + keyword + "\"\r\n");
  }

  void AppearanceLine() {
    Fields fields = Read(5);
    if (operation_.kind == Kind::SaveAppearance) {
      fields = {operation_.smallIcons, operation_.fontName, operation_.fontSize,
                operation_.fontBold, operation_.fontItalic};
    }
    PutLine(fields[0] + ",\"" + fields[1] + "\"," + fields[2] + "," + fields[3] + "," + fields[4] +
            "\r\n");
  }

  void Items() {
    int counter = 0;
    const int row = static_cast<int>(operation_.row);
    while (!menu_.AtEnd()) {
      Fields record = Read(6);
      switch (operation_.kind) {
        case Kind::MoveUp:
          if (counter == row - 1) {
            PutItem(Read(6));
          }
          PutItem(record);
          break;
        case Kind::MoveDown:
          if (counter == row) {
            PutItem(Read(6));
          }
          PutItem(record);
          break;
        case Kind::Delete:
          if (counter != row) {
            PutItem(record);
          }
          break;
        case Kind::Separator:
          if (counter == row) {
            PutLine("\"\",\"\",\"\",\"\",\"\",\r\n");
          }
          PutItem(record);
          break;
        case Kind::Edit:
          if (counter == row) {
            record = {operation_.caption, operation_.target, operation_.arguments,
                      operation_.startIn, record[4],         record[5]};
          }
          PutItem(record);
          break;
        case Kind::ChangeIcon:
          if (counter == row) {
            record[4] = operation_.iconFile == record[0] ? "" : operation_.iconFile;
            record[5] = operation_.iconIndex;
          }
          PutItem(record);
          break;
        default:
          PutItem(record);
      }
      ++counter;
    }
  }

  void DirectoryLine() {
    if (operation_.kind == Kind::SwitchToDirectory) {
      PutLine("\"C:\\\",\"*.*\",1,0,0\r\n");
    } else {
      PutLine("\"" + operation_.folderPath + "\",\"" + operation_.filePattern + "\"," +
              operation_.showFolders + "," + operation_.hideKnownExtensions + "," +
              operation_.showHiddenFiles + "\r\n");
    }
  }

 private:
  // A field that cannot be read stays empty, or as far as it was read.
  Fields Read(int count) {
    Fields fields;
    for (int i = 0; i < count; ++i) {
      LiteralFile::Field field;
      if (!menu_.ReadField(field) && !IgnoresFailures(operation_.kind)) {
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
  const Operation& operation_;
  bool foundMarker_ = false;
};

}  // namespace

LiteralResult RewriteLiterally(std::string_view menuBytes,
                               const std::optional<std::string>& scratchBytes,
                               bool scratchCanBeDeleted, const Operation& operation) {
  LiteralResult result;
  const bool deleted = scratchCanBeDeleted && DeletesScratchFirst(operation.kind);
  LiteralFile menu(menuBytes);
  LiteralFile scratch(deleted || !scratchBytes ? "" : *scratchBytes);
  const bool newPicture = operation.kind == Kind::SaveAppearance;
  LiteralRewrite rewrite(menu, scratch, operation);
  try {
    if (newPicture) {
      rewrite.SkipPicture();
    } else {
      rewrite.CopyPicture();
    }
    rewrite.TypeLine();
    rewrite.AppearanceLine();
    switch (operation.kind) {
      case Kind::SaveDirectory:
      case Kind::SwitchToDirectory:
        rewrite.DirectoryLine();
        break;
      case Kind::SwitchToUserDefined:
        break;
      default:
        rewrite.Items();
    }
  } catch (const ReadFailed&) {
    result.menu = menuBytes;
    result.scratch = scratch.bytes();
    result.failed = true;
    result.noMarker = !rewrite.foundMarker();
    return result;
  }
  // The emptied menu file may hold a line end; it is written over.
  LiteralFile copy(newPicture ? operation.picture : std::string("\r\n"));
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
