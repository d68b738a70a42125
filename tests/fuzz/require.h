#ifndef CORVALIS_TESTS_FUZZ_REQUIRE_H_
#define CORVALIS_TESTS_FUZZ_REQUIRE_H_

#include <cstdio>
#include <cstdlib>

// Ends the process if `holds` is false: a fuzz target reports a fault that way.
inline void Require(bool holds, const char* what) {
  if (!holds) {
    std::fprintf(stderr, "not true: %s\n", what);
    std::abort();
  }
}

#endif  // CORVALIS_TESTS_FUZZ_REQUIRE_H_
