#!/bin/bash
# Saves pictures of the list of entries and of the two pages of the New Shortcut
# wizard for the README:
#
#   tools/photograph_wizard.sh [FOLDER]     default: docs
#
# The editor has to be built. Nothing is shown on the user's display.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"
. "$(dirname "${BASH_SOURCE[0]}")/x_windows.sh"

begin_photographs tools "$@"
# Move the focus from the tabs to the list, and then to the Add button.
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
end_photographs
