# Sourced by the scripts that start Windows programs: the project's folders and
# its Wine prefixes, all of them below build/.

project_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
build_dir=$project_root/build

# Says why a script ends, and ends it.
fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

# use_wine_prefix NAME: lets every Wine command that follows work in
# build/wine/NAME. A person's editor and the tests have prefixes of their own:
# a prefix has one desktop, which lives on one X display.
use_wine_prefix() {
  export WINEPREFIX=$build_dir/wine/$1
  export WINEARCH=win64
  # CORVALIS_WINEDEBUG=+listbox, say, asks Wine for a channel of its traces.
  export WINEDEBUG=${CORVALIS_WINEDEBUG:--all}
  # Neither Mono nor Gecko is wanted (Wine would offer to download them), and
  # no entries in the menus of the person's own desktop.
  export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe='
  # What fontconfig, Mesa and the window manager keep for later.
  export XDG_CACHE_HOME=$build_dir/wine/xdg/cache
  export XDG_CONFIG_HOME=$build_dir/wine/xdg/config
  export XDG_DATA_HOME=$build_dir/wine/xdg/data
  # The folder of Wine's server socket.
  export TMPDIR=$build_dir/wine/tmp
  # File names pass from Linux to Windows through the locale's character set;
  # only UTF-8 holds them all.
  if [ "$(locale charmap 2>/dev/null)" != UTF-8 ]; then
    export LC_ALL=C.UTF-8
  fi
  # Wine links Desktop, Documents and so on to the person's own; tests keep off.
  if [ "$1" = test ]; then
    export HOME=$build_dir/wine/home
    mkdir -p "$HOME"
  fi
  mkdir -p "$WINEPREFIX" "$TMPDIR" "$XDG_CACHE_HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME"
  # Wine refuses a prefix that another user made, in words that do not help.
  [ -O "$WINEPREFIX" ] ||
    fail "$WINEPREFIX belongs to another user; remove $build_dir and try again"
}

# within_session NAME "$0" "$@": goes on with the script in a session of that
# name, unless it runs in a session already, and works in its prefix.
within_session() {
  [ -n "${CORVALIS_WINE_SESSION:-}" ] || exec "$project_root/tools/wine_session.sh" "$@"
  use_wine_prefix "$CORVALIS_WINE_SESSION"
}

# Makes the prefix of use_wine_prefix on its first use; some ten seconds.
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
    # Without a display: a desktop that is made now would be bound to it.
    unset DISPLAY
    log=$WINEPREFIX.log
    {
      wineboot --init &&
        # A program that crashes ends; no dialog waits for an answer.
        wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f &&
        wineserver -w
    } >"$log" 2>&1 8>&- </dev/null || {
      cat "$log" >&2
      fail 'Wine could not make its prefix'
    }
    touch "$ready"
  ) 8>"$WINEPREFIX.making"
}
