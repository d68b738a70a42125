#!/bin/bash
# Saves pictures of all pages and windows for the README:
#
#   tools/photograph_pages.sh [FOLDER]     default: docs
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

begin_photographs tools "$@"

# The first focus is on the tabs. Select a row of the list, then go back past "Quit"
# to "Change Icon".
xdotool key --window 0 Tab Tab Home
for ((row = 1; row < 9; row++)); do
  xdotool key --window 0 Down
done
xdotool key --window 0 shift+Tab shift+Tab shift+Tab shift+Tab space
window=$(wait_for_window 'Select Icon')
xdotool windowactivate --sync "$window"
sleep 1
# A focused scroll bar would blink.
xdotool key Tab
photograph "$window" "$folder/select_icon.png"
xdotool key Escape
sleep 0.5

xdotool windowactivate --sync "$main" key --window 0 ctrl+Page_Down
sleep 0.5
# "Select Icon File" comes after the sample, "Change Font" and the icon; the scroll bar
# is disabled.
xdotool key --window 0 Tab Tab Tab Tab space
dialog=$(wait_for_window 'Select a DLL or EXE which includes Icons')
xdotool windowactivate --sync "$dialog"
sleep 0.5
xdotool type --delay 30 'C:\windows\regedit.exe'
xdotool key Return
sleep 1
# Move the focus from the scroll bar to the check box.
xdotool windowactivate --sync "$main" key --window 0 Tab
sleep 0.5
photograph "$main" "$folder/appearance.png"
xdotool key --window 0 ctrl+Page_Down
sleep 0.3
photograph "$main" "$folder/about.png"
end_photographs
