#!/bin/bash
# Saves pictures of the two pages of the New Shortcut wizard, as the README
# shows them:
#
#   tools/photograph_wizard.sh [FOLDER]     default: docs
#
# The editor has to be built. Nothing is shown on the person's own display.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"

folder=$(realpath -m -- "${1:-$project_root/docs}")
if [ -z "${CORVALIS_WINE_SESSION:-}" ]; then
  exec "$project_root/tools/wine_session.sh" photo "$0" "$folder"
fi
mkdir -p "$folder" "$build_dir/run"
work=$(mktemp -d "$build_dir/run/photo.XXXXXX")
trap 'rm -rf "$work"' EXIT
cp "$project_root/samples/tools.menu" "$work/tools.menu"

"$project_root/tools/start_editor.sh" "$CORVALIS_WINE_SESSION" "$work/tools.menu" &
editor=$!

# wait_for_window TITLE: prints its X window.
wait_for_window() {
  local tries window
  for ((tries = 0; tries < 300; tries++)); do
    window=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1 || true)
    if [ -n "$window" ]; then
      echo "$window"
      return 0
    fi
    sleep 0.1
  done
  fail "no window \"$1\" within half a minute"
}

# photograph WINDOW PICTURE: with its frame, once two pictures in a row are
# equal. The pointer and a blinking caret are kept out of it.
photograph() {
  local last=$work/last.png new=$work/new.png tries
  rm -f "$last"
  for ((tries = 0; tries < 40; tries++)); do
    import -silent -frame -window "$1" "$new"
    if [ -e "$last" ] && cmp -s "$last" "$new"; then
      mv "$new" "$2"
      echo "$2"
      return 0
    fi
    mv "$new" "$last"
    sleep 0.3
  done
  fail "the picture $2 does not stand still"
}

main=$(wait_for_window 'Corvalis Edit')
xdotool mousemove 1279 1023 windowactivate --sync "$main"
sleep 1
# The Add button has the focus after the tabs and the list.
xdotool key --window 0 Tab Tab Tab space
wizard=$(wait_for_window 'New Shortcut')
xdotool windowactivate --sync "$wizard"
sleep 1
photograph "$wizard" "$folder/wizard_target.png"
xdotool type --delay 30 'C:\windows\notepad.exe'
xdotool key Return
sleep 0.5
photograph "$wizard" "$folder/wizard_name.png"
xdotool key Escape
wait_for_window 'Corvalis Edit' >/dev/null
sleep 0.5
xdotool windowactivate --sync "$main" key alt+F4
wait "$editor"
