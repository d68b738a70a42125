#!/bin/bash
# Starts the built editor under Wine with the menu file of a Linux path, and
# ends as it ends:
#
#   tools/start_editor.sh WINE_PREFIX MENUFILE
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"

menu=$(realpath -ms -- "$2")
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
CORVALIS_PROGRAM=$(windows_path "$build_dir/windows/CorvalisEdit.exe")
CORVALIS_MENU=$(windows_path "$menu")
export CORVALIS_PROGRAM CORVALIS_MENU
starter=$(winepath -w "$project_root/tools/start_quoted.bat")

# The editor writes its scratch files into its current folder. One folder for
# each run, so that two editors do not share a scratch file.
mkdir -p "$build_dir/run"
folder=$(mktemp -d "$build_dir/run/scratch.XXXXXX")
cd "$folder"
status=0
wine cmd /c "$starter" || status=$?
cd "$build_dir"
# Only an empty folder goes: what an interrupted change left may be the one
# complete copy of a menu.
rmdir "$folder" 2>/dev/null ||
  echo "The editor left files in $folder: one may be a complete copy of the menu's entries." >&2
exit "$status"
