#!/usr/bin/env bash
# Installs the Debian packages of the named groups that this machine lacks.
# usage: tools/setup.sh GROUP...     (groups: cmake/packages.txt)
set -euo pipefail
list="$(dirname "$0")/../cmake/packages.txt"

missing=()
for group in "$@"; do
  packages=$(sed -n "s/^$group: //p" "$list")
  [ -n "$packages" ] || { echo "setup: no package group named $group" >&2; exit 64; }
  for package in $packages; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
done
[ ${#missing[@]} -gt 0 ] || exit 0

if ! command -v apt-get >/dev/null; then
  echo "setup: please install what these Debian packages hold: ${missing[*]}" >&2
  exit 1
fi
sudo=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "setup: please run as root: apt-get install ${missing[*]}" >&2; exit 1; }
  sudo=(sudo)
fi
echo "Installing ${missing[*]}"
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
  --no-install-recommends "${missing[@]}" >/dev/null
