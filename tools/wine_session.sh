#!/bin/bash
# Runs a command in a Wine session of its own: a prefix below build/wine that no other
# session uses meanwhile, and a private X display. The session ends with the command:
#
#   tools/wine_session.sh PREFIX COMMAND [ARGUMENT...]
#
# With CORVALIS_OWN_DISPLAY=1 the windows open on the caller's display.
#
# Inside a session, tools/wine_run.sh starts a program in a fraction of a second,
# because the session keeps one Wine server running.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"

[ $# -gt 1 ] || fail "usage: $0 PREFIX COMMAND [ARGUMENT...]"

use_wine_prefix "$1"
if [ "${CORVALIS_WINE_SESSION:-}" != "$1" ]; then
  prepare_wine_prefix
  # --close: otherwise a server that outlives this script would keep the lock.
  export CORVALIS_WINE_SESSION=$1
  display=("$project_root/tools/with_display.sh")
  [ -z "${CORVALIS_OWN_DISPLAY:-}" ] || display=()
  exec flock --close "$WINEPREFIX.lock" "${display[@]}" "$0" "$@"
fi
shift

stop_session() {
  wineserver -k >/dev/null 2>&1 || true
  wineserver -w >/dev/null 2>&1 || true
}
trap stop_session EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# End what an earlier session left: its display is gone.
stop_session
# The server ends 60 seconds after the last program, even if this script is killed.
wineserver -p60 >/dev/null 2>&1 </dev/null

status=0
"$@" || status=$?
exit "$status"
