#ifndef CORVALIS_BENCHMARKS_WINDOW_WORK_H_
#define CORVALIS_BENCHMARKS_WINDOW_WORK_H_

#include <windows.h>

#include <string>

// The measurements of window_times besides starts and presses of buttons. Paths are in
// the system's ANSI code page. A failure throws std::runtime_error.
namespace bench {

// Prints a line of the table: what was measured, and the time in microseconds.
void Print(const char* name, double microseconds);

// Measures a drop of 300 files onto the editor's list, which has `rows` rows at first.
void MeasureDrop(int runs, const std::string& menu, LRESULT rows, const std::string& editor);

// Measures starts of the editor. Writes the menus, and the files with their icons, into
// the folder.
void MeasureIcons(int runs, const std::string& folder, const std::string& editor);

// Writes the controls of the editor, after its list shows `rows` rows, as a
// DLGTEMPLATEEX.
void WriteTemplate(const std::string& menu, LRESULT rows, const std::string& editor,
                   const std::string& path);

}  // namespace bench

#endif  // CORVALIS_BENCHMARKS_WINDOW_WORK_H_
