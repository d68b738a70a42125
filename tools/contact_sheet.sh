#!/bin/bash
# Saves one picture that shows all pages at 96, 144 and 192 DPI side by side:
#
#   tools/contact_sheet.sh [SCHEME]     plain (default) or contrast
#
# The picture is build/screenshots/sheet.png, or sheet_contrast.png. The single pages
# are in the folders beside it. The editor has to be built. Nothing is shown on the
# user's display.
set -eu
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh"
. "$(dirname "${BASH_SOURCE[0]}")/wine_look.sh"

scheme=${1:-plain}
case $scheme in
  plain) sheet=$build_dir/screenshots/sheet.png ;;
  contrast) sheet=$build_dir/screenshots/sheet_contrast.png ;;
  *) fail "no such scheme: $scheme" ;;
esac
export CORVALIS_SCREEN=1920x1200
own_session sheet "$0" "$scheme"

scales='96 144 192'
for dpi in $scales; do
  use_look "$dpi" "$scheme"
  rm -rf "$build_dir/screenshots/$scheme.$dpi"
  "$project_root/tools/photograph_pages.sh" "$build_dir/screenshots/$scheme.$dpi"
done

# A row for each page, and a column for each scale.
rows=()
for page in contents directory_page appearance about wizard_target wizard_name select_icon; do
  rows+=(\()
  for dpi in $scales; do
    rows+=("$build_dir/screenshots/$scheme.$dpi/$page.png")
  done
  rows+=(-bordercolor '#606468' -border 12 +append \))
done
convert -background '#606468' "${rows[@]}" -append "$sheet"
echo "$sheet"
