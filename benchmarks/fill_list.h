#ifndef CORVALIS_BENCHMARKS_FILL_LIST_H_
#define CORVALIS_BENCHMARKS_FILL_LIST_H_

#include <windows.h>

namespace bench {

// Adds a row for each entry's line of the menu file whose path stands in double
// quotes at the end of the command line: the least that a list of it takes.
void FillList(HWND list);

}  // namespace bench

#endif  // CORVALIS_BENCHMARKS_FILL_LIST_H_
