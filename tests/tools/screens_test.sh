#!/bin/bash
# Runs the layout tests, and those that use keyboard and mouse, on screens of 1280x720 and
# 800x600 pixels, in a Wine prefix of its own.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"

if [ $# -eq 0 ]; then
  for screen in 1280x720 800x600; do
    CORVALIS_SCREEN=$screen "$project_root/tools/wine_session.sh" screens "$0" "$screen"
  done
  exit 0
fi

echo "== $1"
cd "$build_dir/windows/tests/windows"
run=$project_root/tools/wine_run.sh
"$run" ./windows_tests.exe \
  --gtest_filter='LayoutTest.*:ScaleTest.*:KeyboardTest.*:WizardTest.*'
"$run" outside/outside_tests.exe \
  --gtest_filter='KeyboardOutsideTest.*:ListOutsideTest.*:StoryTest.*'
