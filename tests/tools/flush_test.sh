#!/bin/bash
# Traces the calls of one change of the finished program. The scratch file has to be
# flushed before the menu file is written, and the menu file before the scratch file is
# deleted. Nothing else may use the display meanwhile.
set -eu -o pipefail
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"
. "$project_root/tools/x_windows.sh"
within_session test "$0"

mkdir -p "$build_dir/test"
work=$(mktemp -d "$build_dir/test/flush.XXXXXX")
remove_at_exit "$work"
cp "$project_root/samples/tools.menu" "$work/traced.menu"

# A trace of all calls would have a million lines.
calls=
for name in CreateFileW WriteFile SetEndOfFile FlushFileBuffers CloseHandle DeleteFileW; do
  calls+="${calls:+;}kernel32.$name"
done
wine reg add 'HKCU\Software\Wine\Debug' /v RelayInclude /d "$calls" /f >/dev/null 2>&1

CORVALIS_WINEDEBUG=+relay "$project_root/tools/start_editor.sh" "$CORVALIS_WINE_SESSION" \
  "$work/traced.menu" 2>"$work/trace" &
editor=$!
main=$(wait_for_window 'Corvalis Edit')
xdotool windowactivate --sync "$main"
# Go from the tabs to the list and move its first entry down.
xdotool key --window 0 Tab Tab Home ctrl+Down
xdotool key --window 0 --delay 500 alt+F4
wait "$editor"
editor=
! cmp -s "$project_root/samples/tools.menu" "$work/traced.menu" || fail 'nothing was changed'

# Print the calls, one a line, with the names of the files instead of their handles.
awk '
  match($0, /Call KERNEL32\.[A-Za-z]+\(/) {
    call = substr($0, RSTART + 14, RLENGTH - 15)
    rest = substr($0, RSTART + RLENGTH)
    file = rest ~ /traced\.menu"/ ? "menu" : rest ~ /temporaryfile"/ ? "scratch" : ""
    handle = rest
    sub(/[,)].*/, "", handle)
    if (call == "CreateFileW") opening = file
    else if (call == "DeleteFileW" && file) print call, file
    else if (handle in name) print call, name[handle]
    if (call == "CloseHandle") delete name[handle]
  }
  /Ret  KERNEL32\.CreateFileW/ && match($0, /retval=[0-9a-f]+/) {
    if (opening) name[substr($0, RSTART + 7, RLENGTH - 7)] = opening
    opening = ""
  }' "$work/trace" >"$work/calls"

# expect_next first|last CALL FILE: fails unless the first or the last such call comes
# after the call of the expect_next before.
line=0
expect_next() {
  local found
  found=$(grep -nx "$2 $3" "$work/calls" | cut -d : -f 1 || true)
  if [ "$1" = first ]; then found=${found%%$'\n'*}; else found=${found##*$'\n'}; fi
  [ "${found:-0}" -ge "$line" ] && [ -n "$found" ] || {
    cat -n "$work/calls"
    fail "the $1 $2 of the $3 file is missing or too early"
  }
  line=$found
}
expect_next last WriteFile scratch
expect_next last FlushFileBuffers scratch
expect_next first WriteFile menu
expect_next last WriteFile menu
expect_next last FlushFileBuffers menu
expect_next last DeleteFileW scratch
