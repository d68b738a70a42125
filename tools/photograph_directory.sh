#!/bin/bash
# Saves a picture of the directory page, as the README shows it:
#
#   tools/photograph_directory.sh [FOLDER]     default: docs
#
# The editor has to be built. Nothing is shown on the person's own display.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"
. "$(dirname "${BASH_SOURCE[0]}")/x_windows.sh"

begin_photographs folder "$@"
# The focus into the folder list: a caret in a box would blink.
xdotool key --window 0 Tab Tab Tab
photograph "$main" "$folder/directory_page.png"
end_photographs
