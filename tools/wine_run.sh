#!/bin/bash
# Runs a Windows test program under Wine. CMake and CTest start every test program
# through this script:
#
#   tools/wine_run.sh PROGRAM.exe [ARGUMENT...]
#
# It uses the session of tools/wine_session.sh that it runs in, or makes one for this
# program alone, which takes longer.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"

within_session test "$0" "$@"

# Wine's services start with the first program and inherit its output. If that were
# a pipe, a reader would wait for the end of the services. So the output goes to a
# file, and tail copies it while the program runs.
mkdir -p "$build_dir/log"
output=$(mktemp "$build_dir/log/wine_run.XXXXXX")
status=0
run_program() {
  wine "$@" >"$output" 2>&1 </dev/null &
  program=$!
  tail --lines=+1 --follow --sleep-interval=0.05 --pid="$program" "$output"
  status=0
  wait "$program" || status=$?
}
run_program "$@"
# Rarely, Wine ends before the program has begun, without any output. A test program
# that ran always has some. The test "wine.starts" counts these restarts.
if [ "$status" -ne 0 ] && [ ! -s "$output" ]; then
  echo "did not begin (exit code $status), started again: $*" |
    tee -a "$build_dir/log/not_begun.log" >&2
  run_program "$@"
fi
rm -f "$output"
exit "$status"
