#!/bin/bash
# Runs one of the README's two commands in a bare Debian 12, made below build/bare.
# The command has to install every package that it needs.
#
#   tests/tools/bare_machine.sh                       every way, as ./test --bare does
#   tests/tools/bare_machine.sh COMMAND USER DISPLAY  COMMAND is ./run or ./test, with
#                                                     options; USER is root or sudo;
#                                                     DISPLAY is display or none
#
# Needs root for its mounts and for chroot.
set -eu -o pipefail
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine_env.sh"

bare=$build_dir/bare
machine=$bare/machine
# The folder of the project's copy in the machine.
copy=/home/user/corvalis

[ "$(id -u)" -eq 0 ] || fail 'only root can make a bare machine'

# Makes Debian's smallest system, unless that was done before. The packages come from
# the mirror of this machine.
make_debian() {
  [ ! -e "$bare/debian/ready" ] || return 0
  local mirror
  mirror=$(apt-get indextargets --format '$(REPO_URI) $(CODENAME) $(COMPONENT)' \
    'Created-By: Packages' | awk '$2 == "bookworm" && $3 == "main" { print $1; exit }')
  [ -n "$mirror" ] || fail 'this machine has no mirror of Debian 12'
  rm -rf "$bare/debian"
  mkdir -p "$bare/debian" "$bare/archives"
  echo '== Making a bare Debian'
  debootstrap --variant=minbase bookworm "$bare/debian" "$mirror" >"$bare/debootstrap.log" || {
    tail "$bare/debootstrap.log"
    fail 'debootstrap failed'
  }
  # The bare machine needs the same settings to reach the mirror.
  apt-config dump Acquire >"$bare/debian/etc/apt/apt.conf.d/90machine"
  touch "$bare/debian/ready"
}

# Makes a new machine with a copy of the project, without .git and build.
new_machine() {
  rm -rf "$machine"
  cp -a "$bare/debian" "$machine"
  cp /etc/resolv.conf /etc/hosts "$machine/etc/"
  in_machine useradd --create-home --shell /bin/bash user
  if [ "$user" = sudo ]; then
    in_machine apt-get -qq update
    in_machine apt-get -qq install -y --no-install-recommends sudo >/dev/null 2>&1
    echo 'user ALL=(ALL) NOPASSWD: ALL' >"$machine/etc/sudoers.d/user"
  fi
  mkdir "$machine$copy"
  (cd "$project_root" && find . -path ./build -prune -o -path ./.git -prune -o -print0 |
    tar -c --no-recursion --null -T -) | tar -x -C "$machine$copy"
  in_machine chown -R user:user "$copy"
}

# in_machine COMMAND...: runs the command as root. Its processes and mounts end with it.
# Of this machine's environment it gets only the display.
in_machine() {
  unshare --mount --pid --ipc --fork --kill-child /bin/bash -c '
    machine=$1 archives=$2
    shift 2
    mount -t proc proc "$machine/proc"
    mount --rbind /dev "$machine/dev"
    mount -t tmpfs tmpfs "$machine/dev/shm"
    mount --bind "$archives" "$machine/var/cache/apt/archives"
    exec chroot "$machine" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root \
      ${DISPLAY:+DISPLAY="$DISPLAY"} "$@"' bash "$machine" "$bare/archives" "$@" </dev/null
}

# Runs the command in the machine as its user.
run_command() {
  local as=(/bin/bash -c)
  [ "$user" = root ] || as=(setpriv --reuid user --regid user --init-groups env HOME=/home/user
    /bin/bash -c)
  in_machine "${as[@]}" "cd $copy && exec $command"
}

# close_editor PROCESS: waits for the editor that ./run opens on the display, takes a
# picture of it and closes it, as a user would.
close_editor() {
  . "$project_root/tools/x_windows.sh"
  local window tries
  for ((tries = 0; tries < 1800; tries++)); do
    window=$(xdotool search --onlyvisible --name '^Corvalis Edit$' 2>/dev/null | tail -n 1 || true)
    [ -z "$window" ] || break
    kill -0 "$1" 2>/dev/null || fail "$command ended without a window"
    sleep 1
  done
  [ -n "$window" ] || fail "$command showed no window"
  photograph "$window" "$bare/run.png"
  xdotool windowactivate --sync "$window" key --clearmodifiers alt+F4
}

# An empty screen has one colour.
shows_something() {
  [ "$(identify -format %k "$1")" -gt 50 ]
}

one_way() {
  local start=$SECONDS status=0
  command=$1 user=$2 display=$3
  echo "== $command as $user, $display"
  make_debian
  new_machine
  if [ "$display" = display ] && [[ $command == ./run* ]]; then
    run_command &
    close_editor $!
    wait $! || status=$?
    shows_something "$bare/run.png"
  else
    run_command || status=$?
    [[ $command != ./run* ]] || shows_something "$machine$copy/build/screenshots/run.png"
  fi
  echo "== $command as $user, $display: exit code $status after $((SECONDS - start)) s"
  return "$status"
}

if [ $# -eq 3 ]; then
  if [ "$3" = display ] && [ -z "${CORVALIS_PRIVATE_DISPLAY:-}" ]; then
    exec "$project_root/tools/with_display.sh" "$0" "$@"
  fi
  [ "$3" = display ] || unset DISPLAY
  one_way "$@"
else
  for way in './run root none' './run sudo display' './run sudo none' './run root display' \
    './test root none' './test sudo display'; do
    # shellcheck disable=SC2086
    "$0" $way
  done
fi
