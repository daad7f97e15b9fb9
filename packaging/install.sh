#!/usr/bin/env bash
# Installs the Debian packages that are missing. Usage: packaging/install.sh build|run|test|tools
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

wanted=$(awk -F: -v last="$1" '/^[a-z]/ { print $2; if ($1 == last) exit }' "$here/packages.txt")
missing=()
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
