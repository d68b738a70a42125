#!/bin/bash
# Takes a picture of every page of the finished program, build/screenshots/page_*.png,
# and tests that no two are equal. Nothing else may use the display meanwhile.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"
. "$project_root/tools/x_windows.sh"
within_session test "$0"

pages=$build_dir/screenshots
mkdir -p "$build_dir/test" "$pages"
rm -f "$pages"/page_*.png
work=$(mktemp -d "$build_dir/test/pages.XXXXXX")
remove_at_exit "$work"

# photograph_pages SAMPLE PAGE...: takes pictures of the pages of a sample menu, from the
# first tab on, and names them.
photograph_pages() {
  local menu=$work/$1.menu window page
  cp "$project_root/samples/$1.menu" "$menu"
  shift
  "$project_root/tools/start_editor.sh" "$CORVALIS_WINE_SESSION" "$menu" &
  editor=$!
  window=$(wait_for_window 'Corvalis Edit')
  xdotool windowactivate --sync "$window"
  for page in "$@"; do
    photograph "$window" "$pages/page_$page.png"
    xdotool key --clearmodifiers ctrl+Tab
    sleep 0.3
  done
  xdotool key --clearmodifiers alt+F4
  wait "$editor"
  editor=
}

photograph_pages tools contents appearance about
photograph_pages folder directory

[ "$(cat "$pages"/page_*.png | wc -c)" -gt 10000 ] || fail 'the pictures are empty'
for page in contents appearance about directory; do
  for other in contents appearance about directory; do
    [ "$page" = "$other" ] || ! cmp -s "$pages/page_$page.png" "$pages/page_$other.png" ||
      fail "the pages $page and $other look alike"
  done
done
