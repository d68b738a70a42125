#include "benchmarks/window_work.h"

#include <shellapi.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <vector>

#include "benchmarks/running_program.h"
#include "tests/windows/icon_files.h"
#include "tests/windows/menu_bytes.h"
#include "tests/windows/outside/drag.h"
#include "win32/shell_file.h"

namespace bench {
namespace {

constexpr int kDroppedFiles = 300;
constexpr int kIcons = 1000;
constexpr double kNever = std::numeric_limits<double>::max();

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (!(file << bytes).flush()) {
    throw std::runtime_error("cannot write " + path);
  }
}

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('\\')); }

// Asks the shell for each file as the editor has to, and returns the time in
// microseconds.
double TimeOfNames(const std::vector<std::wstring>& paths) {
  const double start = Now();
  for (const std::wstring& path : paths) {
    win32::ShellFile(std::string(path.begin(), path.end()));
  }
  return Now() - start;
}

double TimeOfExtracting(const std::vector<std::pair<std::string, int>>& icons) {
  const double start = Now();
  for (const auto& [file, index] : icons) {
    HICON large = nullptr;
    HICON small = nullptr;
    if (ExtractIconExA(file.c_str(), index, &large, &small, 1) == 0) {
      throw std::runtime_error("no icon in " + file);
    }
    DestroyIcon(large);
    DestroyIcon(small);
  }
  return Now() - start;
}

double TimeOfStart(const std::string& editor, const std::string& menu) {
  const double start = Now();
  RunningProgram program(editor, menu);
  program.AwaitList(kIcons);
  return Now() - start;
}

// Builds the bytes of a dialog template.
class Template {
 public:
  void Add16(std::uint16_t value) { bytes_.append(reinterpret_cast<const char*>(&value), 2); }
  void Add32(std::uint32_t value) { bytes_.append(reinterpret_cast<const char*>(&value), 4); }
  void AddText(const wchar_t* text) {
    do {
      Add16(static_cast<std::uint16_t>(*text));
    } while (*text++ != 0);
  }
  // In dialog units of a font of 8 points at 96 DPI.
  void AddPlace(const RECT& place) {
    Add16(static_cast<std::uint16_t>(place.left * 4 / 6));
    Add16(static_cast<std::uint16_t>(place.top * 8 / 13));
    Add16(static_cast<std::uint16_t>((place.right - place.left) * 4 / 6));
    Add16(static_cast<std::uint16_t>((place.bottom - place.top) * 8 / 13));
  }
  void Align() { bytes_.resize((bytes_.size() + 3) / 4 * 4); }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

void AddControl(Template& dialog, HWND control) {
  RECT place{};
  GetWindowRect(control, &place);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
  wchar_t type[64] = L"";
  GetClassNameW(control, type, 64);
  wchar_t text[256] = L"";
  SendMessageW(control, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(text));
  dialog.Align();
  dialog.Add32(0);
  dialog.Add32(static_cast<std::uint32_t>(GetWindowLongW(control, GWL_EXSTYLE)));
  dialog.Add32(static_cast<std::uint32_t>(GetWindowLongW(control, GWL_STYLE)));
  dialog.AddPlace(place);
  dialog.Add32(static_cast<std::uint32_t>(GetDlgCtrlID(control)));
  dialog.AddText(type);
  dialog.AddText(text);
  dialog.Add16(0);
}

}  // namespace

void Print(const char* name, double microseconds) {
  std::cout << name << ' ' << microseconds << '\n';
}

