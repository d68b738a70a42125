#ifndef CORVALIS_BENCHMARKS_WINDOW_WORK_H_
#define CORVALIS_BENCHMARKS_WINDOW_WORK_H_

#include <windows.h>

#include <string>

// What window_times measures besides starts and presses of buttons. Paths are of
// the system's code page; a failure throws std::runtime_error.
namespace bench {

// Prints a line of the table's: what was measured, and the microseconds.
void Print(const char* name, double microseconds);

// Drops 300 files onto the list of the editor, which begins with `rows` rows.
void MeasureDrop(int runs, const std::string& menu, LRESULT rows, const std::string& editor);

// Starts the editor on menus that it writes into the folder, besides the files
// with icons that they name.
void MeasureIcons(int runs, const std::string& folder, const std::string& editor);

// Writes the controls that the editor has, once its list shows `rows` rows, as
// the bytes of a DLGTEMPLATEEX.
void WriteTemplate(const std::string& menu, LRESULT rows, const std::string& editor,
                   const std::string& path);

}  // namespace bench

#endif  // CORVALIS_BENCHMARKS_WINDOW_WORK_H_
