# Sourced by the scripts that start Windows programs. Defines the project's folders
# and its Wine prefixes, which are all below build/.

project_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
build_dir=$project_root/build

# fail MESSAGE: prints why the script ends, and ends it.
fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

# use_wine_prefix NAME: makes the Wine commands that follow use the prefix
# build/wine/NAME. ./run and the tests have different prefixes, because a prefix has
# one desktop, which is on one X display.
use_wine_prefix() {
  export WINEPREFIX=$build_dir/wine/$1
  export WINEARCH=win64
  # CORVALIS_WINEDEBUG=+listbox, for example, turns on a trace of Wine.
  export WINEDEBUG=${CORVALIS_WINEDEBUG:--all}
  # No Mono and no Gecko, which Wine would offer to download, and no entries in the
  # menus of the user's desktop.
  export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe='
  # The folders in which fontconfig, Mesa and the window manager keep their files.
  export XDG_CACHE_HOME=$build_dir/wine/xdg/cache
  export XDG_CONFIG_HOME=$build_dir/wine/xdg/config
  export XDG_DATA_HOME=$build_dir/wine/xdg/data
  # The folder of Wine's server socket.
  export TMPDIR=$build_dir/wine/tmp
  # Wine converts file names by the locale's character set. Only UTF-8 has all
  # characters.
  if [ "$(locale charmap 2>/dev/null)" != UTF-8 ]; then
    export LC_ALL=C.UTF-8
  fi
  # Only ./run is for the user. Everything else runs in English and code page 1252, until
  # tools/code_page.sh, within the session, asks for another one. It has a home of its
  # own, because Wine links Desktop, Documents and so on to the folders in the home.
  if [ "$1" != run ]; then
    [ -n "${CORVALIS_WINE_SESSION:-}" ] || export LC_ALL=C.UTF-8
    export HOME=$build_dir/wine/home
    mkdir -p "$HOME"
  fi
  mkdir -p "$WINEPREFIX" "$TMPDIR" "$XDG_CACHE_HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME"
  # Wine refuses the prefix of another user with a message that does not help.
  [ -O "$WINEPREFIX" ] ||
    fail "$WINEPREFIX belongs to another user; remove $build_dir and try again"
}

# within_session NAME "$0" "$@": starts the script again in a session of that name,
# unless it runs in a session already. Then uses the prefix of the session.
within_session() {
  [ -n "${CORVALIS_WINE_SESSION:-}" ] || exec "$project_root/tools/wine_session.sh" "$@"
  use_wine_prefix "$CORVALIS_WINE_SESSION"
}

# own_session NAME "$0" "$@": starts the script again in a session of that name, unless
# it runs in that one already. Then uses its prefix.
own_session() {
  [ "${CORVALIS_WINE_SESSION:-}" = "$1" ] || exec "$project_root/tools/wine_session.sh" "$@"
  use_wine_prefix "$1"
}

# Makes the prefix of use_wine_prefix if it does not exist; this takes ten seconds.
prepare_wine_prefix() {
  local ready=$WINEPREFIX/corvalis_ready
  [ ! -e "$ready" ] || return 0
  (
    flock 8
    # Another script may have made it while this one waited.
    [ ! -e "$ready" ] || exit 0
    rm -rf "${WINEPREFIX:?}"
    mkdir -p "$WINEPREFIX"
    echo "Preparing Wine in $WINEPREFIX ..." >&2
    # No display: otherwise the desktop would be bound to it.
    unset DISPLAY
    log=$WINEPREFIX.log
    {
      wineboot --init &&
        # A crashed program just ends: no dialog waits for an answer.
        wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f &&
        wineserver -w
    } >"$log" 2>&1 8>&- </dev/null || {
      cat "$log" >&2
      fail 'Wine could not make its prefix'
    }
    touch "$ready"
  ) 8>"$WINEPREFIX.making"
}
