// Measures the times that a user waits for a program with a list, and prints the least
// time of each in microseconds:
//
//   window_times start RUNS MENUFILE ROWS PROGRAM...
//     from the start of each program until its list is shown with its rows;
//     the programs take turns
//   window_times edits RUNS MENUFILE ROWS EDITOR
//     a press of each button of the editor that changes the list, in the middle of the
//     list, and a rewrite of the file without a window
//   window_times drop RUNS MENUFILE ROWS EDITOR
//     a drop of 300 files, and asking the shell for their names
//   window_times icons RUNS FOLDER EDITOR
//     a start with 1,000 entries without icons of their own, with icons from as many
//     files, and with icons from a library; and extracting these icons. The files are
//     written into the folder
//   window_times template MENUFILE ROWS EDITOR TEMPLATE
//     measures nothing: writes the editor's controls as a dialog template
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "benchmarks/running_program.h"
#include "benchmarks/window_work.h"
#include "editor/windows_files.h"
#include "menufile/changes.h"
#include "resources/resource.h"

namespace {

using bench::Now;
using bench::RunningProgram;

using bench::Print;

void MeasureStart(int runs, const std::string& menu, LRESULT rows, char** programs, int count) {
  std::vector<double> times(static_cast<std::size_t>(count), std::numeric_limits<double>::max());
  for (int run = 0; run < runs; ++run) {
    for (std::size_t i = 0; i < times.size(); ++i) {
      const double start = Now();
      RunningProgram program(programs[i], menu);
      program.AwaitList(rows);
      times[i] = std::min(times[i], Now() - start);
    }
  }
  for (std::size_t i = 0; i < times.size(); ++i) {
    Print(programs[i], times[i]);
  }
}

// Moves an entry in the middle of the menu: exchanges it with the one before.
double TimeOfRewrite(const std::string& path, std::size_t row) {
  editor::WindowsFileSystem files;
  menufile::MenuFile menu(files, path);
  const double start = Now();
  if (RewriteMenuFile(menu, menufile::MoveUp(row)) != menufile::ChangeResult::Made) {
    throw std::runtime_error("the menu was not rewritten");
  }
  return Now() - start;
}

struct Button {
  const char* name;
  int id;
  int rowsMore;       // the change in the number of rows
  int selectionMove;  // the change of the selected row; 0 if no row stays selected
};
// Separator and Delete alternate, so that the number of rows stays the same.
constexpr Button kButtons[] = {
    {"move_up", IDC_FORM2_COMMAND4, 0, -1},
    {"move_down", IDC_FORM2_COMMAND8, 0, 1},
    {"separator", IDC_FORM2_COMMAND9, 1, 0},
    {"delete", IDC_FORM2_COMMAND7, -1, 0},
};

void MeasureEdits(int runs, const std::string& menu, LRESULT rows, const std::string& editor) {
  RunningProgram program(editor, menu);
  program.AwaitList(rows);
  const LRESULT row = rows / 2;
  std::vector<double> clicks(std::size(kButtons), std::numeric_limits<double>::max());
  double rewrite = std::numeric_limits<double>::max();
  for (int run = 0; run < runs; ++run) {
    for (std::size_t i = 0; i < clicks.size(); ++i) {
      SendMessageA(program.list(), LB_SETCURSEL, static_cast<WPARAM>(row), 0);
      const double start = Now();
      SendMessageA(GetDlgItem(program.window(), kButtons[i].id), BM_CLICK, 0, 0);
      clicks[i] = std::min(clicks[i], Now() - start);
      rows += kButtons[i].rowsMore;
      const int move = kButtons[i].selectionMove;
      const LRESULT selected = SendMessageA(program.list(), LB_GETCURSEL, 0, 0);
      if (SendMessageA(program.list(), LB_GETCOUNT, 0, 0) != rows ||
          selected != (move == 0 ? LB_ERR : row + move)) {
        throw std::runtime_error(std::string(kButtons[i].name) + " did not change the list");
      }
    }
    rewrite = std::min(rewrite, TimeOfRewrite(menu, static_cast<std::size_t>(row)));
  }
  for (std::size_t i = 0; i < clicks.size(); ++i) {
    Print(kButtons[i].name, clicks[i]);
  }
  Print("rewrite", rewrite);
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string> words(arguments + 1, arguments + count);
  const auto number = [&](std::size_t i) { return std::atoi(words.at(i).c_str()); };
  try {
    const std::string& what = words.at(0);
    if (what == "start") {
      MeasureStart(number(1), words.at(2), number(3), arguments + 5, count - 5);
    } else if (what == "edits") {
      MeasureEdits(number(1), words.at(2), number(3), words.at(4));
    } else if (what == "drop") {
      bench::MeasureDrop(number(1), words.at(2), number(3), words.at(4));
    } else if (what == "icons") {
      bench::MeasureIcons(number(1), words.at(2), words.at(3));
    } else if (what == "template") {
      bench::WriteTemplate(words.at(1), number(2), words.at(3), words.at(4));
    } else {
      throw std::invalid_argument("no such work: " + what);
    }
  } catch (const std::exception& failure) {
    std::cerr << "window_times: " << failure.what() << '\n';
    return EXIT_FAILURE;
  }
}
