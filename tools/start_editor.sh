#!/bin/bash
# Starts the built editor, or another one, under Wine with the menu file of a
# Linux path, and ends as it ends:
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

# windows_path LINUX_PATH: with its percent signs doubled, for the batch file.
windows_path() {
  local path
  path=$(winepath -w "$1")
  printf '%s' "${path//%/%%}"
}

# Wine builds the program's command line out of separate arguments and quotes
# only those with a blank; the editor wants its path quoted always. A batch
# file writes the line as it stands.
CORVALIS_PROGRAM=$(windows_path "$program")
CORVALIS_MENU=$(windows_path "$menu")
export CORVALIS_PROGRAM CORVALIS_MENU
starter=$(winepath -w "$project_root/tools/start_quoted.bat")

# The editor writes its scratch files into its current folder, and looks there
# for one that an interrupted change of this menu left. So the folder is the
# same each time for one menu, and never that of another.
key=$(sha256sum <<<"$menu")
folder=$build_dir/run/scratch/${key:0:16}
mkdir -p "$folder"
cd "$folder"
status=0
wine cmd /c "$starter" || status=$?
# Not to be swept away: it may be the one complete copy of the menu.
if compgen -G "$folder/*" >/dev/null; then
  echo "Left for the next start with this menu:" "$folder"/* >&2
fi
exit "$status"
