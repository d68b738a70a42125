#!/bin/bash
# Runs a command in a Wine session of its own: a prefix below build/wine that
# nobody else uses meanwhile, on a private X display, all ended with the
# command:
#
#   tools/wine_session.sh PREFIX COMMAND [ARGUMENT...]
#
# With CORVALIS_OWN_DISPLAY=1 the windows open on the display of whoever calls it.
#
# Inside, tools/wine_run.sh starts a Windows program in a fraction of a second,
# for the session keeps one Wine server running.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"

[ $# -gt 1 ] || fail "usage: $0 PREFIX COMMAND [ARGUMENT...]"

use_wine_prefix "$1"
if [ "${CORVALIS_WINE_SESSION:-}" != "$1" ]; then
  prepare_wine_prefix
  # --close keeps the lock from living on in a server that outlives us.
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

# What an earlier session left behind lives on a display that is gone.
stop_session
# The number is in seconds after the last program: even if this script is
# killed, the server does not stay.
wineserver -p60 >/dev/null 2>&1 </dev/null

status=0
"$@" || status=$?
exit "$status"
