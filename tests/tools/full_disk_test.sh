#!/bin/bash
# The finished program on a full disk: a file system of some hundred kilobytes
# in memory, which only this test and a Wine session of its own see. Ends with
# 77, for a test that was skipped, where nobody may make one:
#
#   tests/tools/full_disk_test.sh
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"

disk=$build_dir/test/full_disk
if [ "${1:-}" != mounted ]; then
  mkdir -p "$disk"
  # In a name space of their own mounts end with it, whatever happens.
  alone=(--mount)
  [ "$(id -u)" -eq 0 ] || alone+=(--map-root-user)
  if ! unshare "${alone[@]}" mount -t tmpfs -o size=400k tmpfs "$disk" 2>/dev/null; then
    echo 'skipped: this user may not mount a file system, not even in a name space'
    exit 77
  fi
  exec unshare "${alone[@]}" "$0" mounted
fi

mount -t tmpfs -o size=400k tmpfs "$disk"
# The Wine server is to see the mount, so it must be started from here.
"$project_root/tools/wine_session.sh" full_disk "$project_root/tools/wine_run.sh" \
  "$build_dir/windows/tests/windows/outside/outside_tests.exe" \
  '--gtest_filter=FullDiskTest.*' "--small-disk=Z:${disk//\//\\}"
