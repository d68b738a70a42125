#!/bin/bash
# The windows look right at 96, 144 and 192 DPI, in Windows' own colours and in
# a scheme of high contrast: the layout tests are run in each, in a Wine prefix
# that nothing else uses.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"

if [ "${CORVALIS_WINE_SESSION:-}" != scaling ]; then
  exec "$project_root/tools/wine_session.sh" scaling "$0"
fi
use_wine_prefix scaling
settings=$build_dir/test/scaling.reg
mkdir -p "$(dirname "$settings")"

# White and yellow on black.
colours() {
  local black='"0 0 0"' white='"255 255 255"' name
  printf '\n[HKEY_CURRENT_USER\\Control Panel\\Colors]\n'
  for name in ButtonFace ButtonAlternateFace InfoWindow Menu Scrollbar Window; do
    printf '"%s"=%s\n' "$name" "$black"
  done
  for name in ButtonDkShadow ButtonHilight ButtonLight ButtonShadow ButtonText HilightText \
    InfoText MenuText TitleText WindowFrame; do
    printf '"%s"=%s\n' "$name" "$white"
  done
  printf '"WindowText"="255 255 0"\n"GrayText"="0 255 0"\n"Hilight"="0 128 0"\n'
}

# use_settings DPI SCHEME: for all programs that start from here on.
use_settings() {
  local dpi theme=1
  dpi=$(printf '%08x' "$1")
  [ "$2" = plain ] || theme=0
  {
    printf 'REGEDIT4\n'
    printf '\n[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n"LogPixels"=dword:%s\n' "$dpi"
    printf '\n[HKEY_CURRENT_CONFIG\\Software\\Fonts]\n"LogPixels"=dword:%s\n' "$dpi"
    printf '\n[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager]\n'
    printf '"ThemeActive"="%s"\n' "$theme"
    printf '\n[-HKEY_CURRENT_USER\\Control Panel\\Colors]\n'
    [ "$2" = plain ] || colours
  } >"$settings"
  wine regedit /S "$(winepath -w "$settings")" >/dev/null 2>&1
  # They are read with the first program of a Wine server.
  wineserver -k
  wineserver -w
  wineserver -p60 >/dev/null 2>&1 </dev/null
}

for scheme in plain contrast; do
  for dpi in 96 144 192; do
    echo "== $dpi DPI, $scheme"
    use_settings "$dpi" "$scheme"
    CORVALIS_TEST_DPI=$dpi CORVALIS_TEST_SCHEME=$scheme "$project_root/tools/wine_run.sh" \
      "$build_dir/windows/tests/windows/windows_tests.exe" --gtest_brief=1 \
      --gtest_filter='ControlsTest.*:LayoutTest.*'
  done
done