void MeasureDrop(int runs, const std::string& menu, LRESULT rows, const std::string& editor) {
  std::vector<std::wstring> paths;
  for (int i = 0; i < kDroppedFiles; ++i) {
    const std::string path = FolderOf(menu) + "\\dropped " + std::to_string(i) + ".txt";
    WriteBytes(path, "text");
    paths.emplace_back(path.begin(), path.end());
  }
  double drop = kNever;
  double names = kNever;
  OleInitialize(nullptr);
  RunningProgram program(editor, menu);
  program.AwaitList(rows);
  for (int run = 0; run < runs; ++run) {
    const outside::DragResult result = outside::DragTo(program.list(), DragData::Files(paths));
    if (!result.dropped) {
      throw std::runtime_error("the files were not dropped");
    }
    rows += kDroppedFiles;
    program.AwaitList(rows);
    drop = std::min(drop, Now() - result.letGo);
    names = std::min(names, TimeOfNames(paths));
  }
  OleUninitialize();
  Print("drop", drop);
  Print("names", names);
}

void MeasureIcons(int runs, const std::string& folder, const std::string& editor) {
  const std::vector<COLORREF> colours = testing_icons::Colours(kIcons);
  const std::string library = folder + "\\thousand.dll";
  WriteBytes(library, testing_icons::Library(colours));
  std::vector<std::string> plain, ofFiles, ofLibrary;
  std::vector<std::pair<std::string, int>> files, libraries;
  for (int i = 0; i < kIcons; ++i) {
    const std::string file = folder + "\\icon" + std::to_string(i) + ".ico";
    WriteBytes(file, testing_icons::IconFile(colours[static_cast<std::size_t>(i)]));
    files.emplace_back(file, 0);
    libraries.emplace_back(library, i);
    const auto line = [](const std::string& iconFile, int index) {
      return testing_menus::ItemLine("Entry", "news:x", "", "", iconFile, std::to_string(index));
    };
    plain.push_back(line("", 0));
    ofFiles.push_back(line(file, 0));
    ofLibrary.push_back(line(library, i));
  }
  const struct {
    const char* name;
    const char* least;
    const std::vector<std::string>& lines;
    const std::vector<std::pair<std::string, int>>& icons;
  } kinds[] = {{"plain", "no icons", plain, {}},
               {"files", "extracting", ofFiles, files},
               {"library", "extracting", ofLibrary, libraries}};
  for (const auto& [name, least, lines, icons] : kinds) {
    const std::string menu = folder + "\\icons.menu";
    WriteBytes(menu, testing_menus::UserDefinedMenu(lines));
    double start = kNever;
    double extracting = kNever;
    for (int run = 0; run < runs; ++run) {
      start = std::min(start, TimeOfStart(editor, menu));
      extracting = std::min(extracting, TimeOfExtracting(icons));
    }
    Print(name, start);
    Print(least, extracting);
  }
}

void WriteTemplate(const std::string& menu, LRESULT rows, const std::string& editor,
                   const std::string& path) {
  RunningProgram program(editor, menu);
  program.AwaitList(rows);
  std::vector<HWND> controls;
  for (HWND control = GetWindow(program.window(), GW_CHILD); control != nullptr;
       control = GetWindow(control, GW_HWNDNEXT)) {
    controls.push_back(control);
  }
  RECT client{};
  GetClientRect(program.window(), &client);
  Template dialog;
  dialog.Add16(1);
  dialog.Add16(0xFFFF);
  dialog.Add32(0);
  dialog.Add32(0);
  dialog.Add32(WS_OVERLAPPEDWINDOW | DS_SETFONT | DS_CENTER | DS_NOFAILCREATE);
  dialog.Add16(static_cast<std::uint16_t>(controls.size()));
  dialog.AddPlace(client);
  dialog.Add16(0);  // no menu
  dialog.Add16(0);  // the usual class
  dialog.AddText(L"Template Window");
  dialog.Add16(8);  // points
  dialog.Add16(FW_NORMAL);
  dialog.Add16(DEFAULT_CHARSET << 8);  // not italic
  dialog.AddText(L"MS Shell Dlg");
  for (const HWND control : controls) {
    AddControl(dialog, control);
  }
  WriteBytes(path, dialog.bytes());
}

}  // namespace bench
