#include "menufile/changes.h"

#include <utility>

#include "menufile/failure.h"
#include "menufile/value.h"

namespace menufile {
namespace {

MenuChange ListChange(RecordRule rule) {
  MenuChange change;
  change.errorMode = ErrorMode::Ignores;
  change.type = MenuType::UserDefined;
  change.recordRule = std::move(rule);
  return change;
}

MenuChange DialogChange(RecordRule rule) {
  MenuChange change;
  change.scratchFile = kDialogScratchFile;
  change.recordRule = std::move(rule);
  return change;
}

// After the exchange the counter lags by one. That does no harm: the rule compares
// it with `row` only, and it has passed that.
MenuChange ExchangeWithNext(std::size_t row) {
  return ListChange(
      [row](std::size_t counter, const MenuItemRecord& record, RecordStream& records) {
        if (counter == row) {
          records.Write(records.ReadNext());
        }
        records.Write(record);
      });
}

// The record with these texts and the icon of `old`. It borrows from both.
MenuItemRecord WithTexts(const EntryTexts& texts, const MenuItemRecord& old) {
  MenuItemRecord record = old;
  record.caption = Value::Quoted(texts.caption);
  record.target = Value::Quoted(texts.target);
  record.arguments = Value::Quoted(texts.arguments);
  record.startIn = Value::Quoted(texts.startIn);
  return record;
}

Value Flag(bool flag) { return Value::Bare(flag ? "1" : "0"); }

// The format writes true as -1 for bold and italic, and as 1 elsewhere.
Value FontFlag(bool flag) { return Value::Bare(flag ? "-1" : "0"); }

// True if a reader could find the marker inside the picture. A marker counts if a CR
// follows it. One at the end of the picture counts too, since the CR of the marker
// line comes next.
bool HoldsMarker(std::string_view picture) {
  for (std::size_t at = 0; (at = picture.find(kMarkerText, at)) != std::string_view::npos; ++at) {
    const std::string_view rest = picture.substr(at + kMarkerText.size());
    if (rest.empty() || rest[0] == '\r') {
      return true;
    }
  }
  return false;
}

}  // namespace

MenuChange MoveUp(std::size_t row) { return ExchangeWithNext(row - 1); }

MenuChange MoveDown(std::size_t row) { return ExchangeWithNext(row); }

MenuChange Delete(std::size_t row) {
  return ListChange(
      [row](std::size_t counter, const MenuItemRecord& record, RecordStream& records) {
        if (counter != row) {
          records.Write(record);
        }
      });
}

MenuChange Separator(std::size_t row) {
  return ListChange(
      [row](std::size_t counter, const MenuItemRecord& record, RecordStream& records) {
        if (counter == row) {
          records.WriteSeparator();
        }
        records.Write(record);
      });
}

MenuChange EditEntry(std::size_t row, EntryTexts texts) {
  return DialogChange([row, texts = std::move(texts)](std::size_t counter,
                                                      const MenuItemRecord& record,
                                                      RecordStream& records) {
    records.Write(counter == row ? WithTexts(texts, record) : record);
  });
}

MenuChange ChangeIcon(std::size_t row, std::string iconFile, std::string iconIndex) {
  MenuChange change =
      DialogChange([row, iconFile = std::move(iconFile), iconIndex = std::move(iconIndex)](
                       std::size_t counter, const MenuItemRecord& record, RecordStream& records) {
        MenuItemRecord changed = record;
        if (counter == row) {
          const bool isCaption = iconFile == record.caption.Text();
          changed.iconFile = Value::Quoted(isCaption ? std::string_view() : iconFile);
          changed.iconIndex = Value::Bare(iconIndex);
        }
        records.Write(changed);
      });
  change.deleteScratchFirst = false;
  return change;
}

MenuChange SaveAppearance(const Appearance& appearance, const std::string& path) {
  if (HoldsMarker(appearance.picture)) {
    throw Failure(path, "save the picture", "It holds the bytes of the marker line");
  }
  const std::optional<std::string> size = FontSizeText(appearance.fontPoints);
  if (!size) {
    throw Failure(path, "save the font", "Its size is no number of points");
  }
  MenuChange change = DialogChange(KeepRecord);
  change.type = MenuType::UserDefined;
  AppendLine(change.appearanceLine.emplace(),
             AppearanceRecord{Flag(appearance.smallIcons), Value::Quoted(appearance.fontName),
                              Value::Bare(*size), FontFlag(appearance.fontBold),
                              FontFlag(appearance.fontItalic)});
  change.picture = appearance.picture;
  return change;
}

MenuChange SaveDirectory(const Directory& directory) {
  MenuChange change;
  change.type = MenuType::DirectoryPointer;
  AppendLine(
      change.directoryLine,
      DirectoryPointerRecord{Value::Quoted(directory.folderPath),
                             Value::Quoted(directory.filePattern), Flag(directory.showFolders),
                             Flag(directory.hideKnownExtensions), Flag(directory.showHiddenFiles)});
  return change;
}

MenuChange SwitchToDirectory() { return SaveDirectory({"C:\\", "*.*", true, false, false}); }

MenuChange SwitchToUserDefined() {
  MenuChange change;
  change.type = MenuType::UserDefined;
  return change;
}

ChangeResult AddEntries(MenuFile& menu, const std::vector<EntryTexts>& entries,
                        bool deletesScratchFile) {
  if (menu.FinishEarlier()) {
    return ChangeResult::EarlierFinished;
  }
  if (deletesScratchFile) {
    menu.FreeScratchFile(kDialogScratchFile, true);
  }
  MenuItemRecord noIcon;
  noIcon.iconIndex = Value::Bare("0");
  std::string lines;
  for (const EntryTexts& entry : entries) {
    AppendLine(lines, WithTexts(entry, noIcon));
  }
  menu.Append(kDialogScratchFile, lines);
  return ChangeResult::Made;
}

}  // namespace menufile
