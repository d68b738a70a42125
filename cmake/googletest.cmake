# GoogleTest is built from Debian's sources (package googletest), with the same
# compiler and sanitizers as the tests; its warnings are not ours.
set(CORVALIS_GOOGLETEST_SOURCES
    /usr/src/googletest
    CACHE PATH "The sources of GoogleTest")
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${CORVALIS_GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL
                 SYSTEM)
include(GoogleTest)
