#!/bin/bash
# Runs a Windows test program under Wine; CMake and CTest start each one
# through this script:
#
#   tools/wine_run.sh PROGRAM.exe [ARGUMENT...]
#
# Within a session of tools/wine_session.sh it uses that and costs little; on
# its own it makes a session for this one program.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"

within_session test "$0" "$@"

# Wine's own services start with the first program, inherit its output and stay
# for the session; a caller who reads to the end of a pipe would wait for them.
# So they get a file, and the caller what comes into it while the program runs.
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
# Once in a great while Wine ends at once, without a word, before the program
# has begun. A test program that ran has said something. The test "wine.starts"
# counts how often that was.
if [ "$status" -ne 0 ] && [ ! -s "$output" ]; then
  echo "did not begin (exit code $status), started again: $*" |
    tee -a "$build_dir/log/not_begun.log" >&2
  run_program "$@"
fi
rm -f "$output"
exit "$status"
