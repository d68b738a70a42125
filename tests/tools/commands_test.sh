#!/bin/bash
# The scripts declare every command that they use and the package it comes
# from, and the check that says so sees each way of forgetting one.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd -P)
check=$root/tools/check_commands.py

"$check" "$root"

mkdir -p "$root/build/test"
copy=$(mktemp -d "$root/build/test/commands.XXXXXX")
trap 'rm -rf "$copy"' EXIT

# expect_fault FAULT COMMAND...: after the command has damaged a copy of the
# project's scripts, the check fails and says so.
expect_fault() {
  local fault=$1
  shift
  rm -rf "${copy:?}"/*
  (
    cd "$root"
    find . -path ./build -prune -o -path ./.git -prune -o -type f \
      \( -name '*.sh' -o -name '*.py' -o -name '*.txt' -o -name '*.cmake' -o -name '*.json' \
      -o -path ./run -o -path ./test -o -path ./bench -o -path ./.ci/run \) -exec cp --parents -t "$copy" {} +
  )
  "$check" "$copy" >"$copy/before"
  (cd "$copy" && "$@")
  if "$check" "$copy" >"$copy/after"; then
    echo "not noticed: $fault"
    exit 1
  fi
  grep -qxF "$fault" "$copy/after" || {
    echo "expected: $fault"
    cat "$copy/after"
    exit 1
  }
}

append() {
  printf '%s\n' "$2" >>"$1"
}

expect_fault 'frobnicate: not in tools/commands.txt, used by tools/setup.sh' \
  append tools/setup.sh 'if true; then x=$(sudo -n env A=b frobnicate); fi'
expect_fault 'frobnicate: not in tools/commands.txt, used by tools/setup.sh' \
  append tools/setup.sh 'printf x | xargs -P 2 -n 1 frobnicate -x'
expect_fault 'frobnicate: not in tools/commands.txt, used by CMakeLists.txt' \
  append CMakeLists.txt 'add_custom_command(OUTPUT x COMMAND frobnicate x)'
expect_fault 'frobnicate: in tools/commands.txt, used by nothing' \
  append tools/commands.txt 'frobnicate debian'
expect_fault 'xdotool: tools/packages.txt lacks xdotool for ./run' \
  sed -i 's/^\(xdotool .*\) run /\1 /' tools/packages.txt
expect_fault 'Xvfb: tools/packages.txt lacks xvfb for ./bench' \
  sed -i 's/^\(xvfb .*\) bench/\1/' tools/packages.txt
expect_fault 'ninja: tools/packages.txt lacks ninja-build for ./test' \
  sed -i '/^ninja-build/d' tools/packages.txt
expect_fault 'xprop: /usr/bin/xprop does not come with debian' \
  sed -i 's/^xprop .*/xprop debian/' tools/commands.txt
echo 'each way of forgetting a command is noticed'
