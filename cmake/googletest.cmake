# Natively this is Debian's library. For Windows it is built from Debian's sources (package
# googletest). SYSTEM turns its warnings off, and -O0 halves the time that it takes.
if(WIN32)
  set(CORVALIS_GOOGLETEST_SOURCES
      /usr/src/googletest
      CACHE PATH "The sources of GoogleTest")
  set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  add_subdirectory(${CORVALIS_GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL
                   SYSTEM)
  target_compile_options(gtest PRIVATE -O0)
else()
  find_package(GTest REQUIRED)
endif()
include(GoogleTest)

# What nearly every test includes is compiled once for all of them: that halves the
# time that a test takes to compile.
set(CORVALIS_TEST_HEADERS <gtest/gtest.h> <algorithm> <functional> <map> <optional> <string>
                          <vector>)
if(WIN32)
  list(PREPEND CORVALIS_TEST_HEADERS <windows.h>)
endif()
