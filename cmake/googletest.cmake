# GoogleTest is built from Debian's sources (package googletest), with the same
# compiler and sanitizers as the tests. SYSTEM turns its warnings off.
set(CORVALIS_GOOGLETEST_SOURCES
    /usr/src/googletest
    CACHE PATH "The sources of GoogleTest")
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${CORVALIS_GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL
                 SYSTEM)
include(GoogleTest)

# What nearly every test includes is compiled once for all of them: that halves the
# time that a test takes to compile.
set(CORVALIS_TEST_HEADERS <gtest/gtest.h> <algorithm> <functional> <map> <optional> <string>
                          <vector>)
if(WIN32)
  list(PREPEND CORVALIS_TEST_HEADERS <windows.h>)
endif()
