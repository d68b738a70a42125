#include "tests/menufile/operation.h"

namespace menufile {
namespace {

RecordRule RuleFor(const Operation& operation) {
  const std::size_t row = operation.row;
  switch (operation.kind) {
    case Operation::Kind::MoveUp:
    case Operation::Kind::MoveDown: {
      const bool up = operation.kind == Operation::Kind::MoveUp;
      return [row, up](std::size_t counter, const MenuItemRecord& record, RecordStream& records) {
        if (up ? counter + 1 == row : counter == row) {
          records.Write(records.ReadNext());
        }
        records.Write(record);
      };
    }
    case Operation::Kind::Delete:
      return [row](std::size_t counter, const MenuItemRecord& record, RecordStream& records) {
        if (counter != row) {
          records.Write(record);
        }
      };
    case Operation::Kind::Separator:
      return [row](std::size_t counter, const MenuItemRecord& record, RecordStream& records) {
        if (counter == row) {
          records.WriteSeparator();
        }
        records.Write(record);
      };
    case Operation::Kind::Edit:
      return
          [&operation](std::size_t counter, const MenuItemRecord& record, RecordStream& records) {
            MenuItemRecord edited = record;
            if (counter == operation.row) {
              edited.caption = Value::Quoted(operation.caption);
              edited.target = Value::Quoted(operation.target);
              edited.arguments = Value::Quoted(operation.arguments);
              edited.startIn = Value::Quoted(operation.startIn);
            }
            records.Write(edited);
          };
    case Operation::Kind::ChangeIcon:
      return
          [&operation](std::size_t counter, const MenuItemRecord& record, RecordStream& records) {
            MenuItemRecord changed = record;
            if (counter == operation.row) {
              const bool isCaption = operation.iconFile == record.caption.Text();
              changed.iconFile = isCaption ? Value::Quoted("") : Value::Quoted(operation.iconFile);
              changed.iconIndex = Value::Bare(operation.iconIndex);
            }
            records.Write(changed);
          };
    case Operation::Kind::SaveDirectory:
    case Operation::Kind::SwitchToDirectory:
    case Operation::Kind::SwitchToUserDefined:
      return nullptr;
    case Operation::Kind::Keep:
    case Operation::Kind::SaveAppearance:
      break;
  }
  return KeepRecord;
}

}  // namespace

const char* NameOf(Operation::Kind kind) {
  static constexpr const char* kNames[kOperationKinds] = {"Keep",
                                                          "MoveUp",
                                                          "MoveDown",
                                                          "Delete",
                                                          "Separator",
                                                          "Edit",
                                                          "ChangeIcon",
                                                          "SaveAppearance",
                                                          "SaveDirectory",
                                                          "SwitchToDirectory",
                                                          "SwitchToUserDefined"};
  return kNames[static_cast<int>(kind)];
}

bool IgnoresFailures(Operation::Kind kind) {
  return kind == Operation::Kind::MoveUp || kind == Operation::Kind::MoveDown ||
         kind == Operation::Kind::Delete || kind == Operation::Kind::Separator;
}

bool DeletesScratchFirst(Operation::Kind kind) { return kind != Operation::Kind::ChangeIcon; }

const char* ScratchFileOf(Operation::Kind kind) {
  return kind == Operation::Kind::Edit || kind == Operation::Kind::ChangeIcon ||
                 kind == Operation::Kind::SaveAppearance
             ? "zoltempfileoktodelete"
             : "temporaryfile";
}

Operation MakeOperation(Operation::Kind kind, std::size_t row) {
  Operation operation;
  operation.kind = kind;
  operation.row = row;
  operation.caption = "Edited, anew";
  operation.target = "C:\\tools\\edited.exe";
  operation.arguments = "/edited";
  operation.startIn = "C:\\tools";
  operation.iconFile = "C:\\icons\\new.icl";
  operation.iconIndex = "12";
  operation.smallIcons = "1";
  operation.fontName = "Courier New";
  operation.fontSize = "10";
  operation.fontBold = "-1";
  static constexpr char kPicture[] = "BM new < picture \0 \r\n of its own\r<";
  operation.picture = std::string(kPicture, sizeof kPicture - 1);
  operation.folderPath = "D:\\new folder\\";
  operation.filePattern = "*.txt";
  operation.showHiddenFiles = "1";
  return operation;
}

MenuChange ChangeFor(const Operation& operation) {
  MenuChange change;
  change.scratchFile = ScratchFileOf(operation.kind);
  change.deleteScratchFirst = DeletesScratchFirst(operation.kind);
  change.errorMode = IgnoresFailures(operation.kind) ? ErrorMode::Ignores : ErrorMode::Throws;
  change.recordRule = RuleFor(operation);
  switch (operation.kind) {
    case Operation::Kind::Keep:
    case Operation::Kind::Edit:
    case Operation::Kind::ChangeIcon:
      break;
    case Operation::Kind::MoveUp:
    case Operation::Kind::MoveDown:
    case Operation::Kind::Delete:
    case Operation::Kind::Separator:
    case Operation::Kind::SwitchToUserDefined:
      change.type = MenuType::UserDefined;
      break;
    case Operation::Kind::SaveAppearance:
      change.type = MenuType::UserDefined;
      change.appearance =
          AppearanceRecord{Value::Bare(operation.smallIcons), Value::Quoted(operation.fontName),
                           Value::Bare(operation.fontSize), Value::Bare(operation.fontBold),
                           Value::Bare(operation.fontItalic)};
      change.picture = operation.picture;
      break;
    case Operation::Kind::SaveDirectory:
      change.type = MenuType::DirectoryPointer;
      change.directory = DirectoryPointerRecord{
          Value::Quoted(operation.folderPath), Value::Quoted(operation.filePattern),
          Value::Bare(operation.showFolders), Value::Bare(operation.hideKnownExtensions),
          Value::Bare(operation.showHiddenFiles)};
      break;
    case Operation::Kind::SwitchToDirectory:
      change.type = MenuType::DirectoryPointer;
      change.directory =
          DirectoryPointerRecord{Value::Quoted("C:\\"), Value::Quoted("*.*"), Value::Bare("1"),
                                 Value::Bare("0"), Value::Bare("0")};
      break;
  }
  return change;
}

}  // namespace menufile
