#!/usr/bin/env bash
# Fails when a picture of the windows is not what the program shows today: takes all of them anew and compares.
# Usage: checks/pictures.sh [folder with the program, build/run/bin by default]
set -euo pipefail
cd "$(dirname "$0")/.."
new=build/screenshots
rm -rf "$new"
docs/screenshots/make.sh "${1:-build/run/bin}" "$new"

# So many pixels may differ: the blinking cursor, and some digits of what is random. A word more is more.
allowed=300
status=0
for name in $(ls docs/screenshots "$new" | grep '\.png$' | sort -u); do
  differ=$(compare -metric AE -fuzz 10% "docs/screenshots/$name" "$new/$name" null: 2>&1 || true)
  [[ $differ =~ ^[0-9]+$ ]] && [ "$differ" -le "$allowed" ] && continue
  echo "docs/screenshots/$name differs from what the program shows, $differ pixels: docs/screenshots/make.sh takes it anew"
  status=1
done
exit $status
