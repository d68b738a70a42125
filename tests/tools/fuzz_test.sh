#!/bin/bash
# Lets a fuzz target of build/fuzz look for bytes that break it:
#
#   tests/tools/fuzz_test.sh TARGET SECONDS
#
# It starts from the corpus that is checked in and from what earlier runs found,
# which build/fuzz/found keeps. An input that breaks it is left in
# build/fuzz/broken.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd -P)
target=$1 seconds=$2

corpus=$root/tests/fuzz/corpus/${target#fuzz_}
found=$root/build/fuzz/found/$target
broken=$root/build/fuzz/broken
mkdir -p "$found" "$broken"
[ -d "$corpus" ] || {
  echo "$0: no corpus $corpus" >&2
  exit 1
}

exec "$root/build/fuzz/$target" -max_total_time="$seconds" -timeout=10 -print_final_stats=1 \
  -dict="$root/tests/fuzz/menu.dict" \
  -artifact_prefix="$broken/$target-" "$found" "$corpus"
