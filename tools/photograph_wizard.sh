#!/bin/bash
# Saves pictures of the list of entries and of the two pages of the New Shortcut
# wizard, as the README shows them:
#
#   tools/photograph_wizard.sh [FOLDER]     default: docs
#
# The editor has to be built. Nothing is shown on the person's own display.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"
. "$(dirname "${BASH_SOURCE[0]}")/x_windows.sh"

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

main=$(wait_for_window 'Corvalis Edit')
xdotool mousemove 1279 1023 windowactivate --sync "$main"
sleep 1
# From the tabs to the list, and on to the Add button.
xdotool key --window 0 Tab Tab Home
photograph "$main" "$folder/contents.png"
xdotool key --window 0 Tab space
wizard=$(wait_for_window 'New Shortcut')
xdotool windowactivate --sync "$wizard"
sleep 1
xdotool type --delay 30 'C:\windows\notepad.exe'
photograph "$wizard" "$folder/wizard_target.png"
xdotool key Return
sleep 0.5
photograph "$wizard" "$folder/wizard_name.png"
xdotool key Escape
wait_for_window 'Corvalis Edit' >/dev/null
sleep 0.5
xdotool windowactivate --sync "$main" key alt+F4
wait "$editor"
