#!/bin/bash
# Runs a command with another ANSI code page for its Windows programs, inside a
# session of tools/wine_session.sh:
#
#   tools/code_page.sh PAGE COMMAND [ARGUMENT...]
#
# Wine takes a program's code page from its locale. A locale is made below build/
# on its first use.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"

[ $# -gt 1 ] || fail "usage: $0 PAGE COMMAND [ARGUMENT...]"
case $1 in
  932) locale=ja_JP ;;
  936) locale=zh_CN ;;
  949) locale=ko_KR ;;
  1251) locale=ru_RU ;;
  1252) locale=en_US ;;
  1255) locale=he_IL ;;
  1256) locale=ar_EG ;;
  65001) locale=hi_IN ;; # its languages have no ANSI code page: Windows uses UTF-8
  *) fail "no locale is known for code page $1" ;;
esac
shift

export LOCPATH=$build_dir/locales
mkdir -p "$LOCPATH"
(
  flock 8
  [ -d "$LOCPATH/$locale.UTF-8" ] || {
    rm -rf "$LOCPATH/new"
    localedef --no-archive -i "$locale" -f UTF-8 "$LOCPATH/new" || fail "$locale cannot be made"
    mv "$LOCPATH/new" "$LOCPATH/$locale.UTF-8"
  }
) 8>"$LOCPATH.making"
export LC_ALL=$locale.UTF-8
exec "$@"
