#!/bin/bash
# ./run's way from a Linux path to the editor's window, whatever characters the
# path holds, and its exit code. Wants to be run within a Wine session, with its
# display to itself:
#
#   tools/wine_session.sh test tests/tools/run_test.sh
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd -P)
mkdir -p "$root/build/test"
folder=$(mktemp -d "$root/build/test/run.XXXXXX")
trap 'rm -rf "$folder"' EXIT

# photograph MENUFILE: leaves the editor's exit code in "status".
photograph() {
  status=0
  "$root/tools/photograph_editor.sh" test "$1" "$folder/picture.png" >"$folder/log" 2>&1 ||
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

# A screen that shows nothing is of one colour.
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

# A path from the current folder.
cd "$folder"
photograph plain.menu
expect 'a relative path opens' [ "$status" -eq 0 ]

photograph "$folder/missing.menu"
expect 'a missing file is a failure' [ "$status" -eq 1 ]
expect 'the failure is shown' shows_something "$folder/picture.png"
expect 'a missing file is not created' [ ! -e "$folder/missing.menu" ]

photograph "$folder/a\"b.menu"
expect 'a path with a double quote is refused' grep -q 'cannot hold a double quote' "$folder/log"
expect 'the refusal is a failure' [ "$status" -ne 0 ]
echo 'menus open from any path'
