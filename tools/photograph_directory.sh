#!/bin/bash
# Saves a picture of the directory page for the README:
#
#   tools/photograph_directory.sh [FOLDER]     default: docs
#
# The editor has to be built. Nothing is shown on the user's display.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"
. "$(dirname "${BASH_SOURCE[0]}")/x_windows.sh"

begin_photographs folder "$@"
# Move the focus to the folder list: the caret of a box would blink.
xdotool key --window 0 Tab Tab Tab
photograph "$main" "$folder/directory_page.png"
end_photographs
