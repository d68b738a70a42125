#!/bin/bash
# Drives the directory page of the finished program by the keyboard: opens folders
# with Enter, types a path, saves, and changes the menu type both ways. Nothing else
# may use the display meanwhile.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"
. "$project_root/tools/x_windows.sh"
within_session test "$0"

pages=$build_dir/screenshots
mkdir -p "$build_dir/test" "$pages"
work=$(mktemp -d "$build_dir/test/directory.XXXXXX")
# Folders to walk through, on the program's drive C.
drive=$WINEPREFIX/drive_c
walk=$(mktemp -d "$drive/walk.XXXXXX")
remove_at_exit "$work" "$walk"
mkdir -p "$walk/one/two"
base="C:\\$(basename "$walk")"

menu=$work/folder.menu
# menu_file TYPE [DIRECTORY_LINE]: prints the expected menu file.
menu_file() {
  cat "$project_root/resources/default_menu.ico"
  printf '\r\n<START ZOL>\r\n"%s"\r\n0,"Tahoma",10,-1,0\r\n' "$1"
  [ $# -lt 2 ] || printf '%s\r\n' "$2"
}

# expect_menu WHAT TYPE [DIRECTORY_LINE]: waits until the menu file is as expected.
expect_menu() {
  local what=$1 tries
  shift
  menu_file "$@" >"$work/expected"
  for ((tries = 0; tries < 100; tries++)); do
    if cmp -s "$menu" "$work/expected"; then
      echo "$what"
      return 0
    fi
    sleep 0.1
  done
  echo "failed: $what"
  cat -v "$menu" | tail -n 3
  import -silent -window root "$pages/directory_page_test_failed.png"
  exit 1
}

key() {
  xdotool key --clearmodifiers --delay 80 "$@"
  sleep 0.3
}

# answer KEY: waits for a question and answers it.
answer() {
  xdotool windowactivate --sync "$(wait_for_window 'Query.')"
  sleep 0.3
  key "$1"
  xdotool windowactivate --sync "$main"
  sleep 0.3
}

menu_file DIRPOINT "\"$base\",\"*.exe\",1,1,0" >"$menu"
"$project_root/tools/start_editor.sh" "$CORVALIS_WINE_SESSION" "$menu" &
editor=$!
main=$(wait_for_window 'Corvalis Edit')
xdotool mousemove 1279 1023 windowactivate --sync "$main"
sleep 1

# From the tabs: Change Menu Type, the drives, the folders.
key Tab Tab Tab Down Return Down Return
photograph "$main" "$pages/directory_page.png" >/dev/null
# The path, the pattern, three check boxes, Save Changes.
key Tab Tab Tab Tab Tab Tab space
expect_menu 'Enter opens a folder' DIRPOINT "\"$base\\one\\two\\\",\"*.exe\",1,1,0"

key shift+Tab shift+Tab shift+Tab space shift+Tab shift+Tab End
xdotool type --delay 80 'abc'
key Tab Tab Tab Tab Tab space
expect_menu 'the path keeps its backslash and its caret' \
  DIRPOINT "\"$base\\one\\two\\abc\\\",\"*.exe\",0,1,0"

# Quit, the tabs, Change Menu Type.
key Tab Tab Tab space
answer n
expect_menu 'No changes nothing' DIRPOINT "\"$base\\one\\two\\abc\\\",\"*.exe\",0,1,0"
key space
answer y
expect_menu 'Yes makes it a user-defined list' USERDEF
photograph "$main" "$pages/switched_to_list.png" >/dev/null
# The focus is on the button in the same place.
key space
expect_menu 'an empty list becomes a directory pointer' DIRPOINT '"C:\","*.*",1,0,0'
photograph "$main" "$pages/switched_to_directory.png" >/dev/null

key alt+F4
status=0
wait "$editor" || status=$?
editor=
[ "$status" -eq 0 ] || {
  echo "exit code $status"
  exit 1
}
