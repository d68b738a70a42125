#include "tests/menufile/loaded_menu.h"

#include <ostream>

#include "menufile/failure.h"
#include "tests/menufile/literal_file.h"

namespace menufile {
namespace {

std::string Tell(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Empty:
      return "E";
    case Value::Kind::Number:
      return "N:" + value.Text();
    case Value::Kind::Text:
      break;
  }
  return "T:" + value.Text();
}

// Thrown with the message of a Failure.
struct LiteralFailure {
  std::string message;
};

class LiteralLoad {
 public:
  LiteralLoad(std::string_view bytes, LoadedMenu& menu) : file_(bytes), menu_(menu) {}

  void Run() {
    std::string line;
    while (!file_.AtEnd()) {
      line = file_.ReadLine();
      if (line == "<START ZOL>") {
        break;
      }
    }
    if (line != "<START ZOL>") {
      menu_.shown.push_back({"question", "no"});
      menu_.end = LoadedMenu::End::Declined;
      return;
    }
    LiteralFile::Field type;
    Read(type, "the type line", "menu type");
    Show({"appearance"}, "the appearance line",
         {"smallIcons", "fontName", "fontSize", "fontBold", "fontItalic"});
    if (type.text == "USERDEF") {
      for (int row = 0; !file_.AtEnd(); ++row) {
        Show({"item", std::to_string(row)}, "entry " + std::to_string(row + 1),
             {"caption", "target", "arguments", "startIn", "iconFile", "iconIndex"});
      }
    } else if (type.text == "DIRPOINT") {
      Show({"directory"}, "the directory line",
           {"folderPath", "filePattern", "showFolders", "hideKnownExtensions", "showHiddenFiles"});
    }
  }

 private:
  void Read(LiteralFile::Field& field, const std::string& record, const std::string& name) {
    if (!file_.ReadField(field)) {
      throw LiteralFailure{"Cannot read " + record + ", field " + name + ", of the file:\n" +
                           kMenuPath + "\n\nThe file ends too early (at byte offset " +
                           std::to_string(file_.Length()) + ")."};
    }
  }

  void Show(Shown shown, const std::string& record, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      LiteralFile::Field field;
      Read(field, record, name);
      shown.push_back(field.kind == 'E' ? "E" : std::string(1, field.kind) + ':' + field.text);
    }
    menu_.shown.push_back(shown);
  }

  LiteralFile file_;
  LoadedMenu& menu_;
};

}  // namespace

std::ostream& operator<<(std::ostream& out, const LoadedMenu& menu) {
  static constexpr const char* kEnds[] = {"menu", "declined", "failed"};
  out << kEnds[static_cast<int>(menu.end)] << ' ' << menu.message << '\n';
  for (const Shown& shown : menu.shown) {
    for (const std::string& part : shown) {
      out << '[' << part << "] ";
    }
    out << '\n';
  }
  return out;
}

bool RecordingView::ConfirmUpgrade() {
  const bool yes = yesAnswers_ > 0;
  shown_.push_back({"question", yes ? "yes" : "no"});
  --yesAnswers_;
  return yes;
}

void RecordingView::ShowAppearance(const AppearanceRecord& a) {
  shown_.push_back({"appearance", Tell(a.smallIcons), Tell(a.fontName), Tell(a.fontSize),
                    Tell(a.fontBold), Tell(a.fontItalic)});
}

void RecordingView::AppendItem(std::size_t row, const MenuItemRecord& i) {
  shown_.push_back({"item", std::to_string(row), Tell(i.caption), Tell(i.target), Tell(i.arguments),
                    Tell(i.startIn), Tell(i.iconFile), Tell(i.iconIndex)});
}

void RecordingView::ShowDirectoryPointer(const DirectoryPointerRecord& d) {
  shown_.push_back({"directory", Tell(d.folderPath), Tell(d.filePattern), Tell(d.showFolders),
                    Tell(d.hideKnownExtensions), Tell(d.showHiddenFiles)});
}

LoadedMenu Load(MemoryFiles& files, int yesAnswers, std::string_view picture) {
  RecordingView view(yesAnswers);
  MenuFile file(files, kMenuPath);
  LoadedMenu menu;
  try {
    const bool loaded = LoadMenuFile(file, picture, view);
    menu.end = loaded ? LoadedMenu::End::Menu : LoadedMenu::End::Declined;
  } catch (const Failure& failure) {
    menu.end = LoadedMenu::End::Failed;
    menu.message = failure.what();
  }
  menu.shown = view.shown();
  return menu;
}

LoadedMenu LoadBytes(std::string_view bytes) {
  MemoryFiles files;
  files.Put(kMenuPath, bytes);
  return Load(files);
}

LoadedMenu LoadLiterally(std::string_view bytes) {
  LoadedMenu menu;
  try {
    LiteralLoad(bytes, menu).Run();
  } catch (const LiteralFailure& failure) {
    menu.end = LoadedMenu::End::Failed;
    menu.message = failure.message;
  }
  return menu;
}

}  // namespace menufile
