#!/bin/bash
# Runs a fuzz target of build/fuzz:
#
#   tests/tools/fuzz_test.sh TARGET SECONDS
#
# It starts with the checked-in corpus and with the inputs that earlier runs have found
# (build/fuzz/found). An input with which it fails is written into build/fuzz/broken.
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
