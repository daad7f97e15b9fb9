#!/usr/bin/env bash
# Makes sure of the locales of the tests: the Italian one for its decimal comma, the Turkish one for its dotless i.
set -euo pipefail
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
known=$(locale -a)
for name in it_IT tr_TR; do
  grep -qi "^$name\.utf-\?8$" <<< "$known" || "${as_root[@]}" localedef -i $name -f UTF-8 $name.UTF-8
done
