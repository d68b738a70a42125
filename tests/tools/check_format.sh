#!/bin/bash
# Fails if clang-format or shfmt would format a file in another way, and prints the
# difference.
set -eu
cd "$(dirname "$0")/../.."

mapfile -t sources < <(
  find . -path ./build -prune -o -path ./.git -prune -o \
    -type f \( -name '*.h' -o -name '*.cc' -o -name '*.cpp' \) -print | sort
)
mapfile -t scripts < <(
  find run test bench .ci/run tools tests -type f \
    \( -name '*.sh' -o -path run -o -path test -o -path bench -o -path .ci/run \) | sort
)
[ ${#sources[@]} -gt 0 ] && [ ${#scripts[@]} -gt 0 ] || {
  echo "$0: found nothing to check" >&2
  exit 1
}

status=0
clang-format --dry-run --Werror "${sources[@]}" || status=1
shfmt -i 2 -ci -d "${scripts[@]}" || status=1
[ "$status" -ne 0 ] || echo "${#sources[@]} sources and ${#scripts[@]} scripts, all formatted"
exit "$status"
