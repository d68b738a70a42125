#!/bin/bash
# Saves a picture of the directory page, as the README shows it:
#
#   tools/photograph_directory.sh [FOLDER]     default: docs
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
cp "$project_root/samples/folder.menu" "$work/folder.menu"

"$project_root/tools/start_editor.sh" "$CORVALIS_WINE_SESSION" "$work/folder.menu" &
editor=$!

main=$(wait_for_window 'Corvalis Edit')
xdotool mousemove 1279 1023 windowactivate --sync "$main"
sleep 1
# The focus into the folder list: a caret in a box would blink.
xdotool key --window 0 Tab Tab Tab
photograph "$main" "$folder/directory_page.png"
xdotool windowactivate --sync "$main" key alt+F4
wait "$editor"
