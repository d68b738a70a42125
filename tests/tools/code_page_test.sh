#!/bin/bash
# Runs tests in an ANSI code page, in a Wine session of their own:
#
#   tests/tools/code_page_test.sh PAGE WINDOWS_TESTS OUTSIDE_TESTS
#
# The last two are filters of Google Test.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"

[ $# -eq 3 ] || fail "usage: $0 PAGE WINDOWS_TESTS OUTSIDE_TESTS"
if [ "${CORVALIS_WINE_SESSION:-}" != code_pages ]; then
  exec "$project_root/tools/wine_session.sh" code_pages "$0" "$@"
fi

cd "$build_dir/windows/tests/windows"
run=("$project_root/tools/code_page.sh" "$1" "$project_root/tools/wine_run.sh")
"${run[@]}" ./windows_tests.exe --gtest_filter="$2"
"${run[@]}" outside/outside_tests.exe --gtest_filter="$3"
