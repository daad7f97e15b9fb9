#!/usr/bin/env bash
# Installs the Debian packages that are missing for a purpose of packages.txt. Usage: packaging/install.sh PURPOSE
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

packages_for() { # purpose
  local line word
  line=$(grep "^$1: " "$here/packages.txt") || { echo "packages.txt has no purpose $1" >&2; exit 1; }
  for word in ${line#*: }; do
    if [[ $word == +* ]]; then packages_for "${word#+}"; else echo "$word"; fi
  done
}
missing=()
wanted=$(packages_for "$1")
for package in $wanted; do
  dpkg-query -W -f '${Status}' "$package" 2> /dev/null | grep -q 'ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo > /dev/null || { echo "Run as root, or install sudo: ${missing[*]} are missing." >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
