#!/bin/bash
# The program needs nothing but Windows' own libraries, and is small.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd -P)

own_libraries='advapi32 comctl32 comdlg32 gdi32 kernel32 msvcrt ole32 oleaut32 shell32 user32'
most_bytes=$((1 << 20))

# foreign_libraries: prints those of the DLL names that come in, one a line,
# that are not Windows' own.
foreign_libraries() {
  local name
  while read -r name; do
    case " $own_libraries " in
      *" $(basename "${name,,}" .dll) "*) ;;
      *) echo "$name" ;;
    esac
  done
}

[ "$(printf '%s\n' KERNEL32.dll libstdc++-6.dll user32.dll | foreign_libraries)" = libstdc++-6.dll ] || {
  echo 'a foreign library is not noticed'
  exit 1
}

status=0
# check PROGRAM OBJDUMP
check() {
  local imports foreign size
  imports=$("$2" -p "$1" | sed -n 's/^.*DLL Name: *//p')
  [ -n "$imports" ] || {
    echo "$1: no imports found"
    status=1
  }
  foreign=$(foreign_libraries <<<"$imports")
  [ -z "$foreign" ] || {
    echo "$1 needs" $foreign
    status=1
  }
  size=$(stat -c %s "$1")
  [ "$size" -lt "$most_bytes" ] || {
    echo "$1 has $size bytes"
    status=1
  }
  echo "${1#"$root"/}: $size bytes, needs" $imports
}

check "$root/build/windows/CorvalisEdit.exe" x86_64-w64-mingw32-objdump
check "$root/build/windows-x86/CorvalisEdit.exe" i686-w64-mingw32-objdump
exit "$status"
