#!/bin/bash
# Installs the missing Debian packages that a script needs. If none is missing, it
# uses neither root nor the network:
#
#   tools/setup.sh run|test|bench|bare
set -eu

case ${1:-} in
  run | test | bench | bare) ;;
  *)
    echo "usage: $0 run|test|bench|bare" >&2
    exit 2
    ;;
esac

list=$(dirname "$0")/packages.txt
mapfile -t wanted < <(
  awk -v user="$1" '!/^#/ { for (i = 2; i <= NF; i++) if ($i == user) print $1 }' "$list"
)

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
  echo "$0: this system is not Debian. Install these packages, or what they are called" \
    "here, by hand: ${wanted[*]}" >&2
  exit 1
fi

installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${wanted[@]}" 2>/dev/null || true)
missing=()
for package in "${wanted[@]}"; do
  grep -qxF "$package installed" <<<"$installed" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "$0: you are not root, and there is no sudo. Run as root:" \
      "apt-get install ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
  # Without a terminal nobody can type a password.
  [ -t 0 ] || as_root+=(-n)
fi

apt() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq \
    -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 -o Dpkg::Use-Pty=0 "$@"
}

echo "Installing: ${missing[*]}"
log=$(dirname "$0")/../build/log/setup.log
mkdir -p "$(dirname "$log")"
# If the lists cannot be updated, the old ones may do.
apt update >"$log" 2>&1 || echo "$0: the package lists could not be updated" >&2
apt install -y --no-install-recommends "${missing[@]}" >>"$log" 2>&1 </dev/null || {
  cat "$log" >&2
  echo "$0: the missing packages could not be installed" >&2
  exit 1
}
