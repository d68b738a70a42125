#!/bin/bash
# The native tests reach nearly every line of menufile/:
#
#   tests/tools/coverage_test.sh TREE    of the preset "coverage"
set -eu -o pipefail
root=$(cd "$(dirname "$0")/../.." && pwd -P)
tree=$1

# The counters of earlier runs would be added to.
find "$tree" -name '*.gcda' -delete
for program in "$tree"/tests/menufile/menufile_tests "$tree"/tests/fuzz/replay_*; do
  [ ! -f "$program" ] || "$program" --gtest_brief=1
done
gcovr --root "$root" --filter "$root/menufile/" --txt --print-summary --fail-under-line 95 "$tree" |
  sed 's/^lines: /Counted: lines of menufile\/ that tests reach: /'
