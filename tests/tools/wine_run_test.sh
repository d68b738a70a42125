#!/bin/bash
# Tests that a program that Wine ends before it begins is started again, once, and
# counted, and that two of them make the whole run fail. "wine" is a script here that
# fails as often as the file FAILURES says.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"

copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
mkdir -p "$copy/tests/tools" "$copy/bin"
cp -r "$project_root/tools" "$copy/tools"
cp "$project_root/tests/tools/wine_starts_test.sh" "$copy/tests/tools"
cat >"$copy/bin/wine" <<'WINE'
#!/bin/bash
left=$(cat "$FAILURES")
[ "$left" -eq 0 ] || {
  echo $((left - 1)) >"$FAILURES"
  exit 53
}
echo "the program ran"
exit "$1"
WINE
chmod +x "$copy/bin/wine"
export PATH=$copy/bin:$PATH FAILURES=$copy/failures CORVALIS_WINE_SESSION=copy

# expect FAILURES CODE EXIT OUTPUT: runs a program that ends with CODE after Wine has
# failed FAILURES times. Expects the exit code EXIT and the output OUTPUT.
expect() {
  local failures=$1 code=$2 wanted_code=$3 wanted=$4 status=0
  echo "$failures" >"$FAILURES"
  output=$("$copy/tools/wine_run.sh" "$code" 2>/dev/null) || status=$?
  [ "$status $output" = "$wanted_code $wanted" ] ||
    fail "after $failures failures, a program with exit code $code: $status, $output"
}
# expect_counted COUNT EXIT: expects that count, and that exit code of the check at the
# end.
expect_counted() {
  local status=0
  "$copy/tests/tools/wine_starts_test.sh" end >"$copy/counted" || status=$?
  grep -q "^Counted: $1 " "$copy/counted" || fail "not $1: $(cat "$copy/counted")"
  [ "$status" -eq "$2" ] || fail "$1 counted, and the exit code is $status"
}

"$copy/tests/tools/wine_starts_test.sh" begin
expect 0 0 0 'the program ran'
expect 0 7 7 'the program ran'
expect_counted 0 0
expect 1 0 0 'the program ran'
expect_counted 1 0
expect 2 0 53 ''
expect_counted 2 1
"$copy/tests/tools/wine_starts_test.sh" begin
expect_counted 0 0
expect 1 7 7 'the program ran'
expect 1 0 0 'the program ran'
expect_counted 2 1
