#!/bin/bash
# The archives of a release hold what they should, and the program of the one
# runs from where it was unpacked, and has all with it that it needs. Wants to
# be run within a Wine session, with its display to itself, behind
#
#   cmake --build --preset windows --target package
#   cmake --build --preset windows-x86 --target package
#
#   tools/wine_session.sh test tests/tools/package_test.sh
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"
. "$project_root/tools/x_windows.sh"

use_wine_prefix "$CORVALIS_WINE_SESSION"
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
version=$(sed -n 's/^project(CorvalisEdit VERSION \([0-9.]*\) .*/\1/p' "$project_root/CMakeLists.txt")

# check_archive PRESET BITS FOLDER: unpacks it there.
check_archive() {
  local tree=$build_dir/$1 archive=CorvalisEdit-$version-win$2.zip
  echo "$archive"
  (cd "$tree" && sha256sum --check --strict --quiet "$archive.sha256")
  expect 'the checksum beside it is its own' grep -qF "  $archive" "$tree/$archive.sha256"
  mkdir -p "$3"
  (cd "$3" && cmake -E tar xf "$tree/$archive")
  expect 'it holds the program, a text and checksums' [ "$(files_in "$3")" = "$contents" ]
  (cd "$3" && sha256sum --check --strict --quiet SHA256SUMS)
  expect 'it has a checksum of all but the checksums' [ "$(wc -l <"$3/SHA256SUMS")" -eq 2 ]
  expect 'the program is the one that was built' cmp "$tree/CorvalisEdit.exe" "$3/CorvalisEdit.exe"
  sed "s/@VERSION@/$version/; s/\$/\r/" "$project_root/packaging/README.txt" >"$work/README.txt"
  expect 'the text has the line ends of Windows' cmp "$work/README.txt" "$3/README.txt"
  expect 'the text names the version' grep -q "^Corvalis Edit $version" "$3/README.txt"
}

check_archive windows-x86 32 "$work/win32"
check_archive windows 64 "$work/unpacked here"

# A menu of the previous version: to convert it the program needs the picture
# that it carries.
menu=$work/previous.menu
cp "$project_root/samples/previous-version.menu" "$menu"
{
  cat "$project_root/resources/default_menu.ico"
  printf '\r\n<START ZOL>\r\n"USERDEF"\r\n'
  cat "$menu"
} >"$work/expected"

"$project_root/tools/start_editor.sh" "$CORVALIS_WINE_SESSION" "$menu" \
  "$work/unpacked here/CorvalisEdit.exe" &
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
expect 'it leaves nothing where it lies' [ "$(files_in "$work/unpacked here")" = "$contents" ]

# What was started above was the program that was unpacked, and no other.
rm "$work/unpacked here/CorvalisEdit.exe"
status=0
"$project_root/tools/start_editor.sh" "$CORVALIS_WINE_SESSION" "$menu" \
  "$work/unpacked here/CorvalisEdit.exe" >"$work/log" 2>&1 || status=$?
expect 'nothing else is started in its place' [ "$status" -ne 0 ]
echo 'the archives are whole, and the program runs from one'
