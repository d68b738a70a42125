#!/bin/bash
# Runs a Windows test program under Wine; CMake and CTest start each one
# through this script:
#
#   tools/wine_run.sh PROGRAM.exe [ARGUMENT...]
#
# Within tools/wine_session.sh it costs little; on its own it makes a session
# for this one program.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"

if [ "${CORVALIS_WINE_SESSION:-}" = test ]; then
  use_wine_prefix test
  exec wine "$@"
fi
exec "$project_root/tools/wine_session.sh" test "$0" "$@"
