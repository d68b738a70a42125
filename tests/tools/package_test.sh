#!/bin/bash
# Tests the contents of a release's archive. If its program is for 64-bit Windows,
# tests that it runs alone in the folder where it was unpacked:
#
#   tests/tools/package_test.sh TREE BITS VERSION
#
# TREE is the build tree, whose target "package" was built. Nothing else may use the
# display meanwhile.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"
. "$project_root/tools/x_windows.sh"
within_session test "$0" "$@"

tree=$1 bits=$2 version=$3
mkdir -p "$build_dir/test"
work=$(mktemp -d "$build_dir/test/package.XXXXXX")
remove_at_exit "$work"

# expect WHAT COMMAND...
expect() {
  local what=$1
  shift
  "$@" || {
    echo "failed: $what"
    exit 1
  }
}

files_in() {
  (cd "$1" && find . -type f | sort)
}

contents='./CorvalisEdit.exe
./README.txt
./SHA256SUMS'
archive=CorvalisEdit-$version-win$bits.zip
unpacked="$work/unpacked here"

(cd "$tree" && sha256sum --check --strict --quiet "$archive.sha256")
expect 'the checksum beside it is its own' grep -qF "  $archive" "$tree/$archive.sha256"
mkdir "$unpacked"
(cd "$unpacked" && cmake -E tar xf "$tree/$archive")
expect 'it holds the program, a text and checksums' [ "$(files_in "$unpacked")" = "$contents" ]
(cd "$unpacked" && sha256sum --check --strict --quiet SHA256SUMS)
expect 'it has a checksum of all but the checksums' [ "$(wc -l <"$unpacked/SHA256SUMS")" -eq 2 ]
expect 'the program is the one that was built' cmp "$tree/CorvalisEdit.exe" "$unpacked/CorvalisEdit.exe"
sed "s/@VERSION@/$version/; s/\$/\r/" "$project_root/packaging/README.txt" >"$work/README.txt"
expect 'the text has the line ends of Windows' cmp "$work/README.txt" "$unpacked/README.txt"
expect 'the text names the version' grep -q "^Corvalis Edit $version" "$unpacked/README.txt"

# Wine runs only 64-bit programs here.
[ "$bits" -eq 64 ] || exit 0

# Converting a menu of the previous version needs the picture in the program's resources.
menu=$work/previous.menu
cp "$project_root/samples/previous-version.menu" "$menu"
{
  cat "$project_root/resources/default_menu.ico"
  printf '\r\n<START ZOL>\r\n"USERDEF"\r\n'
  cat "$menu"
} >"$work/expected"

"$project_root/tools/start_editor.sh" "$CORVALIS_WINE_SESSION" "$menu" \
  "$unpacked/CorvalisEdit.exe" &
editor=$!
question=$(wait_for_window 'Query.')
xdotool windowactivate --sync "$question" key --clearmodifiers y
main=$(wait_for_window 'Corvalis Edit')
expect 'it converts the menu' cmp "$work/expected" "$menu"
xdotool windowactivate --sync "$main" key --clearmodifiers alt+F4
status=0
wait "$editor" || status=$?
editor=
expect 'it ends without a failure' [ "$status" -eq 0 ]
expect 'it leaves nothing where it lies' [ "$(files_in "$unpacked")" = "$contents" ]

# Without the unpacked program, start_editor.sh fails: it started no other one above.
rm "$unpacked/CorvalisEdit.exe"
status=0
"$project_root/tools/start_editor.sh" "$CORVALIS_WINE_SESSION" "$menu" \
  "$unpacked/CorvalisEdit.exe" >"$work/log" 2>&1 || status=$?
expect 'nothing else is started in its place' [ "$status" -ne 0 ]
