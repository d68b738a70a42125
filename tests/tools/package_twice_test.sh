#!/bin/bash
# Tests that a copy of the project in another folder makes the same archive, byte for
# byte. The archive of build/windows has to exist:
#
#   cmake --build --preset windows --target package
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd -P)
mkdir -p "$root/build/test"
copy=$(mktemp -d "$root/build/test/package_twice.XXXXXX")
trap 'rm -rf "$copy"' EXIT

cd "$root"
# The copies get new times and other rights. Neither may change the archive.
umask 077
find . -path ./build -prune -o -path ./.git -prune -o -type f -exec cp --parents -t "$copy" {} +
(
  cd "$copy"
  cmake --preset windows --log-level=WARNING >/dev/null
  # Another time zone, which would change the archive if it held the time of day.
  TZ=UTC-9 cmake --build --preset windows --target package --parallel 2
) >"$copy/log" 2>&1 || {
  cat "$copy/log"
  exit 1
}

shopt -s nullglob
archives=(build/windows/CorvalisEdit-*.zip)
[ ${#archives[@]} -eq 1 ] || {
  echo "expected one archive: ${archives[*]}"
  exit 1
}
for file in "${archives[0]}" "${archives[0]}.sha256"; do
  cmp "$file" "$copy/$file"
done
echo "${archives[0]}: the same, made in another folder"
