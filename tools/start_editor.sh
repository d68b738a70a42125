#!/bin/bash
# Starts the built editor, or another program, under Wine with a menu file. MENUFILE
# is a Linux path. Ends with the program's exit code:
#
#   tools/start_editor.sh WINE_PREFIX MENUFILE [PROGRAM.exe]
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"

menu=$(realpath -ms -- "$2")
program=${3:-$build_dir/windows/CorvalisEdit.exe}
case $menu in
  *'"'*) fail "a Windows path cannot hold a double quote: $menu" ;;
esac

use_wine_prefix "$1"
prepare_wine_prefix

# windows_path LINUX_PATH: prints the Windows path, with percent signs doubled for the
# batch file.
windows_path() {
  local path
  path=$(winepath -w "$1")
  printf '%s' "${path//%/%%}"
}

# Wine builds the command line from separate arguments and quotes only those with a
# blank, but the editor needs quotes around every path. A batch file passes the line
# unchanged.
CORVALIS_PROGRAM=$(windows_path "$program")
CORVALIS_MENU=$(windows_path "$menu")
export CORVALIS_PROGRAM CORVALIS_MENU
starter=$(winepath -w "$project_root/tools/start_quoted.bat")

# The editor writes its scratch files in its current folder, and looks there for one of
# an interrupted change. So each menu has a folder of its own, the same at each start.
key=$(sha256sum <<<"$menu")
folder=$build_dir/run/scratch/${key:0:16}
mkdir -p "$folder"
cd "$folder"
status=0
wine cmd /c "$starter" || status=$?
# A scratch file may be the only complete copy of the menu, so it stays.
if compgen -G "$folder/*" >/dev/null; then
  echo "Kept for the next start with this menu:" "$folder"/* >&2
fi
exit "$status"
