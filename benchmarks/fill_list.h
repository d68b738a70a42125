#ifndef CORVALIS_BENCHMARKS_FILL_LIST_H_
#define CORVALIS_BENCHMARKS_FILL_LIST_H_

#include <windows.h>

namespace bench {

// Adds a row for each entry's line of a menu file: the least work for a list of it. The
// path of the file stands in double quotes at the end of the command line.
void FillList(HWND list);

}  // namespace bench

#endif  // CORVALIS_BENCHMARKS_FILL_LIST_H_
