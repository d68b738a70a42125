#!/bin/bash
# Runs the layout tests at 96, 144 and 192 DPI, in the usual colours and in a scheme of
# high contrast, in a Wine prefix of its own.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"
. "$project_root/tools/wine_look.sh"

own_session scaling "$0"

for scheme in plain contrast; do
  for dpi in 96 144 192; do
    echo "== $dpi DPI, $scheme"
    use_look "$dpi" "$scheme"
    CORVALIS_TEST_DPI=$dpi CORVALIS_TEST_SCHEME=$scheme "$project_root/tools/wine_run.sh" \
      "$build_dir/windows/tests/windows/windows_tests.exe" \
      --gtest_filter='ControlsTest.*:LayoutTest.*'
  done
done
