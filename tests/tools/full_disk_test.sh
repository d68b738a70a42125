#!/bin/bash
# Tests the finished program on a full disk: a file system of 400 KiB in memory, which
# only this test and its own Wine session see. If this user may not mount one, ends with
# 77, which means that the test was skipped:
#
#   tests/tools/full_disk_test.sh
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"

disk=$build_dir/test/full_disk
if [ "${1:-}" != mounted ]; then
  mkdir -p "$disk"
  # In a name space of its own, so that the mount ends with it in any case.
  alone=(--mount)
  [ "$(id -u)" -eq 0 ] || alone+=(--map-root-user)
  if ! unshare "${alone[@]}" mount -t tmpfs -o size=400k tmpfs "$disk" 2>/dev/null; then
    echo 'skipped: this user may not mount a file system, not even in a name space'
    exit 77
  fi
  exec unshare "${alone[@]}" "$0" mounted
fi

mount -t tmpfs -o size=400k tmpfs "$disk"
# The Wine server must see the mount, so it is started from here.
"$project_root/tools/wine_session.sh" full_disk "$project_root/tools/wine_run.sh" \
  "$build_dir/windows/tests/windows/outside/outside_tests.exe" \
  '--gtest_filter=FullDiskTest.*' "--small-disk=Z:${disk//\//\\}"
