# Sourced, after wine_env.sh, by the scripts that look at the editor's windows on a
# private display.

# The process id of the running editor; empty if none runs.
editor=
leftovers=()

# remove_at_exit PATH...: removes the paths when the script ends, and ends $editor.
remove_at_exit() {
  leftovers+=("$@")
  trap end_editor_and_remove EXIT
}
end_editor_and_remove() {
  [ -z "$editor" ] || kill "$editor" 2>/dev/null || true
  rm -rf "${leftovers[@]}"
}

# wait_for_window TITLE: waits for a window with that title, a regular expression, and
# prints its X id.
wait_for_window() {
  local tries window
  for ((tries = 0; tries < 300; tries++)); do
    window=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1 || true)
    if [ -n "$window" ]; then
      echo "$window"
      return 0
    fi
    sleep 0.1
  done
  fail "no window \"$1\" within half a minute"
}

# photograph WINDOW PICTURE: saves a picture of a window with its frame, after two
# pictures in a row are equal.
photograph() {
  local last new tries
  last=${2%.png}.last.png new=${2%.png}.new.png
  rm -f "$last"
  for ((tries = 0; tries < 40; tries++)); do
    import -silent -frame -window "$1" "$new"
    if [ -e "$last" ] && cmp -s "$last" "$new"; then
      mv "$new" "$2"
      rm -f "$last"
      echo "$2"
      return 0
    fi
    mv "$new" "$last"
    sleep 0.3
  done
  rm -f "$last" "$new"
  fail "the picture $2 does not stand still"
}

# begin_photographs SAMPLE [FOLDER]: opens a copy of that sample in the editor, in a
# session of its own. Sets $main to the editor's window and $folder to the folder for
# the pictures, docs by default. Moves the pointer to the corner.
begin_photographs() {
  local sample=$1
  shift
  folder=$(realpath -m -- "${1:-$project_root/docs}")
  if [ -z "${CORVALIS_WINE_SESSION:-}" ]; then
    exec "$project_root/tools/wine_session.sh" photo "$0" "$folder"
  fi
  mkdir -p "$folder" "$build_dir/run"
  work=$(mktemp -d "$build_dir/run/photo.XXXXXX")
  remove_at_exit "$work"
  cp "$project_root/samples/$sample.menu" "$work/$sample.menu"
  "$project_root/tools/start_editor.sh" "$CORVALIS_WINE_SESSION" "$work/$sample.menu" &
  editor=$!
  main=$(wait_for_window 'Corvalis Edit')
  xdotool mousemove 1279 1023 windowactivate --sync "$main"
  sleep 1
}

# end_photographs: closes the editor. Fails if the editor's exit code is not 0.
end_photographs() {
  xdotool windowactivate --sync "$main" key alt+F4
  wait "$editor"
  editor=
}
