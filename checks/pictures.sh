#!/usr/bin/env bash
# Fails when a picture of the windows is not what the program shows today: takes all of them anew and compares.
# Usage: checks/pictures.sh [folder with the program, build/run/bin by default]
set -euo pipefail
cd "$(dirname "$0")/.."
new=build/screenshots
rm -rf "$new"
docs/screenshots/make.sh "${1:-build/run/bin}" "$new"

may_differ() { # name: so many pixels, the blinking cursor or digits that are random; a word is a hundred
  case $1 in
    monte-carlo.png) echo 400 ;;
    *) echo 40 ;;
  esac
}
status=0
for name in $(ls docs/screenshots "$new" | grep '\.png$' | sort -u); do
  differ=$(compare -metric AE -fuzz 10% "docs/screenshots/$name" "$new/$name" null: 2>&1 || true)
  [[ $differ =~ ^[0-9]+$ ]] && [ "$differ" -le "$(may_differ "$name")" ] && continue
  echo "docs/screenshots/$name differs from what the program shows, $differ pixels: docs/screenshots/make.sh takes it anew"
  status=1
done
exit $status
