# Sourced, after wine_env.sh, by the scripts that run programs at several DPI.

# Prints colours of high contrast, white and yellow on black, for the registry.
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

# use_look DPI SCHEME: sets the DPI and the colours of the Wine prefix. SCHEME is
# plain, the usual colours, or contrast, which has no theme.
use_look() {
  local dpi theme=1 settings=$WINEPREFIX.look.reg
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
  # Wine reads them when a Wine server starts.
  wineserver -k
  wineserver -w
  wineserver -p60 >/dev/null 2>&1 </dev/null
}
