#!/bin/bash
# Line coverage of menufile/ by the native tests:
#
#   tools/coverage.sh measure    runs the tests of build/coverage and prints it
#   tools/coverage.sh check      fails when what was measured is under 95 %
set -eu
root=$(cd "$(dirname "$0")/.." && pwd -P)
measured=$root/build/coverage/menufile.json

# The JSON, and not the counters of the compiler, is what both steps look at:
# the counters go on when a test is run by hand.
case ${1:-} in
  measure)
    rm -f "$measured"
    find "$root/build/coverage" -name '*.gcda' -delete
    ctest --test-dir "$root/build/coverage" --output-on-failure --no-tests=error \
      >"$root/build/coverage/ctest.log" 2>&1 || {
      cat "$root/build/coverage/ctest.log"
      exit 1
    }
    gcovr --root "$root" --filter "$root/menufile/" --json "$measured" "$root/build/coverage"
    gcovr --root "$root" --add-tracefile "$measured" --txt --print-summary
    ;;
  check)
    gcovr --root "$root" --add-tracefile "$measured" --print-summary --fail-under-line 95
    ;;
  *)
    echo "usage: $0 measure|check" >&2
    exit 2
    ;;
esac
