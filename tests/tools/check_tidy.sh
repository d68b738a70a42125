#!/bin/bash
# Runs clang-tidy on the source files of the program, and fails if it warns.
# menufile/ is compiled for this machine, everything else for Windows. build/native
# and build/windows have to be configured.
#
#   tests/tools/check_tidy.sh [FILE_OR_FOLDER...]    default: the whole program
set -eu -o pipefail
cd "$(dirname "$0")/../.."

# The C++ library of the cross compiler. clang finds the headers of Windows by itself,
# but not these.
library=$(x86_64-w64-mingw32-g++-posix -print-file-name=include/c++)
windows_options=(
  -p build/windows
  --extra-arg=-isystem"$library"
  --extra-arg=-isystem"$library/x86_64-w64-mingw32"
  # The commands turn off warnings that clang does not know.
  --extra-arg=-Wno-unknown-warning-option
)

[ $# -gt 0 ] || set -- editor icons listedit menufile win32 wizard
mapfile -t sources < <(find "$@" -name '*.cc' -o -name '*.cpp' | sort)
[ ${#sources[@]} -gt 0 ] || {
  echo "$0: no sources in $*" >&2
  exit 1
}
native=() windows=()
for source in "${sources[@]}"; do
  case $source in
    menufile/*) native+=("$source") ;;
    *) windows+=("$source") ;;
  esac
done

# tidy SOURCES OPTION...: runs clang-tidy. SOURCES is the name of an array.
tidy() {
  local -n files=$1
  shift
  [ ${#files[@]} -gt 0 ] || return 0
  printf '%s\0' "${files[@]}" | xargs -0 -n 1 clang-tidy --quiet "$@" 2>&1 |
    sed '/^[0-9]* warnings\{0,1\} \(generated\|treated as error\)/d'
}

status=0
tidy native -p build/native || status=1
tidy windows "${windows_options[@]}" || status=1
[ "$status" -ne 0 ] || echo "${#native[@]} portable and ${#windows[@]} Windows sources, all tidy"
exit "$status"
