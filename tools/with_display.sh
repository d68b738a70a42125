#!/bin/bash
# Runs a command on a private X display with a window manager. Both end with the
# command:
#
#   tools/with_display.sh COMMAND [ARGUMENT...]
#
# The display has 1280x1024 pixels, or the size in CORVALIS_SCREEN (800x600, say).
# CORVALIS_PRIVATE_DISPLAY tells the command that its display is private.
set -eu

[ $# -gt 0 ] || {
  echo "usage: $0 COMMAND [ARGUMENT...]" >&2
  exit 2
}

log_dir=$(cd "$(dirname "$0")/.." && pwd -P)/build/log
mkdir -p "$log_dir"

server=
manager=
stop_display() {
  [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
  [ -z "$server" ] || kill "$server" 2>/dev/null || true
  wait
}
trap stop_display EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# The server picks a free display number, and writes it when it accepts clients. The
# parent-death signal ends the server even if this script is killed.
exec {numbers}< <(exec setpriv --pdeathsig TERM \
  Xvfb -displayfd 1 -screen 0 "${CORVALIS_SCREEN:-1280x1024}x24" -dpi 96 -nolisten tcp -noreset \
  2>"$log_dir/xvfb.$$.log" </dev/null)
server=$!
number=
read -r -t 60 -u "$numbers" number || true
if [ -z "$number" ]; then
  cat "$log_dir/xvfb.$$.log" >&2
  echo "$0: Xvfb did not start" >&2
  exit 1
fi
rm -f "$log_dir/xvfb.$$.log"
export DISPLAY=:$number
export CORVALIS_PRIVATE_DISPLAY=$DISPLAY
unset WAYLAND_DISPLAY XAUTHORITY

setpriv --pdeathsig TERM openbox --sm-disable >/dev/null 2>&1 </dev/null &
manager=$!
# Wait for the manager: a window that opens before would have no frame and no focus.
for ((tries = 0; ; tries++)); do
  case $(xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null) in
    *'window id'*) break ;;
  esac
  if [ "$tries" -ge 300 ] || ! kill -0 "$manager" 2>/dev/null; then
    echo "$0: openbox did not start" >&2
    exit 1
  fi
  sleep 0.1
done

# Move the pointer from the middle, where windows open and would show tool tips.
xdotool mousemove 1279 1023

status=0
"$@" {numbers}<&- || status=$?
exit "$status"
