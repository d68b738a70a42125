#!/bin/bash
# Runs tests in an ANSI code page, in the second Wine session:
#
#   tests/tools/code_page_test.sh PAGE WINDOWS_TESTS OUTSIDE_TESTS
#
# The last two are filters of Google Test.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"

[ $# -eq 3 ] || fail "usage: $0 PAGE WINDOWS_TESTS OUTSIDE_TESTS"
own_session second "$0" "$@"

cd "$build_dir/windows/tests/windows"
run=("$project_root/tools/code_page.sh" "$1" "$project_root/tools/wine_run.sh")
"${run[@]}" ./windows_tests.exe --gtest_filter="$2"
"${run[@]}" outside/outside_tests.exe --gtest_filter="$3"
