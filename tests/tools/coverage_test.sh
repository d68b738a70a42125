#!/bin/bash
# Fails if the native tests execute less than 95 % of the lines of menufile/:
#
#   tests/tools/coverage_test.sh TREE    TREE is that of the preset "coverage"
set -eu -o pipefail
root=$(cd "$(dirname "$0")/../.." && pwd -P)
tree=$1

# Those that try everything at random take minutes here, and what only they reach has no
# test of its own.
long="LiteralRewrite.*:*EveryRewrite.*:Conversion.*:Adding.*"

# Remove the counters of earlier runs: new ones would be added to them.
find "$tree" -name '*.gcda' -delete
"$tree/tests/menufile/menufile_tests" --gtest_brief=1 --gtest_filter="-$long"
for corpus in "$root"/tests/fuzz/corpus/*; do
  (cd "$corpus" && "$tree/tests/fuzz/replay_${corpus##*/}" --gtest_brief=1)
done
# Without --object-directory, gcovr puts files into the root meanwhile, where other tests
# find them.
gcovr --root "$root" --object-directory "$tree" --filter "$root/menufile/" \
  --txt --print-summary --fail-under-line 95 "$tree" |
  sed 's/^lines: /Counted: lines of menufile\/ that tests reach: /'
