#!/bin/bash
# Tests that the editor opens a menu by its Linux path, whatever characters that has,
# and ends with the right exit code. Nothing else may use the display meanwhile.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"
within_session test "$0"

root=$project_root
mkdir -p "$root/build/test"
folder=$(mktemp -d "$root/build/test/run.XXXXXX")
trap 'rm -rf "$folder"' EXIT

# photograph MENUFILE: sets "status" to the editor's exit code.
photograph() {
  status=0
  "$root/tools/photograph_editor.sh" "$CORVALIS_WINE_SESSION" "$1" "$folder/picture.png" >"$folder/log" 2>&1 ||
    status=$?
}

# expect WHAT COMMAND...
expect() {
  local what=$1
  shift
  "$@" || {
    echo "failed: $what (exit code $status)"
    cat "$folder/log"
    exit 1
  }
}

# An empty screen has one colour.
shows_something() {
  [ "$(identify -format %k "$1")" -gt 50 ]
}

for name in plain.menu 'with blank.menu' 'ümläut & 100% of %PATH% (1)^.menu'; do
  cp "$root/samples/tools.menu" "$folder/$name"
  photograph "$folder/$name"
  expect "$name opens" [ "$status" -eq 0 ]
  expect "$name is shown" shows_something "$folder/picture.png"
  expect "$name stays as it is" cmp "$root/samples/tools.menu" "$folder/$name"
done

# A relative path.
cd "$folder"
photograph plain.menu
expect 'a relative path opens' [ "$status" -eq 0 ]

# The next start with a menu finds the scratch file of an interrupted change. A start
# with another menu does not.
scratch_folders() {
  find "$root/build/run/scratch" -mindepth 1 -maxdepth 1 -newer "$folder/earlier" | wc -l
}
mkdir "$folder/other"
cp plain.menu other/plain.menu
touch "$folder/earlier"
photograph other/plain.menu
expect 'another menu has a scratch folder of its own' [ "$(scratch_folders)" -eq 1 ]
left=$(find "$root/build/run/scratch" -mindepth 1 -maxdepth 1 -newer "$folder/earlier")
echo left >"$left/temporaryfile"
photograph "$folder/other/plain.menu"
expect 'the same menu has the same scratch folder' \
  grep -qF "Kept for the next start with this menu: $left/temporaryfile" "$folder/log"
photograph "$folder/plain.menu"
expect 'a start does not find the scratch file of another menu' [ "$(grep -c Kept "$folder/log")" -eq 0 ]
rm -r "$left"

photograph "$folder/missing.menu"
expect 'a missing file is a failure' [ "$status" -eq 1 ]
expect 'the failure is shown' shows_something "$folder/picture.png"
expect 'a missing file is not created' [ ! -e "$folder/missing.menu" ]

photograph "$folder/a\"b.menu"
expect 'a path with a double quote is refused' grep -q 'cannot hold a double quote' "$folder/log"
expect 'the refusal is a failure' [ "$status" -ne 0 ]
echo 'menus open from any path'
