#!/bin/bash
# Counts the test programs that tools/wine_run.sh had to start again, because Wine
# ended before they began. Fails if there is more than one.
#
#   tests/tools/wine_starts_test.sh begin    before the tests under Wine
#   tests/tools/wine_starts_test.sh end      after them
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"

log=$build_dir/log/not_begun.log
case ${1:-} in
  begin)
    within_session test "$0" "$@"
    mkdir -p "$build_dir/log"
    : >"$log"
    ;;
  end)
    count=$(wc -l <"$log")
    echo "Counted: $count test programs that had to be started again"
    cat "$log"
    [ "$count" -le 1 ]
    ;;
  *) fail "usage: $0 begin|end" ;;
esac
