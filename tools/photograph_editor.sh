#!/bin/bash
# Starts the editor on a private display, saves a picture of the screen after the
# window has stopped changing, and closes the editor:
#
#   tools/wine_session.sh PREFIX tools/photograph_editor.sh PREFIX MENUFILE PICTURE.png
#
# Ends with the editor's own exit code.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"

prefix=$1 menu=$2 picture=$3
[ -n "${CORVALIS_PRIVATE_DISPLAY:-}" ] || fail 'this needs a private display'

mkdir -p "$(dirname "$picture")"
new_picture=${picture%.png}.new.png
rm -f "$picture" "$new_picture"

"$project_root/tools/start_editor.sh" "$prefix" "$menu" &
editor=$!

has_window() {
  case $(xprop -root _NET_CLIENT_LIST 2>/dev/null) in
    *'# 0x'*) return 0 ;;
    *) return 1 ;;
  esac
}

# wait_until SECONDS COMMAND...
wait_until() {
  local tries=$(($1 * 10))
  shift
  until "$@"; do
    [ $((tries -= 1)) -gt 0 ] || return 1
    sleep 0.1
  done
}

editor_ended() {
  ! kill -0 "$editor" 2>/dev/null
}

window_or_end() {
  has_window || editor_ended
}

wait_until 60 window_or_end || fail 'the editor showed no window within a minute'

# Painting is over when two pictures in a row are equal.
picture_stands_still() {
  import -silent -window root "$new_picture"
  if [ -e "$picture" ] && cmp -s "$picture" "$new_picture"; then
    rm "$new_picture"
    return 0
  fi
  mv "$new_picture" "$picture"
  sleep 0.4
  return 1
}

if has_window; then
  wait_until 4 picture_stands_still || true
  [ -s "$picture" ] || fail 'the screen could not be saved'
  echo "No display: the picture of the editor is in $picture"

  xdotool key --clearmodifiers alt+F4
  if ! wait_until 15 editor_ended; then
    # A question with Yes and No has no close box. It ends with the session.
    echo 'The editor was ended while it waited for an answer.'
    exit 0
  fi
fi

status=0
wait "$editor" || status=$?
[ -e "$picture" ] || fail "the editor ended without a window (exit code $status)"
exit "$status"
