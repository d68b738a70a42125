#!/bin/bash
# Installs the Debian packages that a script needs and this machine lacks; asks
# nobody and no network when none is missing:
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
  echo "$0: this is no Debian; it takes by hand what stands for: ${wanted[*]}" >&2
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
    echo "$0: neither root nor sudo; as root: apt-get install ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
  # Nobody is there to type a password.
  [ -t 0 ] || as_root+=(-n)
fi

apt() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq \
    -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 -o Dpkg::Use-Pty=0 "$@"
}

echo "Installing: ${missing[*]}"
log=$(dirname "$0")/../build/log/setup.log
mkdir -p "$(dirname "$log")"
# A list that cannot be fetched anew may still be good enough.
apt update >"$log" 2>&1 || echo "$0: the package lists may be old" >&2
apt install -y --no-install-recommends "${missing[@]}" >>"$log" 2>&1 </dev/null || {
  cat "$log" >&2
  echo "$0: could not install what is missing" >&2
  exit 1
}
